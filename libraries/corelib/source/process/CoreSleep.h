/// Waits for a time.
#pragma once

#include <cstdint>

namespace TarvikCorelib {

/// Waits the full time, also when signals come in between. May be called in a signal handler.
void core_sleep(std::uint32_t milliseconds);

}  // namespace TarvikCorelib
