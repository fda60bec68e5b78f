#include "libraries/corelib/source/messaging/ThreadLock.h"

#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/test/messaging/MessagingTools.h"

#include <gtest/gtest.h>

#include <pthread.h>
#include <unistd.h>

namespace TarvikCorelib {
namespace {

using tarvik_test::onAnotherThread;

// The listener uses a lock itself, and throws: neither must show.
TEST(ThreadLockTest, EachOperationLogsOneChainWhateverASubscriberDoes) {
    ThreadLock lock;
    ThreadLock listeners;
    tarvik_test::LogListener log("ThreadLock::");
    log.action = [&] {
        EXPECT_TRUE(listeners.lock(true) && listeners.unlock());
        throw 1;
    };
    const std::string address = testing::PrintToString(static_cast<const void*>(&lock));
    const auto logged = [&](bool result) {
        std::string all = (result ? "true\n" : "false\n") + log.take();
        StringTools::substitute(all, address, "#");
        return StringTools::substitute(all, std::to_string(gettid()), "ME");
    };
    const std::string locking = "8 lock: Going to lock # (non-blocking)\n";
    const std::string failed = "8 lock: Failed to lock - lock belongs to thread ME\n";
    const std::string unlocking = "8 unlock: Going to unlock #\n";
    const std::string refused = "8 unlock: Cannot unlock - locked by other thread ";
    const std::string nested =
        "8 unlock: Nested locking (now at level 1 - actual unlock at zero)\n";
    const auto tryTwice = [&] { return lock.lock(29); };
    const auto unlock = [&] { return lock.unlock(); };
    EXPECT_EQ(logged(unlock()), "false\n" + unlocking + refused + "0\n");
    EXPECT_EQ(logged(lock.lock(true)),
              "true\n8 lock: Going to lock # (blocking)\n8 lock: Locked\n");
    EXPECT_EQ(logged(tryTwice()), "true\n" + locking + "8 lock: Already locked\n");
    EXPECT_EQ(logged(onAnotherThread(tryTwice)), "false\n" + locking + failed + failed);
    EXPECT_EQ(logged(onAnotherThread(unlock)), "false\n" + unlocking + refused + "ME\n");
    EXPECT_EQ(logged(unlock()), "true\n" + unlocking + nested);
    EXPECT_EQ(logged(unlock()), "true\n" + unlocking + "8 unlock: Unlocked\n");
}

// Names the private mutex, for the failures that a lock does not meet by itself.
template <pthread_mutex_t ThreadLock::*Member>
struct MutexAccess {
    friend pthread_mutex_t& mutexOf(ThreadLock& lock) { return lock.*Member; }
};
template struct MutexAccess<&ThreadLock::mutex>;
pthread_mutex_t& mutexOf(ThreadLock& lock);

TEST(ThreadLockTest, AMutexThatFailsIsLoggedAtLevelDebug) {
    ThreadLock lock;
    EXPECT_TRUE(lock.lock(true));
    mutexOf(lock) = PTHREAD_ERRORCHECK_MUTEX_INITIALIZER_NP;  // Nobody holds this one.
    tarvik_test::LogListener log("ThreadLock::");
    EXPECT_FALSE(lock.unlock());
    EXPECT_TRUE(log.take().ends_with("\n6 unlock: FAILED TO UNLOCK\n"));
    pthread_mutex_lock(&mutexOf(lock));
    EXPECT_FALSE(lock.lock(true));
    EXPECT_TRUE(log.take().ends_with("\n6 lock: FAILED TO LOCK\n"));
    pthread_mutex_unlock(&mutexOf(lock));
}

TEST(ThreadLockTest, ATimeBelowTenMillisecondsFailsEvenForAFreeLockAndForItsOwner) {
    ThreadLock lock;
    for (const char* const state : {"free", "held"}) {
        EXPECT_FALSE(lock.lock(0) || lock.lock(9) || lock.lock(-10)) << state;
        EXPECT_TRUE(lock.lock(1LL << 32)) << state;  // Is not cut to 0.
    }
    EXPECT_TRUE(lock.unlock() && lock.unlock());
}

TEST(ThreadLockTest, AForkedChildIsNoOwner) {
    ThreadLock lock;
    EXPECT_TRUE(lock.lock(true));
    EXPECT_EXIT(_exit(lock.lock(false) || lock.unlock()), testing::ExitedWithCode(0), "");
    EXPECT_TRUE(lock.unlock());
}

extern ThreadLock usedEarly;
const bool wasUsedEarly = usedEarly.lock(true) && usedEarly.unlock();
constinit ThreadLock usedEarly;

TEST(ThreadLockTest, AStaticLockWorksAheadOfItsConstruction) {
    EXPECT_TRUE(wasUsedEarly && usedEarly.lock(false) && usedEarly.unlock());
}

TEST(ThreadLockTest, ManyFirstUsersOfALockKeepEachOtherOut) {
    for (int repeat = 0; repeat < 100; ++repeat) {
        ThreadLock lock;
        int sum = 0;
        tarvik_test::onThreads(4, [&](int /*number*/) {
            for (int round = 0; round < 100; ++round) {
                lock.lock(true);
                ++sum;
                lock.unlock();
            }
        });
        EXPECT_EQ(sum, 400);
    }
}

}  // namespace
}  // namespace TarvikCorelib
