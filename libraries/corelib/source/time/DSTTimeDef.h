/// A rule for the day of the year on which daylight saving begins or ends.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// Such as "3M5W6D2H": the last Sunday of March at 2 o'clock.
struct DSTTimeDef {
    std::int8_t month = 0;  ///< 1 to 12.
    std::int8_t week = 0;   ///< 1 to 5: which of these weekdays in the month; 5 is the last one.
    std::int8_t day = 0;    ///< 0 Monday to 6 Sunday.
    std::int8_t hour = 0;   ///< 0 to 23.

    bool operator==(const DSTTimeDef&) const = default;

    void reset() { *this = DSTTimeDef(); }
    [[nodiscard]] bool isValid() const;
    [[nodiscard]] std::string toString() const;
    /// Each "M", "W", "D" and "H" stores the number in front of it, in any order. Fields without
    /// their letter keep their values. A number that cannot be read is 0, one that does not fit is
    /// cut to 8 bits, and ranges are not checked.
    void fromString(std::string_view text);
};

}  // namespace TarvikCorelib
