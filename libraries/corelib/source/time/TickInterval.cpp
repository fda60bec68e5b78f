#include "libraries/corelib/source/time/TickInterval.h"

#include "libraries/corelib/source/time/DateTime.h"

#include <algorithm>
#include <cstdlib>

namespace TarvikCorelib {

namespace {

constexpr unsigned long long defaultIntervalMs = 1000;
// 100 years. Ticks end after 584 of them, so no sum of a tick and lengths up to this one overflows.
constexpr unsigned long long longestIntervalMs = 36'500ULL * millisecondsPerDay;

// The generator of the C library is the host's as well, so it is seeded once and not for each draw.
unsigned long long randomNumber() {
    [[maybe_unused]] static const bool seeded = [] {
        const TimeType seconds = (DateTime::getCurrentTime() - unixEpoch) / millisecondsPerSecond;
        std::srand(static_cast<unsigned int>(seconds));
        return true;
    }();
    return static_cast<unsigned long long>(std::rand());
}

}  // namespace

TickInterval::TickInterval(unsigned long long intervalMs, unsigned long long randomMs)
    : randomSpan(toTicks(randomMs)) {
    TickInterval::setInterval(intervalMs);
}

void TickInterval::setInterval(unsigned long long milliseconds) {
    setLengths(milliseconds);
    nextBase = now() + interval;
    recalc();
}

void TickInterval::setRandomOffset(unsigned long long milliseconds) {
    setSpan(toTicks(milliseconds));
    recalc();
}

bool TickInterval::isTime() {
    const unsigned long long present = now();
    if (present < nextFiring) return false;

    nextBase += interval;
    if (present > nextBase) {
        const unsigned long long missed = (present - nextBase + interval - 1) / interval;
        nextBase += missed * interval;
    }
    recalc();
    return true;
}

unsigned long long TickInterval::getRandomOffset() const {
    const unsigned long long seconds = randomSpan / TICKS_PER_SEC;
    return seconds == 0 ? 0 : randomNumber() % seconds * TICKS_PER_SEC;
}

void TickInterval::reset() {
    nextBase -= std::min(nextBase, interval);
    nextFiring -= std::min(nextFiring, interval);
}

void TickInterval::recalc() {
    nextFiring = nextBase + getRandomOffset();
}

void TickInterval::setLengths(unsigned long long intervalMs) {
    interval =
        toTicks(intervalMs == 0 ? defaultIntervalMs : std::min(intervalMs, longestIntervalMs));
    setSpan(randomSpan);
}

void TickInterval::setSpan(unsigned long long ticks) {
    randomSpan = std::min(ticks, interval - 1);
}

}  // namespace TarvikCorelib
