#include "shared/library/common/TimeException.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace Tarvik {

namespace {

struct TimeFault {
    std::string_view name;
    std::string_view text;
};

// The index is the code.
constexpr auto timeFaults = std::to_array<TimeFault>({
    {"TM_NONE", "No exception!"},
    {"TM_DAYS", "Days out of range: (0 - 24,855)."},
    {"TM_HOURS", "Hours out of range: (0-23)."},
    {"TM_MINUTES", "Minutes out of range: (0-59)."},
    {"TM_SECONDS", "Seconds out of range: (0-59)."},
    {"TM_YEAR", "Year out of range: (1970 - 2037)."},
    {"TM_MONTH", "Month out of range: (1 - 12)."},
    {"TM_DAY", "Day out of range: (1 - days of the month in question)."},
    {"TM_DATETIME", "Illegal date and/or time."},
    {"TM_ANCIENT", "Illegal date/time. Cannot have date before 01.01.1970 0:00:00!"},
    {"TM_INPUT", "Illegal input format."},
});
static_assert(timeFaults[TimeInput].name == "TM_INPUT");

constexpr const TimeFault& faultOf(int code) {
    const bool known = code >= 0 && static_cast<std::size_t>(code) < timeFaults.size();
    return timeFaults[static_cast<std::size_t>(known ? code : TimeDateTime)];
}

}  // namespace

TimeException::TimeException(int code)
    : Exception(code, std::string(faultOf(code).name), std::string(faultOf(code).text)) {}

std::string TimeException::getModule() const {
    return "Time";
}

}  // namespace Tarvik
