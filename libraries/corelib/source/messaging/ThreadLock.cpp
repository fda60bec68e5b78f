#include "libraries/corelib/source/messaging/ThreadLock.h"

#include "libraries/corelib/source/diagnostics/NoDestructor.h"
#include "libraries/corelib/source/messaging/Logger.h"
#include "libraries/corelib/source/messaging/ThreadLockMessages.h"
#include "libraries/corelib/source/process/CoreSleep.h"

#include <array>
#include <charconv>
#include <ctime>
#include <string>

namespace TarvikCorelib {

namespace {

constexpr unsigned int roundMilliseconds = 10;

// Mutexes are made one at a time, so that several first users of a lock get the same one.
constinit pthread_mutex_t makingLock = PTHREAD_MUTEX_INITIALIZER;

// A record needs locks itself: those of the message system, and that under which the logger is
// made. While this is set, locks of this thread log nothing; otherwise one operation would log for
// ever.
constinit thread_local bool isLogging = false;

// Made by the first record and never destroyed, since locks are used until the process is gone.
Logger& lockLogger() {
    static NoDestructor<Logger> logger;
    return *logger;
}

std::string shown(const ThreadLock* lock) {
    std::array<char, 2 * sizeof(std::uintptr_t)> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(),
                                       reinterpret_cast<std::uintptr_t>(lock), 16);
    return "0x" + std::string(digits.data(), written.ptr);
}

unsigned long long shown(std::uint64_t thread) {
    return thread;
}

int shown(std::int32_t number) {
    return number;
}

const char* shown(const char* text) {
    return text;
}

template <std::size_t Holes, class... Values>
void logRecord(Logger::Level level, const Template<Holes>& text, Values... values) {
    isLogging = true;
    try {
        const Logger& logger = lockLogger();
        if (logger.isHeard(level))
            logger.log(level, text.view(), valuesFor(text, shown(values)...));
    } catch (...) {
        // Whatever a subscriber does: the lock itself has not failed.
    }
    isLogging = false;
}

// The limit of all loggers first: below it the logger is not even made.
template <std::size_t Holes, class... Values>
void trace(Logger::Level level, const Template<Holes>& text, Values... values) {
    if (level <= Logger::MainLevel && !isLogging) logRecord(level, text, values...);
}

// What `gettid` returns, without a system call, which would take thirty times as long as the mutex.
// The C library keeps the id of each thread, and corrects it behind a `fork`; the kernel's number
// of a thread's clock holds the id, inverted, above three bits for the kind of the clock.
std::uint64_t thisThread() {
    constexpr int kindBits = 3;
    clockid_t clock = 0;
    pthread_getcpuclockid(pthread_self(), &clock);
    const int id = ~(clock >> kindBits);
    return static_cast<std::uint64_t>(id);
}

}  // namespace

ThreadLock::~ThreadLock() {
    if (!isReady()) return;
    pthread_mutex_destroy(&mutex);
    pthread_mutexattr_destroy(&attributes);
}

bool ThreadLock::lockNow(bool wait) {
    trace(Logger::Flood, messages::goingToLock, this, wait ? "blocking" : "non-blocking");
    if (!isReady()) initialize();
    return takeOrNest(wait);
}

bool ThreadLock::lockWithin(unsigned int milliseconds) {
    trace(Logger::Flood, messages::goingToLock, this, "non-blocking");
    if (!isReady()) initialize();
    for (unsigned int rounds = milliseconds / roundMilliseconds; rounds > 0; --rounds) {
        if (takeOrNest(false)) return true;
        core_sleep(roundMilliseconds);
    }
    return false;
}

bool ThreadLock::unlock() {
    trace(Logger::Flood, messages::goingToUnlock, this);
    if (!ensureHaveLock()) return false;
    return doNestedUnlocking() || doUnlock();
}

void ThreadLock::initialize() {
    pthread_mutex_lock(&makingLock);
    if (!isReady()) {
        pthread_mutexattr_init(&attributes);
        pthread_mutex_init(&mutex, &attributes);
        initialised.store(true, std::memory_order_release);
    }
    pthread_mutex_unlock(&makingLock);
}

bool ThreadLock::takeOrNest(bool wait) {
    const std::uint64_t me = thisThread();
    const std::uint64_t holder = getOwner();
    if (holder == me) return doNestedLocking();
    if (holder != 0 && !wait) {
        trace(Logger::Flood, messages::lockBelongsToThread, holder);
        return false;
    }
    return doLock(wait, me);
}

bool ThreadLock::doLock(bool wait, std::uint64_t me) {
    if ((wait ? pthread_mutex_lock(&mutex) : pthread_mutex_trylock(&mutex)) != 0) {
        trace(Logger::Debug, messages::failedToLock);
        return false;
    }
    owner.store(me, std::memory_order_relaxed);
    nesting = 1;
    trace(Logger::Flood, messages::locked);
    return true;
}

// The owner is gone before the mutex is free: behind that, another thread may be the owner.
bool ThreadLock::doUnlock() {
    owner.store(0, std::memory_order_relaxed);
    if (pthread_mutex_unlock(&mutex) != 0) {
        trace(Logger::Debug, messages::failedToUnlock);
        return false;
    }
    trace(Logger::Flood, messages::unlocked);
    return true;
}

bool ThreadLock::doNestedLocking() {
    ++nesting;
    trace(Logger::Flood, messages::alreadyLocked);
    return true;
}

bool ThreadLock::doNestedUnlocking() {
    if (--nesting == 0) return false;
    trace(Logger::Flood, messages::nestedLocking, nesting);
    return true;
}

bool ThreadLock::ensureHaveLock() const {
    const std::uint64_t holder = getOwner();
    if (holder == thisThread()) return true;
    trace(Logger::Flood, messages::lockedByOtherThread, holder);
    return false;
}

}  // namespace TarvikCorelib
