/// A clock that no change of the wall clock disturbs.
#pragma once

#include "libraries/corelib/source/time/TimeUnits.h"

namespace TarvikCorelib {

/// Reads a monotonic clock in ticks of one nanosecond.
///
/// A tick counts from a moment far in the past, so 0 is free to mean "none". Ticks of two processes
/// have nothing to do with each other. The operations here always read the clock; what `getTick`
/// returns in a derived class plays no part in them. They are safe to call from any thread.
///
///     const unsigned long long start = TickTimer().getTick();
///     work();
///     TickTimer::getSpanMS(start);  // The milliseconds that it took.
class TickTimer {
public:
    TickTimer() = default;
    TickTimer(const TickTimer&) = default;
    TickTimer& operator=(const TickTimer&) = default;
    virtual ~TickTimer() = default;

    /// The present tick; a derived class may return another one that it stands for.
    [[nodiscard]] virtual unsigned long long getTick() const;

    /// A tick `milliseconds` from now, in the past if negative.
    static unsigned long long getTickFromNow(long long milliseconds);

    /// Stop at the largest number of ticks; milliseconds are cut off.
    static unsigned long long toTicks(unsigned long long milliseconds);
    static unsigned long long toMilliseconds(unsigned long long ticks);

    /// The instant of a tick by the wall clock as it is set now, and back; 0 for 0, and for an
    /// instant before tick 0.
    static TimeType toTimeType(unsigned long long tick);
    static unsigned long long fromTimeType(TimeType count);

    /// Milliseconds from one tick to another or to now, negative if `from` is the later one.
    static long long getSpanMS(unsigned long long from);
    static long long getSpanMS(unsigned long long from, unsigned long long to);

    static unsigned long long getTicksPerSecond() { return TICKS_PER_SEC; }

    /// Sleeps until the tick, in steps of 10 ms. Returns at once if it has passed.
    /// Quirk: sleeps at least 10 ms otherwise, also if less remains.
    static void sleep(unsigned long long targetTick);

    /// Process-wide. Ready before any constructor runs.
    static unsigned long long TICKS_PER_SEC;
    static unsigned long long TICKS_PER_MS;

protected:
    /// The clock, whatever `getTick` says.
    static unsigned long long now();
};

}  // namespace TarvikCorelib
