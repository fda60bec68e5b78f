#include "libraries/corelib/source/system/FileReplacement.h"

#include "libraries/corelib/source/system/FileNames.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdio>
#include <tuple>
#include <utility>
#include <vector>

namespace TarvikCorelib {

namespace {

// Until it has the mode of the old file, nobody else may read the new content.
constexpr mode_t privateMode = 0600;
constexpr mode_t permissionBits = 07777;

std::pair<std::string, std::string> splitPath(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return {".", path};
    return {slash == 0 ? "/" : path.substr(0, slash), path.substr(slash + 1)};
}

bool find(const std::string& path, struct stat& file) {
    return lstat(systemName(path).c_str(), &file) == 0;
}

// Owner and group as far as allowed. Rights that were another's must not become ours, so they are
// left out: a program that runs as its owner, and what the old group was allowed.
int takeOver(int file, const struct stat& old) {
    mode_t mode = old.st_mode & permissionBits;
    if (fchown(file, old.st_uid, old.st_gid) != 0) {
        mode &= ~static_cast<mode_t>(S_ISUID | S_ISGID);
        struct stat now {};
        const bool keepsGroup = fchown(file, static_cast<uid_t>(-1), old.st_gid) == 0 ||
                                (fstat(file, &now) == 0 && now.st_gid == old.st_gid);
        if (!keepsGroup) mode = (mode & ~static_cast<mode_t>(S_IRWXG)) | ((mode & S_IRWXO) << 3U);
    }
    return errorOf(fchmod(file, mode));
}

// Not all file systems know how to rename without replacing.
int renameWithin(int directory, const char* from, const char* to) {
    if (renameat2(directory, from, directory, to, RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    struct stat file {};
    if (fstatat(directory, to, &file, AT_SYMLINK_NOFOLLOW) == 0) return EEXIST;
    return errorOf(renameat(directory, from, directory, to));
}

}  // namespace

FileReplacement::~FileReplacement() {
    if (!made.empty() && isOurs()) unlinkat(directory.get(), made.c_str(), 0);
}

int FileReplacement::open(const std::string& target, mode_t newMode) {
    if (const int error = openDirectory(target); error != 0) return error;
    struct stat old {};
    const bool isThere = fstatat(directory.get(), base.c_str(), &old, AT_SYMLINK_NOFOLLOW) == 0;
    if (!isThere && errno != ENOENT) return errno;

    const bool keepsMode = isThere && S_ISREG(old.st_mode);
    int error = makeTemporary(keepsMode ? privateMode : newMode);
    if (error != 0 && !isThere) error = make(base, newMode);
    return error == 0 && keepsMode ? takeOver(file.get(), old) : error;
}

int FileReplacement::openNew(const std::string& target, mode_t newMode) {
    const int error = openDirectory(target);
    return error == 0 ? make(base, newMode) : error;
}

int FileReplacement::openDirectory(const std::string& target) {
    if (systemName(target).empty()) return ENOENT;
    std::string path;
    std::tie(path, base) = splitPath(target);
    if (base.empty()) return EISDIR;
    directory = Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // One that may not be read may still be written to.
    if (!directory.isOpen() && errno == EACCES)
        directory = Descriptor(::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    return directory.isOpen() ? 0 : errno;
}

int FileReplacement::makeTemporary(mode_t mode) {
    constexpr int maximumTries = 16;  // Against somebody who makes it again each time.
    const std::string temporary = temporaryName(base);
    int error = 0;
    for (int tries = 0; tries < maximumTries; ++tries) {
        if (unlinkat(directory.get(), temporary.c_str(), 0) != 0 && errno != ENOENT) return errno;
        error = make(temporary, mode);
        if (error != EEXIST) return error;
    }
    return EBUSY;
}

int FileReplacement::make(const std::string& name, mode_t mode) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    file = Descriptor(openat(directory.get(), name.c_str(), flags, mode));
    if (!file.isOpen()) return errno;
    struct stat opened {};
    if (fstat(file.get(), &opened) != 0) {
        const int error = errno;
        unlinkat(directory.get(), name.c_str(), 0);
        return error;
    }
    made = name;
    identity = FileIdentity(opened);
    return 0;
}

int FileReplacement::duplicate(Descriptor& copy) const {
    copy = Descriptor(fcntl(file.get(), F_DUPFD_CLOEXEC, 0));
    return copy.isOpen() ? 0 : errno;
}

bool FileReplacement::isOurs() const {
    struct stat found {};
    return fstatat(directory.get(), made.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0 &&
           FileIdentity(found) == identity;
}

// The content goes to the disk before the name does, for after a loss of power a name might lead to
// an empty file otherwise. The directory comes last, since the name lasts only from then on.
int FileReplacement::commit(bool mayReplace) {
    if (const int error = syncFile(file.get()); error != 0) return error;
    // While the file is open, nobody else's can have its identity.
    if (!isOurs()) return ESTALE;
    if (const int error = giveName(mayReplace); error != 0) return error;
    made.clear();

    const int closed = file.close();
    const int synced = syncFile(directory.get());
    return closed != 0 ? closed : synced;
}

int FileReplacement::keep() {
    if (const int error = file.close(); error != 0) return error;
    made.clear();
    return 0;
}

int FileReplacement::giveName(bool mayReplace) {
    if (made == base) return 0;
    const int at = directory.get();
    const int error = mayReplace ? errorOf(renameat(at, made.c_str(), at, base.c_str()))
                                 : renameWithin(at, made.c_str(), base.c_str());
    return error == ENOENT ? ESTALE : error;
}

std::string temporaryName(std::string_view name) {
    const std::string_view suffix = FileReplacement::TemporarySuffix;
    return std::string(name.substr(0, NAME_MAX - suffix.size())).append(suffix);
}

bool isTemporaryOf(const std::string& target, int file) {
    const auto [directory, base] = splitPath(target);
    struct stat opened {};
    struct stat temporary {};
    return fstat(file, &opened) == 0 && find(directory + "/" + temporaryName(base), temporary) &&
           FileIdentity(opened) == FileIdentity(temporary);
}

// A directory that may not be read is only a place here: EBADF.
int syncFile(int file) {
    const int error = errorOf(fsync(file));
    return error == EINVAL || error == EBADF ? 0 : error;
}

int openPlainFile(const std::string& path, Descriptor& file) {
    struct stat properties {};
    return openPlainFile(path, file, properties);
}

int openPlainFile(const std::string& path, Descriptor& file, struct stat& properties) {
    const auto check = [&properties](int result) {
        if (result != 0) return errno;
        if (S_ISDIR(properties.st_mode)) return EISDIR;
        return S_ISREG(properties.st_mode) ? 0 : EINVAL;
    };
    const std::string name = systemName(path);
    if (const int error = check(stat(name.c_str(), &properties)); error != 0) return error;
    file = Descriptor(::open(name.c_str(), O_RDONLY | openCautiously));
    if (!file.isOpen()) return errno;
    return check(fstat(file.get(), &properties));
}

int writeAll(int file, std::string_view content) {
    constexpr std::size_t largestPiece = std::size_t{1} << 30U;
    while (!content.empty()) {
        const ssize_t written = write(file, content.data(), std::min(content.size(), largestPiece));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        if (written == 0) return ENOSPC;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

int readSome(int file, char* buffer, std::size_t size, std::size_t& count) {
    count = 0;
    ssize_t got = 0;
    do
        got = read(file, buffer, size);
    while (got < 0 && errno == EINTR);
    if (got < 0) return errno;
    count = static_cast<std::size_t>(got);
    return 0;
}

int copyContent(int source, int target) {
    constexpr std::size_t blockSize = 256U << 10U;
    std::vector<char> block(blockSize);
    for (;;) {
        std::size_t count = 0;
        if (const int error = readSome(source, block.data(), block.size(), count); error != 0)
            return error;
        if (count == 0) return 0;
        if (const int error = writeAll(target, {block.data(), count}); error != 0) return error;
    }
}

int renameToNew(const std::string& from, const std::string& to) {
    return renameWithin(AT_FDCWD, systemName(from).c_str(), systemName(to).c_str());
}

bool isSameEntry(const std::string& first, const std::string& second) {
    struct stat one {};
    struct stat two {};
    if (!find(first, one) || !find(second, two) || FileIdentity(one) != FileIdentity(two))
        return false;
    return one.st_nlink == 1 ||
           (splitPath(first).second == splitPath(second).second && isSameDirectory(first, second));
}

bool leadsThrough(const std::string& path, const std::string& entry) {
    constexpr int maximumLinks = 40;  // As many as the system follows.
    std::array<char, PATH_MAX> text{};
    std::string current = path;
    for (int links = 0; links <= maximumLinks; ++links) {
        if (isSameEntry(current, entry)) return true;
        const ssize_t size = readlink(systemName(current).c_str(), text.data(), text.size());
        if (size <= 0) return false;
        std::string target(text.data(), static_cast<std::size_t>(size));
        if (target.front() != '/') target.insert(0, splitPath(current).first + "/");
        current = target.substr(0, target.find_last_not_of('/') + 1);
    }
    return false;
}

bool isSameDirectory(const std::string& first, const std::string& second) {
    struct stat one {};
    struct stat two {};
    return stat(systemName(splitPath(first).first).c_str(), &one) == 0 &&
           stat(systemName(splitPath(second).first).c_str(), &two) == 0 &&
           FileIdentity(one) == FileIdentity(two);
}

}  // namespace TarvikCorelib
