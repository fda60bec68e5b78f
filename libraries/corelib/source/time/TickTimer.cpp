#include "libraries/corelib/source/time/TickTimer.h"

#include "libraries/corelib/source/process/CoreSleep.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/TimeArithmetic.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <limits>

namespace TarvikCorelib {

namespace {

constexpr unsigned long long nanosecondsPerMillisecond = 1'000'000;
constexpr unsigned long long nanosecondsPerSecond = 1'000'000'000;
// Some 19 years, so that a tick soon after the start of the host is far from 0 as well.
constexpr unsigned long long tickOfClockStart = 604'195'200'000 * nanosecondsPerMillisecond;
constexpr std::uint32_t sleepStep = 10;  // Milliseconds.

constexpr unsigned long long lastTick = std::numeric_limits<unsigned long long>::max();
constexpr clockid_t noClock = -1;

// These two stop at the ends of the type; ticks and milliseconds use the whole unsigned range.
unsigned long long later(unsigned long long from, unsigned long long amount) {
    return from + std::min(amount, std::numeric_limits<unsigned long long>::max() - from);
}

unsigned long long earlier(unsigned long long from, unsigned long long amount) {
    return from - std::min(amount, from);
}

clockid_t firstWorkingClock() {
    timespec present{};
    for (const clockid_t clock : {CLOCK_MONOTONIC, CLOCK_REALTIME})
        if (clock_gettime(clock, &present) == 0) return clock;
    return noClock;
}

}  // namespace

constinit unsigned long long TickTimer::TICKS_PER_SEC = nanosecondsPerSecond;
constinit unsigned long long TickTimer::TICKS_PER_MS = nanosecondsPerMillisecond;

unsigned long long TickTimer::getTick() const {
    return now();
}

unsigned long long TickTimer::getTickFromNow(long long milliseconds) {
    const unsigned long long present = now();
    const auto amount = static_cast<unsigned long long>(milliseconds);
    // Negated as unsigned, since the lowest number has no positive counterpart.
    return milliseconds < 0 ? earlier(present, toTicks(0 - amount))
                            : later(present, toTicks(amount));
}

unsigned long long TickTimer::toTicks(unsigned long long milliseconds) {
    unsigned long long ticks = 0;
    return __builtin_mul_overflow(milliseconds, TICKS_PER_MS, &ticks) ? lastTick : ticks;
}

unsigned long long TickTimer::toMilliseconds(unsigned long long ticks) {
    return ticks / TICKS_PER_MS;
}

TimeType TickTimer::toTimeType(unsigned long long tick) {
    if (tick == 0) return 0;
    const TimeType present = DateTime::getCurrentTime();
    return TimeArithmetic::moved(
        present, TimeArithmetic::difference(toMilliseconds(tick), toMilliseconds(now())));
}

unsigned long long TickTimer::fromTimeType(TimeType count) {
    if (count == 0) return 0;
    const TimeType present = DateTime::getCurrentTime();
    const unsigned long long presentMs = toMilliseconds(now());
    return toTicks(count < present ? earlier(presentMs, present - count)
                                   : later(presentMs, count - present));
}

long long TickTimer::getSpanMS(unsigned long long from) {
    return getSpanMS(from, now());
}

long long TickTimer::getSpanMS(unsigned long long from, unsigned long long to) {
    return from <= to ? static_cast<long long>(toMilliseconds(to - from))
                      : -static_cast<long long>(toMilliseconds(from - to));
}

void TickTimer::sleep(unsigned long long targetTick) {
    while (now() < targetTick)
        core_sleep(sleepStep);
}

unsigned long long TickTimer::now() {
    static const clockid_t clock = firstWorkingClock();
    timespec present{};
    if (clock != noClock && clock_gettime(clock, &present) == 0)
        return static_cast<unsigned long long>(present.tv_sec) * nanosecondsPerSecond +
               static_cast<unsigned long long>(present.tv_nsec) + tickOfClockStart;
    if (TICKS_PER_SEC == 0) TICKS_PER_SEC = 1;
    return static_cast<unsigned long long>(std::time(nullptr));
}

}  // namespace TarvikCorelib
