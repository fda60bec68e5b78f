#include "libraries/corelib/source/system/DirWalk.h"

#include "libraries/corelib/source/system/FileNames.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <string_view>
#include <utility>

namespace TarvikCorelib {

namespace {

constexpr mode_t ownerBits = S_IRUSR | S_IWUSR | S_IXUSR;

struct DirectoryCloser {
    void operator()(DIR* directory) const { closedir(directory); }
};
using Directory = std::unique_ptr<DIR, DirectoryCloser>;

EntryKind kindOfMode(mode_t mode) {
    if (S_ISREG(mode)) return EntryKind::File;
    if (S_ISDIR(mode)) return EntryKind::Directory;
    return S_ISLNK(mode) ? EntryKind::Link : EntryKind::Other;
}

// Most file systems give the kind with the name.
int kindOfEntry(int dir, unsigned char type, const char* name, EntryKind& kind) {
    if (type == DT_UNKNOWN) return kindOf(dir, name, kind);
    kind = kindOfMode(static_cast<mode_t>(DTTOIF(type)));
    return 0;
}

int appendNames(DIR* directory, std::string& names) {
    errno = 0;
    while (const dirent* entry = readdir(directory)) {
        const std::string_view name = static_cast<const char*>(entry->d_name);
        EntryKind kind = EntryKind::Other;
        if (name != "." && name != ".." &&
            kindOfEntry(dirfd(directory), entry->d_type, name.data(), kind) == 0) {
            names += static_cast<char>(kind);
            names += name;
            names += '\0';
        }
        errno = 0;  // A failure sets it, the end of the directory does not.
    }
    return errno;
}

// Appends the kind, the name and a NUL for each entry; nothing on failure. The stream gets a
// descriptor of its own, since it closes it.
int readNames(int dir, std::string& names) {
    Descriptor own(fcntl(dir, F_DUPFD_CLOEXEC, 0));
    if (!own.isOpen()) return errno;
    const Directory directory(fdopendir(own.get()));
    if (!directory) return errno;
    [[maybe_unused]] const int taken = own.release();
    rewinddir(directory.get());  // The position is shared with `dir`, which may have been read.
    const std::size_t size = names.size();
    const int error = appendNames(directory.get(), names);
    if (error != 0) names.resize(size);
    return error;
}

// A directory that could not be read may still be empty. If it is not, the reason is the one to
// tell.
int unlinkEntry(int dir, const char* name, bool directory, int unread) {
    if (unlinkat(dir, name, directory ? AT_REMOVEDIR : 0) == 0 || errno == ENOENT) return 0;
    return unread != 0 && errno == ENOTEMPTY ? unread : errno;
}

}  // namespace

int kindOf(int dir, const char* name, EntryKind& kind) {
    struct stat status {};
    if (fstatat(dir, name, &status, AT_SYMLINK_NOFOLLOW) != 0) return errno;
    kind = kindOfMode(status.st_mode);
    return 0;
}

int openPlace(const std::string& path, DirPlace& place) {
    if (systemName(path).empty()) return ENOENT;
    const std::size_t last = path.find_last_not_of('/');
    if (last == std::string::npos) return EINVAL;
    const std::string whole = path.substr(0, last + 1);
    const std::size_t slash = whole.rfind('/');
    place.name = whole.substr(slash + 1);
    if (place.name == "." || place.name == "..") return EINVAL;
    const std::string parent = slash == std::string::npos ? "." : whole.substr(0, slash + 1);
    place.dir = Descriptor(open(parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    return place.dir.isOpen() ? 0 : errno;
}

Descriptor openDir(int parent, const char* name, bool widen) {
    const auto open = [parent, name] {
        return Descriptor(openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    };
    Descriptor dir = open();
    if (dir.isOpen() || errno != EACCES || !widen) return dir;
    struct stat status {};
    // The name is no link when its mode is changed.
    if (fstatat(parent, name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(status.st_mode) &&
        fchmodat(parent, name, status.st_mode | ownerBits, AT_SYMLINK_NOFOLLOW) == 0)
        return open();
    errno = EACCES;
    return dir;
}

int listDir(int dir, const TakeEntry& take) {
    std::string names;
    if (const int error = readNames(dir, names); error != 0) return error;
    for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1)
        take(names.data() + at + 1, static_cast<EntryKind>(names[at]));
    return 0;
}

DirChain::DirChain(Descriptor first, bool widen) : widen(widen) {
    push(std::move(first));
}

int DirChain::push(Descriptor dir) {
    struct stat status {};
    if (fstat(dir.get(), &status) != 0) {
        if (!levels.empty()) return errno;
        dir.close();  // There must be a first one. All that is asked of this one fails.
    }
    if (widen && (status.st_mode & ownerBits) != ownerBits) [[maybe_unused]]
        const int tried = fchmod(dir.get(), status.st_mode | ownerBits);
    levels.push_back({std::move(dir), FileIdentity(status)});
    const std::size_t depth = levels.size();
    // The first one stays open, since callers may use it.
    if (depth > KeptOpen + 1) levels[depth - KeptOpen].dir.close();
    return 0;
}

int DirChain::enter(const char* name) {
    Descriptor dir = openDir(get(), name, widen);
    return dir.isOpen() ? push(std::move(dir)) : errno;
}

int DirChain::leave() {
    const Level left = std::move(levels.back());
    levels.pop_back();
    Level& current = levels.back();
    if (current.dir.isOpen()) return 0;
    Descriptor dir = openDir(left.dir.get(), "..");
    struct stat status {};
    if (!dir.isOpen() || fstat(dir.get(), &status) != 0) return errno;
    if (FileIdentity(status) != current.identity) return ESTALE;
    current.dir = std::move(dir);
    return 0;
}

TreeWalk::TreeWalk(Descriptor first, bool widen) : chain(std::move(first), widen) {
    lastError = list();
}

int TreeWalk::list() {
    const std::size_t begin = pending.size();
    const int error = readNames(chain.get(), pending);
    begins.push_back(begin);
    return error;
}

bool TreeWalk::next() {
    if (lastError != 0) return false;
    if (!entered) pending.resize(top);
    entered = false;
    leaving = pending.size() == begins.back();
    if (leaving) {
        if (begins.size() == 1) return false;
        begins.pop_back();
        lastError = chain.leave();
        if (lastError != 0) return false;
    }
    // The entry before it ends with a NUL.
    top = pending.rfind('\0', pending.size() - 2) + 1;
    return true;
}

int TreeWalk::enter() {
    if (const int error = chain.enter(name()); error != 0) return error;
    const int error = list();
    entered = error == 0;
    if (entered) return 0;
    begins.pop_back();
    lastError = chain.leave();
    return error;
}

std::string TreeWalk::path() const {
    std::string result;
    for (std::size_t level = 1; level < begins.size(); ++level) {
        // The directory that was entered is the last name of its level.
        const std::size_t before = begins[level] - 2;
        result += pending.data() + pending.rfind('\0', before) + 2;
        result += '/';
    }
    return result + name();
}

WalkFailures removeContents(Descriptor dir, bool widen) {
    WalkFailures failures;
    TreeWalk walk(std::move(dir), widen);
    while (walk.next()) {
        const bool directory = walk.kind() == EntryKind::Directory;
        int unread = 0;
        if (directory && !walk.isLeaving()) {
            unread = walk.enter();
            if (unread == 0) continue;
        }
        const int error = unlinkEntry(walk.dir(), walk.name(), directory, unread);
        const bool onlyLeft = walk.isLeaving() && error == ENOTEMPTY && failures.count > 0;
        if (!onlyLeft) failures.add(error);
    }
    failures.add(walk.error());
    return failures;
}

WalkFailures removeTree(int parent, const char* name, bool widen) {
    WalkFailures failures;
    EntryKind kind = EntryKind::Other;
    failures.add(kindOf(parent, name, kind));
    if (failures.count > 0) return failures;
    const bool directory = kind == EntryKind::Directory;
    int unread = 0;
    if (directory) {
        Descriptor dir = openDir(parent, name, widen);
        unread = dir.isOpen() ? 0 : errno;
        if (dir.isOpen()) failures = removeContents(std::move(dir), widen);
    }
    if (failures.count == 0) failures.add(unlinkEntry(parent, name, directory, unread));
    return failures;
}

}  // namespace TarvikCorelib
