#include "libraries/corelib/source/messaging/ThreadLock.h"

#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/test/messaging/MessagingTools.h"

#include <pthread.h>
#include <unistd.h>

namespace TarvikCorelib {
namespace {

using ThreadLockTest = MessagingTest;

// The listener uses a lock itself, and throws: neither must show.
TEST_F(ThreadLockTest, EachOperationLogsOneChainWhateverASubscriberDoes) {
    ThreadLock lock;
    ThreadLock listeners;
    listen("ThreadLock::");
    log.action = [&](const ImsMessage&) {
        EXPECT_TRUE(listeners.lock(true) && listeners.unlock());
        throw 1;
    };
    const auto tryTwice = [&] { return lock.lock(29); };
    const auto unlock = [&] { return lock.unlock(); };
    EXPECT_FALSE(unlock());
    EXPECT_TRUE(lock.lock(true) && tryTwice());
    EXPECT_FALSE(onAnotherThread(tryTwice) || onAnotherThread(unlock));
    EXPECT_TRUE(unlock() && unlock());
    StringTools::substitute(seen, testing::PrintToString(static_cast<const void*>(&lock)), "#");
    StringTools::substitute(seen, std::to_string(gettid()), "ME");
    const std::string failed = "debug8 lock: Failed to lock - lock belongs to thread ME\n";
    const std::string unlocking = "debug8 unlock: Going to unlock #\ndebug8 unlock: ";
    const std::string refused = unlocking + "Cannot unlock - locked by other thread ";
    EXPECT_EQ(seen, refused +
                        "0\ndebug8 lock: Going to lock # (blocking)\ndebug8 lock: Locked\n"
                        "debug8 lock: Going to lock # (non-blocking)\ndebug8 lock: Already locked\n"
                        "debug8 lock: Going to lock # (non-blocking)\n" +
                        failed + failed + refused + "ME\n" + unlocking +
                        "Nested locking (now at level 1 - actual unlock at zero)\n" + unlocking +
                        "Unlocked\n");
}

// Names the private mutex, for the failures that a lock does not meet by itself.
template <pthread_mutex_t ThreadLock::*Member>
struct MutexAccess {
    friend pthread_mutex_t& mutexOf(ThreadLock& lock) { return lock.*Member; }
};
template struct MutexAccess<&ThreadLock::mutex>;
pthread_mutex_t& mutexOf(ThreadLock& lock);

TEST_F(ThreadLockTest, AMutexThatFailsIsLoggedAtLevelDebug) {
    ThreadLock lock;
    EXPECT_TRUE(lock.lock(true));
    mutexOf(lock) = PTHREAD_ERRORCHECK_MUTEX_INITIALIZER_NP;  // Nobody holds this one.
    listen("ThreadLock::");
    EXPECT_FALSE(lock.unlock());
    EXPECT_TRUE(take().ends_with("\ndebug6 unlock: FAILED TO UNLOCK\n"));
    pthread_mutex_lock(&mutexOf(lock));
    EXPECT_FALSE(lock.lock(true));
    EXPECT_TRUE(take().ends_with("\ndebug6 lock: FAILED TO LOCK\n"));
    pthread_mutex_unlock(&mutexOf(lock));
}

TEST_F(ThreadLockTest, ATimeBelowTenMillisecondsFailsEvenForAFreeLockAndForItsOwner) {
    ThreadLock lock;
    for (const char* const state : {"free", "held"}) {
        EXPECT_FALSE(lock.lock(0) || lock.lock(9) || lock.lock(-10)) << state;
        EXPECT_TRUE(lock.lock(1LL << 32)) << state;  // Is not cut to 0.
    }
    EXPECT_TRUE(lock.unlock() && lock.unlock());
}

// The first user comes ahead of its construction.
extern ThreadLock usedEarly;
const bool wasUsedEarly = usedEarly.lock(true) && usedEarly.unlock();
constinit ThreadLock usedEarly;

TEST_F(ThreadLockTest, AForkedChildIsNoOwnerEvenOfAStaticLockThatWasUsedEarly) {
    EXPECT_TRUE(wasUsedEarly && usedEarly.lock(false));
    EXPECT_EXIT(_exit(usedEarly.lock(false) || usedEarly.unlock()), testing::ExitedWithCode(0), "");
    EXPECT_TRUE(usedEarly.unlock());
}

TEST_F(ThreadLockTest, ManyFirstUsersOfALockKeepEachOtherOut) {
    for (int repeat = 0; repeat < 100; ++repeat) {
        ThreadLock lock;
        int sum = 0;
        onThreads(4, 1000, [&](int /*number*/) {
            if (lock.lock(true)) ++sum;
            lock.unlock();
        });
        EXPECT_EQ(sum, 4000);
    }
}

}  // namespace
}  // namespace TarvikCorelib
