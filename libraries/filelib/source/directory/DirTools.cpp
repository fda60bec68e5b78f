#include "libraries/filelib/source/directory/DirTools.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/match/GlobMatcher.h"
#include "libraries/corelib/source/system/FileNames.h"
#include "libraries/filelib/source/directory/DirFailures.h"
#include "libraries/filelib/source/directory/DirToolsMessages.h"
#include "libraries/filelib/source/directory/DirectoryMessages.h"
#include "libraries/filelib/source/directory/FileFailures.h"
#include "libraries/filelib/source/directory/FileTools.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>

namespace TarvikFilelib {

using TarvikCorelib::Descriptor;
using TarvikCorelib::DirPlace;
using TarvikCorelib::EntryKind;
using TarvikCorelib::here;
using TarvikCorelib::made;
using TarvikCorelib::systemName;
using TarvikCorelib::TreeWalk;
using TarvikCorelib::WalkFailures;

namespace {

constexpr mode_t allPermissions = S_IRWXU | S_IRWXG | S_IRWXO;

void checkRead(int error, const std::string& path, const char* operation) {
    if (error == 0) return;
    if (error == ENOENT || error == ENOTDIR) checkAccess(error, path, operation);
    throw made<DirTools::ReadDir_Failed>(messages::readDirFailed, here(), path, errorText(error));
}

Descriptor openToRead(const std::string& path, const char* operation) {
    Descriptor dir = openTop(path);
    checkRead(dir.isOpen() ? 0 : errno, path, operation);
    return dir;
}

// Calls `take` for each entry of the tree, in front of what is in it, and `leave` behind that. What
// goes by itself meanwhile is no failure.
template <class Take, class Leave>
void walkTree(const std::string& path, const char* operation, Take take, Leave leave) {
    TreeWalk walk(openToRead(path, operation));
    while (walk.next()) {
        if (walk.isLeaving()) {
            leave();
            continue;
        }
        const int error = walk.kind() == EntryKind::Directory ? walk.enter() : 0;
        if (error == ENOENT) continue;
        if (error != 0) checkRead(error, path + "/" + walk.path(), operation);
        take(walk);
    }
    checkRead(walk.error(), path, operation);
}

// A link counts as what it leads to.
bool isDirectory(int dir, const char* name, EntryKind kind) {
    if (kind != EntryKind::Link) return kind == EntryKind::Directory;
    struct stat status {};
    return fstatat(dir, name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

bool hasForce(int flags) {
    return (flags & DirTools::RemoveForce) != 0;
}

int removePlace(const DirPlace& place, EntryKind kind, int flags) {
    const bool directory = kind == EntryKind::Directory;
    if (directory && (flags & DirTools::RemoveRecursive) != 0)
        return TarvikCorelib::removeTree(place.dir.get(), place.name.c_str(), hasForce(flags))
            .error;
    const int how = directory ? AT_REMOVEDIR : 0;
    return unlinkat(place.dir.get(), place.name.c_str(), how) == 0 ? 0 : errno;
}

}  // namespace

bool DirTools::exists(const std::string& path) {
    struct stat status {};
    return stat(systemName(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

DirTools::Names DirTools::readDir(const std::string& path, const std::string& pattern, int flags) {
    const int wanted = flags == 0 ? ReadFiles | ReadSubDirs : flags;
    const std::vector<std::string> patterns = getPatterns(pattern);
    const Descriptor dir = openToRead(path, "readDir");
    Names names;
    const auto take = [&](const char* name, EntryKind kind) {
        if (!includedByPattern(name, patterns)) return;
        const int found = isDirectory(dir.get(), name, kind) ? ReadSubDirs : ReadFiles;
        if ((wanted & found) != 0) names.emplace(name);
    };
    checkRead(TarvikCorelib::listDir(dir.get(), take), path, "readDir");
    return names;
}

DirTools::Names DirTools::getFiles(const std::string& path, const std::string& pattern) {
    return readDir(path, pattern, ReadFiles);
}

DirTools::Names DirTools::getSubDirs(const std::string& path, const std::string& pattern) {
    return readDir(path, pattern, ReadSubDirs);
}

bool DirTools::isEmpty(const std::string& path) {
    return readDir(path).empty();
}

unsigned long long DirTools::getSize(const std::string& path) {
    unsigned long long size = 0;
    const auto take = [&size](const TreeWalk& walk) {
        struct stat status {};
        if (walk.kind() == EntryKind::File &&
            fstatat(walk.dir(), walk.name(), &status, AT_SYMLINK_NOFOLLOW) == 0)
            size += static_cast<unsigned long long>(status.st_size);
    };
    walkTree(path, "getSize", take, [] {});
    return size;
}

FileTreeNode::Pointer DirTools::getFileTree(const std::string& path) {
    FileTreeNode::Pointer root = FileTreeNode::newDir(lastName(path));
    std::vector<FileTreeNode*> way = {root.get()};
    const auto take = [&way](const TreeWalk& walk) {
        if (walk.kind() == EntryKind::Directory)
            way.push_back(way.back()->addChildDir(walk.name()).get());
        else
            way.back()->addChildFile(walk.name());
    };
    walkTree(path, "getFileTree", take, [&way] { way.pop_back(); });
    return root;
}

unsigned long long DirTools::getFreeByteSize(const std::string& path) {
    struct statvfs status {};
    const bool isDir = exists(path);
    if (!isDir || statvfs(path.c_str(), &status) != 0)
        checkAccess(isDir ? errno : ENOTDIR, path, "getFreeByteSize");
    return static_cast<unsigned long long>(status.f_bavail) * status.f_frsize;
}

std::string DirTools::getCurrentDir() {
    std::array<char, PATH_MAX> path{};
    if (getcwd(path.data(), path.size()) == nullptr) checkAccess(errno, ".", "getCurrentDir");
    return path.data();
}

void DirTools::setCurrentDir(const std::string& path) {
    checkAccess(chdir(systemName(path).c_str()) == 0 ? 0 : errno, path, "setCurrentDir");
}

void DirTools::createDir(const std::string& path) {
    requireParameter(path, "path", "createDir");
    if (mkdir(systemName(path).c_str(), allPermissions) != 0)
        throw made<CreateDir_Failed>(messages::createDirFailed, here(), path, "createDir");
}

void DirTools::ensureParentExists(const std::string& path) {
    requireParameter(path, "path", "ensureParentExists");
    if (systemName(path).empty())
        throw made<EnsureParent_InvalidPath>(messages::ensureParentInvalidPath, here(), path,
                                             std::string(messages::isNotDir));
    const std::size_t end = path.rfind('/');
    if (end == std::string::npos || exists(path.substr(0, end + 1))) return;
    for (std::size_t slash = path.find('/', 1); slash <= end; slash = path.find('/', slash + 1)) {
        const std::string parent = path.substr(0, slash);
        if (exists(parent)) continue;
        if (FileTools::exists(parent))
            throw made<EnsureParent_InvalidPath>(messages::ensureParentInvalidPath, here(), parent,
                                                 std::string(messages::isNotDir));
        // Somebody else may make it at the same time.
        if (mkdir(parent.c_str(), allPermissions) != 0 && !exists(parent))
            throw made<CreateDir_Failed>(messages::createDirFailed, here(), parent,
                                         "ensureParentExists");
    }
}

void DirTools::clear(const std::string& path, int flags) {
    requireParameter(path, "path", "clear");
    EntryKind kind = EntryKind::Other;
    const DirPlace place = placeOf(path, "clear", kind);
    checkAccess(kind == EntryKind::Directory ? 0 : ENOTDIR, path, "clear");
    Descriptor dir = TarvikCorelib::openDir(place.dir.get(), place.name.c_str(), hasForce(flags));
    checkAccess(dir.isOpen() ? 0 : errno, path, "clear");
    const WalkFailures failures = TarvikCorelib::removeContents(std::move(dir), hasForce(flags));
    if (failures.count > 0)
        throw made<Clear_Failed>(messages::clearFailed, here(), path, failures.count);
}

void DirTools::remove(const std::string& path, int flags) {
    requireParameter(path, "path", "remove");
    EntryKind kind = EntryKind::Other;
    const DirPlace place = placeOf(path, "remove", kind);
    const bool removable = kind == EntryKind::Directory || kind == EntryKind::Link;
    checkAccess(removable ? 0 : ENOTDIR, path, "remove");
    const int error = removePlace(place, kind, flags);
    if (error == 0) return;
    if (error == ENOTEMPTY && (flags & RemoveRecursive) == 0)
        throw made<Remove_DirNotEmpty>(messages::removeDirNotEmpty, here(), path, "remove");
    if (error == EACCES && !hasForce(flags)) checkAccess(error, path, "remove");
    throw made<Remove_Failed>(messages::removeFailed, here(), path);
}

std::vector<std::string> DirTools::getPatterns(const std::string& pattern) {
    const bool isBlank = pattern.find_first_not_of(" \t") == std::string::npos;
    return {isBlank ? "*" : pattern};
}

bool DirTools::includedByPattern(const std::string& name,
                                 const std::vector<std::string>& patterns) {
    return std::any_of(patterns.begin(), patterns.end(), [&name](const std::string& pattern) {
        return TarvikCorelib::GlobMatcher::match(name, pattern);
    });
}

}  // namespace TarvikFilelib
