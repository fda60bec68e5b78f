#include "libraries/corelib/source/system/FileTexts.h"

#include "libraries/corelib/source/system/FileNames.h"
#include "libraries/corelib/source/system/FileReading.h"
#include "libraries/corelib/source/system/FileReplacement.h"

#include <algorithm>
#include <utility>

namespace TarvikCorelib {

namespace {

bool writeContent(const std::string& path, const std::string& content, int flags) {
    const FileTarget target = chooseTarget(path, flags);
    if (target.path.empty()) return target.succeeds;
    const int error = target.mayReplace ? replaceContent(target.path, content)
                                        : createContent(target.path, content);
    return error == 0;
}

// Calls `take` with each line, without its line feed.
template <class Char, class Take>
bool takeLines(const StringTools::Text<Char>& path, Take take) {
    StringTools::Text<Char> text;
    if (!FileTexts<Char>::fileToText(path, text)) return false;
    StringTools::View<Char> rest = text;
    while (!rest.empty()) {
        const StringTools::View<Char> line = rest.substr(0, rest.find(Char('\n')));
        take(line);
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    return true;
}

template <class Char, class Container>
bool readItems(const StringTools::Text<Char>& path, Container& items) {
    Container found;
    const bool isRead = takeLines<Char>(
        path, [&](auto line) { found.insert(found.end(), StringTools::Text<Char>(line)); });
    if (isRead) items = std::move(found);
    return isRead;
}

template <class Char, class Container>
bool writeItems(const StringTools::Text<Char>& path, const Container& items, int flags) {
    StringTools::Text<Char> text;
    for (const StringTools::Text<Char>& item : items)
        text.append(item).append(1, Char('\n'));
    return FileTexts<Char>::textToFile(path, text, flags);
}

}  // namespace

template <class Char>
bool FileTexts<Char>::fileToText(const Text& path, Text& text) {
    std::string content;
    const bool isRead = readContent(systemName(path), content);
    if (isRead) text = textAs<Char>(std::move(content));
    return isRead;
}

template <class Char>
bool FileTexts<Char>::textToFile(const Text& path, const Text& text, int flags) {
    std::string content;
    return narrowText(text, content) && writeContent(systemName(path), content, flags);
}

template <class Char>
bool FileTexts<Char>::fileToList(const Text& path, std::list<Text>& items) {
    return readItems<Char>(path, items);
}

template <class Char>
bool FileTexts<Char>::fileToVector(const Text& path, std::vector<Text>& items) {
    return readItems<Char>(path, items);
}

template <class Char>
bool FileTexts<Char>::fileToSet(const Text& path, std::set<Text>& items) {
    return readItems<Char>(path, items);
}

template <class Char>
bool FileTexts<Char>::listToFile(const Text& path, const std::list<Text>& items, int flags) {
    return writeItems<Char>(path, items, flags);
}

template <class Char>
bool FileTexts<Char>::vectorToFile(const Text& path, const std::vector<Text>& items, int flags) {
    return writeItems<Char>(path, items, flags);
}

template <class Char>
bool FileTexts<Char>::setToFile(const Text& path, const std::set<Text>& items, int flags) {
    return writeItems<Char>(path, items, flags);
}

template <class Char>
bool FileTexts<Char>::fileToMap(const Text& path, std::map<Text, Text>& pairs, View delimiter) {
    std::map<Text, Text> found;
    const bool isRead = takeLines<Char>(path, [&](View line) {
        const std::size_t end = std::min(line.find(delimiter), line.size());
        const std::size_t start = std::min(end + delimiter.size(), line.size());
        found.emplace(line.substr(0, end), line.substr(start));
    });
    if (isRead) pairs = std::move(found);
    return isRead;
}

template <class Char>
bool FileTexts<Char>::mapToFile(const Text& path, const std::map<Text, Text>& pairs, View delimiter,
                                int flags) {
    std::list<Text> lines;
    for (const auto& [key, value] : pairs)
        lines.push_back(Text(key).append(delimiter).append(value));
    return writeItems<Char>(path, lines, flags);
}

template class FileTexts<char>;
template class FileTexts<wchar_t>;

}  // namespace TarvikCorelib
