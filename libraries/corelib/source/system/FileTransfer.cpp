#include "libraries/corelib/source/system/FileTransfer.h"

#include "libraries/corelib/source/system/DirWalk.h"
#include "libraries/corelib/source/system/FileDirectories.h"
#include "libraries/corelib/source/system/FileNames.h"
#include "libraries/corelib/source/system/FilePathText.h"
#include "libraries/corelib/source/system/FileProperties.h"
#include "libraries/corelib/source/system/FileReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace TarvikCorelib {

namespace {

using Properties = FileProperties<char>;
using Directories = FileDirectories<char>;

constexpr mode_t permissionBits = 0777;

// Where the target is the source itself there is nothing to replace.
FileTarget chooseOther(const std::string& source, const std::string& target, int flags) {
    FileTarget chosen = chooseTarget(target, flags);
    if (chosen.mayReplace && isSameEntry(source, target)) return {};
    return chosen;
}

bool copyPlain(const std::string& source, const FileTarget& target, bool withMode) {
    Descriptor file;
    struct stat status {};
    FileReplacement replacement;
    if (openPlainFile(source, file, status) != 0 || isTemporaryOf(target.path, file.get()) ||
        replacement.open(target.path) != 0)
        return false;
    const mode_t mode = status.st_mode & permissionBits;
    if (withMode && fchmod(replacement.get(), mode) != 0) return false;
    return copyContent(file.get(), replacement.get()) == 0 &&
           replacement.commit(target.mayReplace) == 0;
}

bool isSameFile(const std::string& first, const std::string& second, int flags) {
    struct stat one {};
    struct stat other {};
    return fstatat(AT_FDCWD, first.c_str(), &one, flags) == 0 &&
           fstatat(AT_FDCWD, second.c_str(), &other, flags) == 0 &&
           FileIdentity(one) == FileIdentity(other);
}

// 0 or the system's error. Between two names of one file the system's `rename` does nothing, and a
// link in the place of what it leads to would lead to itself.
int renameTo(const std::string& source, const FileTarget& target) {
    if (!target.mayReplace) return renameToNew(source, target.path);
    if (leadsThrough(source, target.path)) return 0;
    const bool areNames = isSameFile(source, target.path, AT_SYMLINK_NOFOLLOW);
    const int result =
        areNames ? unlink(source.c_str()) : std::rename(source.c_str(), target.path.c_str());
    return result == 0 ? 0 : errno;
}

bool copyFile(const std::string& source, const std::string& target, int flags) {
    if (!Properties::isFile(source)) return false;
    const FileTarget chosen = chooseOther(source, target, flags);
    return chosen.path.empty() ? chosen.succeeds : copyPlain(source, chosen, false);
}

bool moveFile(const std::string& source, const std::string& target, int flags) {
    if (!Properties::exists(source)) return false;
    const bool isLink = Properties::isLink(source);
    if (Properties::isDir(source) && !isLink) return false;
    const FileTarget chosen = chooseOther(source, target, flags);
    if (chosen.path.empty()) return chosen.succeeds;
    const int error = renameTo(source, chosen);
    if (error != EXDEV || isLink) return error == 0;
    return copyPlain(source, chosen, true) && Directories::remove(source);
}

Descriptor openRoot(const std::string& path) {
    return Descriptor(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

// What exists and is merged into may be "replaced".
FileTarget chooseDir(const std::string& source, const std::string& target, int flags) {
    if ((flags & CopyMerge) != 0 && Properties::isDir(target)) {
        if (isSameFile(source, target, 0)) return {};
        return {.path = target, .mayReplace = true};
    }
    FileTarget chosen = chooseOther(source, target, flags);
    if (chosen.mayReplace) return {.path = {}, .succeeds = false};
    return chosen;
}

bool copyTree(const std::string& source, const FileTarget& target, int flags) {
    Descriptor from = openRoot(source);
    if (!from.isOpen()) return false;
    if (!target.mayReplace && !Directories::makeDir(target.path)) return false;
    Descriptor to = openRoot(target.path);
    const bool isCopied =
        to.isOpen() && TreeCopy(flags).copy(std::move(from), std::move(to)).count == 0;
    if (!isCopied && !target.mayReplace) Directories::removeDir(target.path, true);
    return isCopied;
}

// With "/" at the end; empty if the system cannot name it.
std::string realPath(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> name(realpath(path.c_str(), nullptr), std::free);
    return name ? std::string(name.get()) + "/" : std::string();
}

// Whether the source may go once it was copied. Nothing of the copy may be in it, and a merge into
// a directory around it may have written to the source itself.
bool areApart(const std::string& source, const FileTarget& target) {
    const std::string parent = FilePathText<char>::getParent(target.path);
    const std::string from = realPath(source);
    const std::string to = realPath(target.mayReplace ? target.path
                                    : parent.empty()  ? "."
                                                      : parent);
    if (from.empty() || to.empty() || to.starts_with(from)) return false;
    return !target.mayReplace || !from.starts_with(to);
}

bool copyDirectory(std::string source, std::string target, int flags) {
    FilePathText<char>::trimDir(source);
    FilePathText<char>::trimDir(target);
    if (!Properties::isDir(source)) return false;
    const FileTarget chosen = chooseDir(source, target, flags);
    return chosen.path.empty() ? chosen.succeeds : copyTree(source, chosen, flags);
}

bool moveDirectory(std::string source, std::string target, int flags) {
    FilePathText<char>::trimDir(source);
    FilePathText<char>::trimDir(target);
    if (!Properties::isDir(source) || Properties::isLink(source)) return false;
    const FileTarget chosen = chooseDir(source, target, flags);
    if (chosen.path.empty()) return chosen.succeeds;
    if (!chosen.mayReplace) {
        const int error = renameToNew(source, chosen.path);
        if (error != EXDEV) return error == 0;
    }
    if (!areApart(source, chosen) || !copyTree(source, chosen, flags)) return false;
    const bool mayHaveSkipped = (flags & existingMask) == CopySkipExisting;
    return mayHaveSkipped || Directories::removeDir(source, true);
}

}  // namespace

template <class Char>
bool FileTransfer<Char>::copy(const Text& source, const Text& target, int flags) {
    return copyFile(systemName(source), systemName(target), flags);
}

template <class Char>
bool FileTransfer<Char>::move(const Text& source, const Text& target, int flags) {
    return moveFile(systemName(source), systemName(target), flags);
}

template <class Char>
bool FileTransfer<Char>::copyDir(const Text& source, const Text& target, int flags) {
    return copyDirectory(systemName(source), systemName(target), flags);
}

template <class Char>
bool FileTransfer<Char>::moveDir(const Text& source, const Text& target, int flags) {
    return moveDirectory(systemName(source), systemName(target), flags);
}

template class FileTransfer<char>;
template class FileTransfer<wchar_t>;

}  // namespace TarvikCorelib
