/// A re-entrant lock between processes.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"

#include <sys/types.h>

#include <concepts>
#include <cstdint>
#include <string>
#include <utility>

namespace TarvikCorelib {

/// Processes that use the same name exclude each other by a `lockf` lock on a file in /tmp. The
/// kernel frees it when its holder dies, so no lock is left behind. The file itself stays: removing
/// it would race with a process that has just opened it. Others do clear /tmp, though, so a lock
/// counts only if its file still has its path; if not, it is taken again on the file that has.
///
/// Everybody may write to /tmp, so anything may stand at the path. A link is not followed, a FIFO
/// is not waited for, and what is not a plain file with one name is left as it is.
///
/// The owner is a process, not a thread: let one thread at a time use the object. A child made by
/// `fork` is not the owner and inherits no count.
/// Quirk: two objects with one name in one process do not exclude each other, and the one that
/// closes the file first frees the other's lock too. The kernel counts by process and file.
///
///     ProcessLock lock("spool");
///     if (!lock.lock(1000)) return;  // Another process has it.
///     lock.lock(true);               // true: counted, as this one is the owner
///     lock.unlock();                 // true: still locked
///     lock.unlock();                 // true: free
///     lock.unlock();                 // false
class ProcessLock {
public:
    using HaveNoName = NamedException<ProcessLock, "HaveNoName">;
    using AlreadyHaveName = NamedException<ProcessLock, "AlreadyHaveName">;
    /// For callers that cannot go on without the lock; `lock` itself returns false.
    using LockFailed = NamedException<ProcessLock, "LockFailed">;

    ProcessLock() = default;
    /// An empty name is none.
    explicit ProcessLock(std::string name) : name(std::move(name)) {}
    ProcessLock(const ProcessLock&) = delete;
    ProcessLock& operator=(const ProcessLock&) = delete;
    /// Gives up all of the owner's locks.
    virtual ~ProcessLock();

    /// Any text up to its first zero byte: "/", ":" and backslashes become "_" in the name of the
    /// file, so "a/b" and "a_b" are one lock. With more than 250 bytes the file cannot be used.
    /// Throws `AlreadyHaveName` if there is a name.
    void setName(const std::string& newName);

    /// Takes the lock and returns true; the owner counts one more. Without `wait` it returns false
    /// if another process has it; with it, only if the file cannot be used. Signals do not end the
    /// wait. Throws `HaveNoName`.
    template <std::same_as<bool> Flag>
    bool lock(Flag wait) {
        return lockNow(wait);
    }
    /// Tries at once and then every 10 milliseconds, and returns false 10 milliseconds after the
    /// last try, so `lock(100)` fails after 110. A file that cannot be used is tried again too. A
    /// negative number is no time at all: one try. Throws `HaveNoName`.
    /// Quirk: 0 waits for as long as it takes, as `lock(true)` does.
    template <std::integral Number>
    requires(!std::same_as<Number, bool>) bool lock(Number milliseconds) {
        return lockWithin(
            std::cmp_less(milliseconds, 0) ? 1 : static_cast<unsigned long long>(milliseconds));
    }
    /// Gives up one `lock`; the last one frees it. Returns false if this process is not the owner,
    /// or if the kernel refuses; then the lock is held as before.
    bool unlock();

    /// Counts one more `lock` if the process `pid` is the owner, else returns false.
    /// Quirk: 0 stands for nobody, so it is true for a free lock; the count is lost at the next
    /// `lock`. For the parent's id it is true in a child of `fork`, too.
    bool reEnforce(pid_t pid);

private:
    bool lockNow(bool wait);
    bool lockWithin(unsigned long long milliseconds);
    void initialize();
    /// Opens the file and locks it, until the locked file is the one at the path.
    bool lockFile(bool wait);
    static bool unixLock(bool wait, int fd);
    /// False if there is no file that may be used.
    bool assertFDescOpen();
    void assertFDescClosed();
    [[nodiscard]] bool isAtPath() const;

    std::string name;  ///< First the caller's, then the path of the file.
    bool initialised = false;
    std::int32_t owner = 0;  ///< A process id, 0 when free.
    std::int32_t nesting = 0;
    std::int32_t fd = -1;  ///< A child has it too; its close does not free the parent's lock.
    bool fdOpen = false;
};

}  // namespace TarvikCorelib
