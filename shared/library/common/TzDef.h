/// A time zone of the older library: an offset, and the two days on which daylight time changes.
#pragma once

#include <cstdint>
#include <string>

namespace Tarvik {

class DateTime;

/// One change to or from daylight time, such as "3M5W6D2H": the last Sunday of March at 2 o'clock.
struct DstDef {
    long month = 0;  ///< 1 to 12.
    long week = 0;   ///< 1 to 5: which of these weekdays in the month. See `TzDef::getDstStart`.
    long day = 0;    ///< 0 to 6, Monday being 0.
    long hour = 0;   ///< 0 to 23.

    /// Each "M", "W", "D" and "H" stores the number before it, in any order. What is not named
    /// stays as it is; no range is asked.
    void fromString(const std::string& text);
};

/// How a moment lies to the changes of its year.
enum DstNearness : std::int32_t {
    InDaylightTime = 1,
    NotInDaylightTime = 2,
    NearDaylightStart = 3,  ///< Counts as standard time.
    NearDaylightEnd = 4,    ///< Counts as daylight time.
};

/// Nothing throws and nothing is reported: what cannot be read is 0.
struct TzDef {
    bool set = false;  ///< The record holds a zone.
    /// Seconds east of GMT. The instants of dates and changes take it without the daylight shift.
    /// Only in what `DateTime::calcCurrentTz` tells, it holds the shift while that is in force.
    long offset = 0;
    long dstShift = 0;  ///< Seconds; 0 for no daylight time.
    DstDef dstStart = {};
    DstDef dstEnd = {};

    /// The offset is at most 12 hours either way, and daylight time, if there is any, has changes
    /// in months 3 to 9 apart, with a week of at most 5 and a day of at most 6. Whether `set` holds
    /// is not asked.
    [[nodiscard]] bool isValid() const;

    // --- reading; `set` is true after each `from...String`

    /// Reads what stands behind a time: a zone as for `fromDstString`, an offset such as "+02:00"
    /// or "+0200", or a number of minutes such as "+120".
    ///
    /// With an offset or minutes, daylight time is that of the current zone, and what was read is
    /// taken to hold the shift if `moment` lies in daylight time.
    void fromString(const std::string& text, const DateTime& moment);

    /// Reads "+01:00 (+01:00 3M5W6D2H-10M5W6D3H)": the offset without the shift, the shift, its
    /// start in standard time and its end in daylight time. One value of the changes out of its
    /// range, or missing, leaves a zone without daylight time.
    void fromDstString(std::string text);

    /// Seconds for "+hh:mm", "-hh:mm", "+hhmm" and "-hhmm"; 0 for any other text.
    static long fromIsoToSeconds(const std::string& text);

    // --- daylight time

    /// The moment is to be computed with `offset` alone: up to a shift behind the end it is still
    /// daylight time. An invalid zone and one without changes are never in it. Years behind 2037
    /// have the changes of that year.
    [[nodiscard]] DstNearness dstQuickTest(const DateTime& moment) const;

    /// In daylight time or near its end.
    [[nodiscard]] bool isDst(const DateTime& moment) const;

    /// The instants of the changes, in seconds since 1970; 0 for an invalid zone, and where a field
    /// of a change is out of its range in another way. Years behind 9999 count as 9999.
    ///
    /// Of `week`, at most as many count as the month has Sundays, whatever the weekday: in a month
    /// of 31 days that begins on a Tuesday the fifth Tuesday cannot be named. Where a month has
    /// five Sundays, the fifth of a rarer weekday falls into the next month.
    [[nodiscard]] long getDstStart(unsigned long year) const;
    [[nodiscard]] long getDstEnd(unsigned long year) const;
};

}  // namespace Tarvik
