/// A re-entrant lock between the threads of a process.
#pragma once

#include <pthread.h>

#include <atomic>
#include <concepts>
#include <cstdint>
#include <utility>

namespace TarvikCorelib {

/// A plain mutex with an owner and a count, so that the thread that holds it may lock it again:
/// each `lock` needs an `unlock`, and the last one frees it.
///
/// A static lock may be used before any constructor ran: the constructor is `constexpr`, and the
/// mutex is made by the first `lock`. The thread's id is asked for each time, because a copy that
/// is kept would survive `fork` and name the parent's thread.
///
/// Each operation logs at level flood. Locks that are used while such a record is sent log nothing
/// themselves.
/// Quirk: "Locked" and "Going to unlock" are logged while the lock is held. So at that level a
/// subscriber that takes locks, by queueing a message for instance, may hang with another thread.
///
///     ThreadLock tableLock;  // A member, or a static.
///
///     const ThreadLockGuard guard(tableLock);  // To the end of the block.
///     tableLock.lock(false);                   // true: counted, as this thread is the owner
///     tableLock.unlock();                      // true: still locked
class ThreadLock {
public:
    constexpr ThreadLock() = default;
    ThreadLock(const ThreadLock&) = delete;
    ThreadLock& operator=(const ThreadLock&) = delete;
    /// The lock must be free.
    virtual ~ThreadLock();

    /// Takes the lock and returns true. Without `wait` it returns false if another thread has it;
    /// with it, only if the mutex itself fails.
    template <std::same_as<bool> Flag>
    bool lock(Flag wait) {
        return lockNow(wait);
    }
    /// Tries once every 10 milliseconds, as often as 10 goes into the number; false if none of the
    /// tries succeeds. Quirk: so below 10 it is false, even for a free lock and for the owner.
    template <std::integral Number>
    requires(!std::same_as<Number, bool>) bool lock(Number milliseconds) {
        return lockWithin(std::in_range<unsigned int>(milliseconds)
                              ? static_cast<unsigned int>(milliseconds)
                          : milliseconds > 0 ? ~0U
                                             : 0U);
    }
    /// Gives up one `lock`. Returns false if another thread has the lock or nobody, and where the
    /// mutex fails.
    bool unlock();

private:
    [[nodiscard]] bool isReady() const { return initialised.load(std::memory_order_acquire); }
    // Only compared with the caller's own id, which no other thread writes: so it needs no order.
    [[nodiscard]] std::uint64_t getOwner() const { return owner.load(std::memory_order_relaxed); }
    bool lockNow(bool wait);
    bool lockWithin(unsigned int milliseconds);
    void initialize();
    bool takeOrNest(bool wait);
    bool doLock(bool wait, std::uint64_t me);
    bool doUnlock();
    bool doNestedLocking();
    bool doNestedUnlocking();
    [[nodiscard]] bool ensureHaveLock() const;

    std::atomic<bool> initialised{false};
    std::atomic<std::uint64_t> owner{0};  ///< 0 when free.
    std::int32_t nesting = 0;             ///< The owner's.
    pthread_mutex_t mutex{};
    pthread_mutexattr_t attributes{};
};

/// Holds a lock as long as it lives.
class ThreadLockGuard {
public:
    explicit ThreadLockGuard(ThreadLock& lock) : lock(lock) { lock.lock(true); }
    ThreadLockGuard(const ThreadLockGuard&) = delete;
    ThreadLockGuard& operator=(const ThreadLockGuard&) = delete;
    ~ThreadLockGuard() { lock.unlock(); }

private:
    ThreadLock& lock;
};

}  // namespace TarvikCorelib
