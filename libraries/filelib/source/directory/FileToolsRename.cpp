// Names of files: given, numbered and taken away.

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/process/CoreSleep.h"
#include "libraries/corelib/source/system/FileReplacement.h"
#include "libraries/corelib/source/text/StringTools.h"
#include "libraries/filelib/source/directory/DirectoryMessages.h"
#include "libraries/filelib/source/directory/FileFailures.h"
#include "libraries/filelib/source/directory/FileTools.h"
#include "libraries/filelib/source/path/PathTools.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>

namespace TarvikFilelib {

using TarvikCorelib::Descriptor;
using TarvikCorelib::enumerationDigits;
using TarvikCorelib::errorOf;
using TarvikCorelib::Exception;
using TarvikCorelib::existingMask;
using TarvikCorelib::FileIdentity;
using TarvikCorelib::here;
using TarvikCorelib::made;

namespace {

constexpr mode_t permissionBits = 07777;

// As `remove` of the C library.
int removeEntry(const std::string& path) {
    const int error = errorOf(unlink(path.c_str()));
    return error == EISDIR || error == EPERM ? errorOf(rmdir(path.c_str())) == 0 ? 0 : error
                                             : error;
}

// Gives the owner all permissions as long as this object lives, unless the file is gone then. What
// has a second name, and what a link leads to, are not ours to open up.
class Widening {
public:
    explicit Widening(const std::string& path)
        : entry(open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC)) {
        struct stat found {};
        if (!entry.isOpen() || fstat(entry.get(), &found) != 0) return;
        if (!S_ISDIR(found.st_mode) && (!S_ISREG(found.st_mode) || found.st_nlink > 1)) return;
        old = found.st_mode & permissionBits;
        isWide = setMode(old | S_IRWXU);
    }
    Widening(const Widening&) = delete;
    Widening& operator=(const Widening&) = delete;
    ~Widening() {
        if (isWide) setMode(old);
    }

private:
    // By the descriptor: the path may lead elsewhere by now.
    bool setMode(mode_t mode) const {
        const std::string path = "/proc/self/fd/" + std::to_string(entry.get());
        return chmod(path.c_str(), mode) == 0;
    }

    Descriptor entry;
    mode_t old = 0;
    bool isWide = false;
};

[[noreturn]] void failRename(const std::string& from, const std::string& to, int error) {
    if (error == EEXIST) throwRefusal(error, to, "rename");
    throw made<FileTools::Rename_Failed>(messages::renameFailed, here(), from, to, error);
}

// Once more after a moment: another process may just hold the file.
template <class Rename>
int renameTwice(Rename rename) {
    constexpr unsigned int pauseMilliseconds = 50;
    const int error = rename();
    if (error == 0 || error == EEXIST || error == EXDEV) return error;
    TarvikCorelib::core_sleep(pauseMilliseconds);
    return rename();
}

void renameToFree(const std::string& from, const std::string& to) {
    const int error = renameTwice([&] { return TarvikCorelib::renameToNew(from, to); });
    if (error != 0) failRename(from, to, error);
}

// Straight over the target, so that there is one at any moment. Only for a file system that cannot
// do that it goes first.
void renameOver(const std::string& from, const std::string& to) {
    const auto over = [&] { return errorOf(std::rename(from.c_str(), to.c_str())); };
    int error = renameTwice(over);
    if (error == EEXIST) {
        FileTools::remove(to);
        error = renameTwice(over);
    }
    if (error != 0)
        throw made<FileTools::Rename_Failed>(messages::renameFailed, here(), from, to, error);
}

// A file from elsewhere stands beside the target first, for what fails there has touched nothing.
void renameFromElsewhere(const std::string& from, const std::string& to) {
    std::string intermediate = to + "._tmpmove_";
    if (FileTools::exists(intermediate))
        intermediate = FileTools::getNextEnumeration(intermediate, 0);
    const int error = TarvikCorelib::renameToNew(from, intermediate);
    if (error == ENAMETOOLONG) return renameOver(from, to);
    if (error != 0) failRename(from, to, error);
    try {
        renameOver(intermediate, to);
    } catch (const Exception&) {
        renameTwice([&] { return TarvikCorelib::renameToNew(intermediate, from); });
        throw;
    }
}

// Both exist, and one is to replace the other. If they are the same file, nothing may be replaced:
// a second name is just taken away, and a link to the target would lead to itself.
bool areOneFile(const std::string& from, const struct stat& source, const std::string& to) {
    if (TarvikCorelib::leadsThrough(from, to)) return true;
    struct stat target {};
    if (lstat(to.c_str(), &target) != 0 || FileIdentity(source) != FileIdentity(target))
        return false;
    FileTools::remove(from);
    return true;
}

void replace(const std::string& from, const struct stat& source, const std::string& to) {
    if (areOneFile(from, source, to)) return;
    if (TarvikCorelib::isSameDirectory(from, to))
        renameOver(from, to);
    else
        renameFromElsewhere(from, to);
}

// Against the current directory. Where that is too deep, the way from there may still be short.
std::string completed(const std::string& path) {
    std::string whole = PathTools::getComplete(path);
    return whole.size() < PATH_MAX ? whole : path;
}

void renameCompleted(const std::string& from, const std::string& to, int flags) {
    struct stat source {};
    if (lstat(from.c_str(), &source) != 0 || S_ISDIR(source.st_mode))
        throwRefusal(ENOENT, from, "rename");
    if (!FileTools::exists(to)) return renameToFree(from, to);
    switch (flags & existingMask) {
    case CopyOverwrite: return replace(from, source, to);
    case CopyEnumerate:
        return renameToFree(from, FileTools::getNextEnumeration(to, enumerationDigits));
    case CopySkipExisting:
        if (TarvikCorelib::isSameEntry(from, to)) return;
        [[fallthrough]];
    default: throwRefusal(EEXIST, to, "rename");
    }
}

}  // namespace

std::string FileTools::getNextEnumeration(const std::string& path, unsigned int digits) {
    if (!exists(path)) throwRefusal(ENOENT, path, "getNextEnumeration");
    const std::string front =
        PathTools::getBaseRemoved(path) + PathTools::getBaseWithoutSuffix(path);
    const std::string suffix = PathTools::getSuffix(path);
    const std::string end = suffix.empty() ? suffix : "." + suffix;
    std::string name = TarvikCorelib::freeNumberedName(front, end, exists, digits);
    if (name.empty())
        throw made<TooManyEnumeratedFiles>(messages::tooManyEnumeratedFiles, here(), path);
    return name;
}

void FileTools::rename(const std::string& from, const std::string& to, int flags) {
    constexpr auto operation = "rename";
    requireName(from, "path", operation);
    requireName(to, "target_path", operation);
    if (std::string blank = to; TarvikCorelib::StringTools::trimLeft(blank, true).empty())
        requireParameter(blank, "target_path", operation);
    renameCompleted(completed(from), completed(to), flags);
}

void FileTools::remove(const std::string& path, bool force) {
    constexpr int rounds = 2;
    constexpr unsigned int pauseMilliseconds = 25;
    requireName(path, "path", "remove");
    for (int round = 0; round < rounds; ++round) {
        const int error = removeEntry(path);
        if (error == 0) return;
        if (error == EACCES && !force) throwRefusal(error, path, "remove");
        const Widening widening(path);
        if (removeEntry(path) == 0) return;
        TarvikCorelib::core_sleep(pauseMilliseconds);
    }
    throw made<Remove_Failed>(messages::removeFailed, here(), path);
}

}  // namespace TarvikFilelib
