// What is there, and where a file is.

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/system/FileNames.h"
#include "libraries/corelib/source/text/StringSplitter.h"
#include "libraries/filelib/source/directory/DirectoryMessages.h"
#include "libraries/filelib/source/directory/FileFailures.h"
#include "libraries/filelib/source/directory/FileTools.h"
#include "libraries/filelib/source/path/PathTools.h"

#include <sys/stat.h>
#include <unistd.h>

namespace TarvikFilelib {

using TarvikCorelib::systemName;

namespace {

bool isFound(const std::string& path, int flags) {
    const bool isThere =
        (flags & FileTools::FindAny) != 0 ? FileTools::exists(path) : FileTools::isFile(path);
    return isThere && ((flags & FileTools::FindExecutable) == 0 || access(path.c_str(), X_OK) == 0);
}

}  // namespace

bool FileTools::exists(const std::string& path) {
    struct stat found {};
    return lstat(systemName(path).c_str(), &found) == 0;
}

bool FileTools::isFile(const std::string& path) {
    struct stat found {};
    return stat(systemName(path).c_str(), &found) == 0 && S_ISREG(found.st_mode);
}

bool FileTools::isLink(const std::string& path) {
    struct stat found {};
    return lstat(systemName(path).c_str(), &found) == 0 && S_ISLNK(found.st_mode);
}

long long FileTools::getByteSize(const std::string& path) {
    struct stat found {};
    return stat(systemName(path).c_str(), &found) == 0 ? found.st_size : 0;
}

FileTools::List FileTools::getSearchDirs(int flags, const List& dirs) {
    List found = dirs;
    std::string path;
    if ((flags & FindInPath) != 0 && TarvikCorelib::EnvTools::get("PATH", path))
        found.splice(found.end(), TarvikCorelib::StringSplitter::toList(path, ':'));
    found.remove("");
    return found;
}

std::string FileTools::findFile(const std::string& name, int flags, const List& dirs) {
    requireParameter(name, "name", "findFile");
    if (PathTools::haveRoot(name)) {
        if (isFound(name, flags)) return name;
    } else {
        for (const std::string& dir : getSearchDirs(flags, dirs)) {
            std::string path = PathTools::getComplete(name, dir);
            if (isFound(path, flags)) return path;
        }
    }
    throw TarvikCorelib::made<FileNotFound>(messages::fileNotFound, TarvikCorelib::here(), name);
}

std::string FileTools::findPath(const std::string& name, const List& dirs) {
    requireParameter(name, "name", "findPath");
    return findFile(name, FindAny, dirs);
}

std::string FileTools::findExePath(const std::string& name) {
    return findFile(name, FindInPath | FindExecutable, {});
}

}  // namespace TarvikFilelib
