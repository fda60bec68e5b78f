#include "libraries/corelib/source/time/AlignedTickInterval.h"

#include "libraries/corelib/source/time/DateTime.h"

#include <algorithm>

namespace TarvikCorelib {

namespace {

constexpr unsigned long long alignmentMs = 100;
// 100 years, as the longest interval, so that adding it to a tick does not overflow.
constexpr unsigned long long longestShiftMs = 36'500ULL * millisecondsPerDay;

}  // namespace

AlignedTickInterval::AlignedTickInterval(unsigned long long intervalMs, unsigned long long randomMs,
                                         unsigned long long shiftMs)
    : TickInterval(intervalMs, randomMs), shift(toTicks(std::min(shiftMs, longestShiftMs))) {
    AlignedTickInterval::setInterval(intervalMs);
}

void AlignedTickInterval::setInterval(unsigned long long milliseconds) {
    setLengths(milliseconds - milliseconds % alignmentMs);
    const unsigned long long period = getInterval();
    nextBase = now() + toTicks(period - DateTime::getCurrentTime() % period);
    nextFiring = nextBase + shift + getRandomOffset();
}

bool AlignedTickInterval::isTime() {
    const unsigned long long present = now();
    if (present < nextFiring) return false;

    previousBase = nextBase;
    // The firing tick is never before its base, so neither is the present.
    nextBase += ((present - nextBase) / interval + 1) * interval;
    nextFiring = nextBase + shift + getRandomOffset();
    return true;
}

}  // namespace TarvikCorelib
