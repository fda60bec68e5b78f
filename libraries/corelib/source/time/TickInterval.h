/// A period that says when it has passed.
#pragma once

#include "libraries/corelib/source/time/TickTimer.h"

namespace TarvikCorelib {

/// Fires once an interval, later by a random offset if one is asked for, so that many processes do
/// not all act at once.
///
/// Two ticks are kept: the base moves on by whole intervals, and the firing tick is the base plus a
/// fresh random offset. So offsets do not add up. Missed periods are not made up for: `isTime` is
/// true once, and the base moves on to now or later. Nothing waits here; `isTime` is asked.
///
///     TickInterval minute(60000, 10000);  // Each minute, 0 to 9 seconds late.
///     while (isRunning()) {
///         if (minute.isTime()) report();
///         core_sleep(100);
///     }
class TickInterval : public TickTimer {
public:
    /// Lengths in milliseconds; an interval of 0 is 1000, and 100 years are the longest. The random
    /// span is less than the interval: a longer one is cut. The first firing is one interval away.
    explicit TickInterval(unsigned long long intervalMs, unsigned long long randomMs = 0);

    /// Starts anew with another interval. A random span that this cuts stays cut.
    virtual void setInterval(unsigned long long milliseconds);
    /// Sets the random span and draws the next firing tick anew.
    virtual void setRandomOffset(unsigned long long milliseconds);
    /// Whether the firing tick has come; then it moves on.
    virtual bool isTime();

    /// In milliseconds.
    [[nodiscard]] unsigned long long getInterval() const { return toMilliseconds(interval); }
    /// A fresh random offset in ticks, a whole number of seconds below the random span; 0 for a
    /// span below one second. Drawn with `rand`, which is seeded once a process.
    [[nodiscard]] unsigned long long getRandomOffset() const;
    /// Steps back by one interval: what was due in an interval is due now.
    void reset();
    /// Draws the firing tick anew from the present base.
    void recalc();

protected:
    // Both lengths in ticks, within their limits.
    void setLengths(unsigned long long intervalMs);
    void setSpan(unsigned long long ticks);

    unsigned long long interval = 0;
    unsigned long long randomSpan = 0;
    unsigned long long nextBase = 0;
    unsigned long long nextFiring = 0;
};

}  // namespace TarvikCorelib
