#include "libraries/corelib/source/system/FileDirectories.h"

#include "libraries/corelib/source/system/DirWalk.h"
#include "libraries/corelib/source/system/FileNames.h"
#include "libraries/corelib/source/system/FileProperties.h"
#include "libraries/corelib/source/system/FileReading.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <utility>

namespace TarvikCorelib {

namespace {

bool readTree(const std::string& dir, std::set<std::string>& files, std::set<std::string>& dirs) {
    Descriptor first(open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!first.isOpen()) return false;
    TreeWalk walk(std::move(first));
    while (walk.next()) {
        if (walk.isLeaving()) continue;
        const bool isDirectory = walk.kind() == EntryKind::Directory;
        (isDirectory ? dirs : files).insert(walk.path());
        if (isDirectory && walk.enter() != 0) return false;
    }
    return walk.error() == 0;
}

// Empty for what is no link.
std::string linkText(const std::string& path) {
    std::array<char, PATH_MAX> text{};
    const ssize_t size = readlink(path.c_str(), text.data(), text.size());
    return size < 0 ? std::string() : std::string(text.data(), static_cast<std::size_t>(size));
}

bool areSameFiles(const std::string& first, const std::string& second) {
    const std::string text = linkText(first);
    return text == linkText(second) && (!text.empty() || haveSameContent(first, second));
}

bool areSameTrees(const std::string& first, const std::string& second) {
    std::set<std::string> files;
    std::set<std::string> dirs;
    std::set<std::string> otherFiles;
    std::set<std::string> otherDirs;
    const bool isRead = readTree(first, files, dirs) && readTree(second, otherFiles, otherDirs);
    if (!isRead || files != otherFiles || dirs != otherDirs) return false;
    for (const std::string& file : files) {
        const std::string below = "/" + file;
        if (!areSameFiles(first + below, second + below)) return false;
    }
    return true;
}

bool removeWholeDir(const std::string& path) {
    DirPlace place;
    EntryKind kind{};
    if (openPlace(path, place) != 0) return false;
    if (kindOf(place.dir.get(), place.name.c_str(), kind) != 0) return false;
    if (kind != EntryKind::Directory) return false;
    return removeTree(place.dir.get(), place.name.c_str(), false).count == 0;
}

}  // namespace

template <class Char>
auto FileDirectories<Char>::getFiles(const Text& dir, const Text& pattern) -> Names {
    Names files;
    readDir(dir, pattern, &files, nullptr);
    return files;
}

template <class Char>
auto FileDirectories<Char>::getSubDirs(const Text& dir, const Text& pattern) -> Names {
    Names dirs;
    readDir(dir, pattern, nullptr, &dirs);
    return dirs;
}

template <class Char>
std::int64_t FileDirectories<Char>::count(const Text& dir, const Text& pattern) {
    Names names;
    return readDir(dir, pattern, &names, &names) ? static_cast<std::int64_t>(names.size()) : -1;
}

template <class Char>
bool FileDirectories<Char>::getDirTree(const Text& dir, Names* files, Names* dirs) {
    std::set<std::string> foundFiles;
    std::set<std::string> foundDirs;
    if (!readTree(systemName(dir), foundFiles, foundDirs)) return false;
    if (files != nullptr) files->merge(textsAs<Char>(std::move(foundFiles)));
    if (dirs != nullptr) dirs->merge(textsAs<Char>(std::move(foundDirs)));
    return true;
}

template <class Char>
bool FileDirectories<Char>::compareDirs(const Text& first, const Text& second) {
    return areSameTrees(systemName(first), systemName(second));
}

template <class Char>
bool FileDirectories<Char>::makeDir(const Text& path) {
    return mkdir(systemName(path).c_str(), 0777) == 0;
}

// No step is checked for itself: what has failed is seen at the end.
template <class Char>
bool FileDirectories<Char>::ensurePath(const Text& path) {
    const std::string name = systemName(path);
    for (std::size_t end = 0; end < name.size();) {
        end = std::min(name.find('/', end + 1), name.size());
        mkdir(name.substr(0, end).c_str(), 0777);
    }
    return FileProperties<Char>::isDir(path);
}

template <class Char>
bool FileDirectories<Char>::remove(const Text& path) {
    return unlink(systemName(path).c_str()) == 0;
}

template <class Char>
bool FileDirectories<Char>::removeDir(const Text& path, bool recursive) {
    const std::string name = systemName(path);
    return recursive ? removeWholeDir(name) : rmdir(name.c_str()) == 0;
}

template <class Char>
bool FileDirectories<Char>::clearDir(const Text& path) {
    Descriptor dir = openDir(AT_FDCWD, systemName(path).c_str());
    return dir.isOpen() && removeContents(std::move(dir), false).count == 0;
}

template class FileDirectories<char>;
template class FileDirectories<wchar_t>;

}  // namespace TarvikCorelib
