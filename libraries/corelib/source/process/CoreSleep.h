/// Sleeps for a while.
#pragma once

#include <cstdint>

namespace TarvikCorelib {

/// Sleeps the full time, even if signals interrupt it. May be called in a signal handler.
void core_sleep(std::uint32_t milliseconds);

}  // namespace TarvikCorelib
