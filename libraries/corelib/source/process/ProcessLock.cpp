#include "libraries/corelib/source/process/ProcessLock.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/process/CoreSleep.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace TarvikCorelib {

namespace {

constexpr unsigned int roundMilliseconds = 10;

// Write permission is what a lock needs, and nobody has anything to read in it.
constexpr mode_t fileMode = 0622;
constexpr mode_t permissionBits = 07777;

// To open whatever stands there must not wait for the reader of a FIFO, nor take a terminal over.
constexpr int openFlags = O_WRONLY | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;

int openLockFile(const char* path) {
    const int created = open(path, openFlags | O_CREAT, fileMode);
    // In a directory like /tmp the kernel may refuse to create what another user has created.
    return created < 0 && errno == EACCES ? open(path, openFlags) : created;
}

// A second name could be that of any file of this user. No name is no danger: the file has just
// been removed, which is noticed when it is locked.
bool mayUse(const struct stat& file) {
    return S_ISREG(file.st_mode) && file.st_nlink <= 1;
}

// A lock file is empty. What has content, or is another user's, may have been moved here, and its
// mode must do: to open it up would give it away.
bool mayChange(const struct stat& file) {
    return file.st_uid == geteuid() && file.st_size == 0 && file.st_nlink == 1;
}

// The umask has taken bits away if the file is new.
bool ensureMode(int fd, const char* path, const struct stat& file) {
    return (file.st_mode & permissionBits) == fileMode ||
           (mayChange(file) && fchmod(fd, fileMode) == 0) || access(path, W_OK) == 0;
}

}  // namespace

ProcessLock::~ProcessLock() {
    if (owner == getpid()) {
        nesting = 1;
        unlock();
    }
    assertFDescClosed();
}

void ProcessLock::setName(const std::string& newName) {
    if (!name.empty()) throw AlreadyHaveName("", here());
    name = newName;
}

bool ProcessLock::lockNow(bool wait) {
    if (!initialised) initialize();
    if (owner == getpid()) {
        ++nesting;
        return true;
    }
    if (!lockFile(wait)) return false;
    owner = getpid();
    nesting = 1;  // In a child of `fork` there may still be the parent's.
    return true;
}

bool ProcessLock::lockWithin(unsigned long long milliseconds) {
    if (milliseconds == 0) return lockNow(true);
    for (unsigned long long rounds = milliseconds / roundMilliseconds + 1; rounds > 0; --rounds) {
        if (lockNow(false)) return true;
        core_sleep(roundMilliseconds);
    }
    return false;
}

bool ProcessLock::unlock() {
    const std::int32_t process = getpid();
    if (!initialised || owner != process) return false;
    if (--nesting > 0) return true;
    owner = 0;
    if (lockf(fd, F_ULOCK, 1) != 0) {
        owner = process;
        nesting = 1;
        return false;
    }
    assertFDescClosed();
    return true;
}

bool ProcessLock::reEnforce(pid_t pid) {
    if (owner != pid) return false;
    ++nesting;
    return true;
}

void ProcessLock::initialize() {
    if (name.empty()) throw HaveNoName("", here());
    for (char& c : name)
        if (c == '/' || c == ':' || c == '\\') c = '_';
    name.insert(0, "/tmp/lock_");
    fdOpen = false;
    initialised = true;
}

// One more try is enough when somebody clears /tmp. The limit is for somebody who replaces the file
// each time it is opened: they may keep the lock from us, but not hang the process.
bool ProcessLock::lockFile(bool wait) {
    constexpr int maximumTries = 100;
    for (int tries = 0; tries < maximumTries; ++tries) {
        if (!assertFDescOpen() || !unixLock(wait, fd)) return false;
        if (isAtPath()) return true;
        assertFDescClosed();
    }
    return false;
}

bool ProcessLock::unixLock(bool wait, int fd) {
    while (lockf(fd, wait ? F_LOCK : F_TLOCK, 1) != 0)
        if (errno != EINTR) return false;
    return true;
}

bool ProcessLock::assertFDescOpen() {
    if (fdOpen) return true;
    fd = openLockFile(name.c_str());
    if (fd < 0) return false;
    fdOpen = true;
    struct stat file {};
    if (fstat(fd, &file) == 0 && mayUse(file) && ensureMode(fd, name.c_str(), file)) return true;
    assertFDescClosed();
    return false;
}

void ProcessLock::assertFDescClosed() {
    if (fdOpen) close(fd);
    fdOpen = false;
}

bool ProcessLock::isAtPath() const {
    struct stat locked {};
    struct stat found {};
    return fstat(fd, &locked) == 0 && lstat(name.c_str(), &found) == 0 &&
           locked.st_dev == found.st_dev && locked.st_ino == found.st_ino;
}

}  // namespace TarvikCorelib
