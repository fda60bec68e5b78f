/// A period that follows the wall clock.
#pragma once

#include "libraries/corelib/source/time/TickInterval.h"

namespace TarvikCorelib {

/// Fires at the multiples of its interval on the wall clock in GMT, such as each full minute, later
/// by a fixed shift and by the random offset.
///
/// The wall clock is read when the interval is set. From then on the monotonic clock counts, so a
/// wall clock that is set anew moves the boundaries until `setInterval` is called again.
class AlignedTickInterval : public TickInterval {
public:
    /// Lengths in milliseconds; see `setInterval`. A shift of 100 years is the longest.
    AlignedTickInterval(unsigned long long intervalMs, unsigned long long randomMs,
                        unsigned long long shiftMs);

    /// Cuts the interval to a multiple of 100 milliseconds; 0 is then 1000. On a boundary the next
    /// one is a whole interval away.
    /// Quirk: `setRandomOffset` and `recalc` draw a firing tick without the shift, once.
    void setInterval(unsigned long long milliseconds) override;
    /// Quirk: a shift and offset of an interval or more leave out boundaries: the next base is
    /// sought from the moment of firing on.
    bool isTime() override;

    /// The tick of the boundary that fired last; 0 before the first.
    [[nodiscard]] unsigned long long getPreviousBase() const { return previousBase; }

private:
    unsigned long long shift = 0;
    unsigned long long previousBase = 0;
};

}  // namespace TarvikCorelib
