/// A moment that is remembered.
#pragma once

#include "libraries/corelib/source/time/TickTimer.h"

namespace TarvikCorelib {

class Ticker : public TickTimer {
public:
    void update() { updated = now(); }
    /// The tick of the last `update`, 0 before the first.
    [[nodiscard]] unsigned long long getTick() const override { return updated; }

private:
    unsigned long long updated = 0;
};

}  // namespace TarvikCorelib
