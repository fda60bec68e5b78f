#include "libraries/corelib/source/process/CoreSleep.h"

#include <cerrno>
#include <ctime>

namespace TarvikCorelib {

void core_sleep(std::uint32_t milliseconds) {
    constexpr std::uint32_t millisecondsPerSecond = 1000;
    constexpr long nanosecondsPerMillisecond = 1'000'000;
    timespec left{};
    left.tv_sec = milliseconds / millisecondsPerSecond;
    left.tv_nsec = milliseconds % millisecondsPerSecond * nanosecondsPerMillisecond;
    // After a signal `left` holds the remaining time, so an interruption makes it no longer.
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

}  // namespace TarvikCorelib
