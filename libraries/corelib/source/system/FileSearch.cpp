#include "libraries/corelib/source/system/FileSearch.h"

#include "libraries/corelib/source/match/GlobMatcher.h"
#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/system/FileDirectories.h"
#include "libraries/corelib/source/system/FileNames.h"
#include "libraries/corelib/source/system/FilePathText.h"
#include "libraries/corelib/source/system/FileProperties.h"
#include "libraries/corelib/source/system/FileTexts.h"

namespace TarvikCorelib {

namespace {

constexpr auto npos = StringTools::npos;

template <class Char>
StringTools::Text<Char> joined(StringTools::Text<Char> dir, const StringTools::Text<Char>& name) {
    return FilePathText<Char>::append(dir, name);
}

// An empty directory is the current one.
template <class Char, class IsWanted>
StringTools::Text<Char> findIn(const StringTools::Text<Char>& name,
                               const std::vector<StringTools::Text<Char>>& dirs,
                               IsWanted isWanted) {
    if (name.empty()) return {};
    if (name.find(Char('/')) != npos) return isWanted(name) ? name : StringTools::Text<Char>();
    for (const StringTools::Text<Char>& dir : dirs) {
        StringTools::Text<Char> path = joined<Char>(dir, name);
        if (isWanted(path)) return path;
    }
    return {};
}

template <class Char>
std::vector<StringTools::Text<Char>> searchPath() {
    std::string dirs;
    EnvTools::get("PATH", dirs);
    const Char colon = ':';
    return FilePathText<Char>::splitDelim(textAs<Char>(std::move(dirs)), {&colon, 1});
}

template <class Char>
bool isExecutable(const StringTools::Text<Char>& path) {
    return FileProperties<Char>::isFile(path) && FileProperties<Char>::isAllowed(path, 1);
}

template <class Char, class IsWanted>
std::set<StringTools::Text<Char>> findBelow(const StringTools::Text<Char>& dir, bool withDirs,
                                            IsWanted isWanted) {
    std::set<StringTools::Text<Char>> paths;
    FileDirectories<Char>::getDirTree(dir, &paths, withDirs ? &paths : nullptr);
    std::erase_if(paths, [&](const auto& path) { return !isWanted(path); });
    return paths;
}

template <class Char, class HasMatch>
std::set<StringTools::Text<Char>> findInFiles(const StringTools::Text<Char>& dir,
                                              HasMatch hasMatch) {
    return findBelow<Char>(dir, false, [&](const auto& path) {
        const auto file = joined<Char>(dir, path);
        StringTools::Text<Char> text;
        return !FileProperties<Char>::isLink(file) && FileTexts<Char>::fileToText(file, text) &&
               hasMatch(text);
    });
}

}  // namespace

template <class Char>
auto FileSearch<Char>::find(const Text& name, const std::vector<Text>& dirs) -> Text {
    return findIn<Char>(name, dirs, FileProperties<Char>::exists);
}

template <class Char>
auto FileSearch<Char>::findPath(const Text& name) -> Text {
    return find(name, searchPath<Char>());
}

template <class Char>
auto FileSearch<Char>::findExe(const Text& name) -> Text {
    return findIn<Char>(name, searchPath<Char>(), isExecutable<Char>);
}

template <class Char>
auto FileSearch<Char>::findName(const Text& dir, const Text& name) -> std::set<Text> {
    return findBelow<Char>(
        dir, true, [&](const Text& path) { return FilePathText<Char>::getBase(path) == name; });
}

template <class Char>
auto FileSearch<Char>::findNameGlob(const Text& dir, const Text& glob) -> std::set<Text> {
    return findBelow<Char>(dir, true, [&](const Text& path) {
        return GlobMatcher::match(FilePathText<Char>::getBase(path), glob);
    });
}

template <class Char>
auto FileSearch<Char>::findContents(const Text& dir, const Text& text) -> std::set<Text> {
    return findInFiles<Char>(dir, [&](const Text& content) { return content.find(text) != npos; });
}

template <class Char>
auto FileSearch<Char>::findContentsGlob(const Text& dir, const Text& glob) -> std::set<Text> {
    return findInFiles<Char>(dir, [&](const Text& content) {
        return findGlob<Char>(content, glob, 0, npos).has_value();
    });
}

template class FileSearch<char>;
template class FileSearch<wchar_t>;

}  // namespace TarvikCorelib
