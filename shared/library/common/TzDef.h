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

    bool operator==(const DstDef&) const = default;

    /// Each "M", "W", "D" and "H" stores the number before it, in any order. Fields without their
    /// letter keep their values; ranges are not checked.
    void fromString(const std::string& text);
};

/// Position of an instant relative to the two daylight-saving changes of its year.
enum DstNearness : std::int32_t {
    InDaylightTime = 1,
    NotInDaylightTime = 2,
    NearDaylightStart = 3,  ///< Counts as standard time.
    NearDaylightEnd = 4,    ///< Counts as daylight time.
};

/// A zone as two rules, not as a table of years: each year's changes are computed from the rules
/// when an instant is compared with them. Offsets are in seconds east of GMT.
///
/// An instant is first computed without the shift and then compared. Near a change that instant is
/// uncertain by the shift, so `dstQuickTest` tells four positions apart, and `isDst` decides for
/// the nearer change.
///
/// Nothing throws and nothing is reported: a number that cannot be read is 0. The two functions
/// that need the current zone are for one thread, like `DateTime`.
///
///     TzDef zone;
///     zone.fromDstString("+01:00 (+01:00 3M5W6D2H-10M5W6D3H)");
///     zone.offset;                                     // 3600
///     zone.getDstStart(2024);                          // 1711846800
///     zone.isDst(DateTime("2024-07-01T12:00+00:00"));  // true
struct TzDef {
    bool set = false;  ///< Whether the record holds a zone.
    /// Seconds east of GMT, without the daylight shift. Only the zone of `DateTime::calcCurrentTz`
    /// includes the shift while it is in force.
    long offset = 0;
    long dstShift = 0;  ///< Seconds; 0 for no daylight time.
    DstDef dstStart = {};
    DstDef dstEnd = {};

    /// Compares the fields, so two records can differ whose instants are the same.
    bool operator==(const TzDef&) const = default;

    /// True if the offset is at most 12 hours either way and there is no shift, or the changes are
    /// 3 to 9 months apart, each with a week of at most 5 and a day of at most 6. Ignores `set`.
    [[nodiscard]] bool isValid() const;

    // --- reading; `set` is true after each `from...String`

    /// Reads the zone behind a time: the form of `fromDstString`, an offset such as "+02:00" or
    /// "+0200", or a number of minutes such as "+120".
    ///
    /// An offset or minutes come with the daylight time of the current zone. If `moment` is in
    /// daylight time, the number is taken to include the shift, which is subtracted.
    void fromString(const std::string& text, const DateTime& moment);

    /// Reads "+01:00 (+01:00 3M5W6D2H-10M5W6D3H)": the offset without the shift, the shift, its
    /// start in standard time and its end in daylight time. If any field of the changes is missing
    /// or out of its range, the zone has no daylight time.
    void fromDstString(std::string text);

    /// Seconds for "+hh:mm", "-hh:mm", "+hhmm" and "-hhmm"; 0 for any other text.
    static long fromIsoToSeconds(const std::string& text);

    // --- daylight time

    /// `moment` must be computed with `offset` alone, so up to a shift after the end it is still in
    /// daylight time. A zone that is invalid or has no changes is never in it. Years after 2037 use
    /// the changes of 2037.
    [[nodiscard]] DstNearness dstQuickTest(const DateTime& moment) const;

    /// True in daylight time and near its end.
    [[nodiscard]] bool isDst(const DateTime& moment) const;

    /// The instants of the changes, in seconds since 1970. Both are 0 if the zone is invalid or any
    /// field of a change is out of its range. A year after 9999 counts as 9999.
    ///
    /// Quirk: `week` is limited to the number of Sundays in the month, whatever the weekday. In a
    /// month with four Sundays no fifth Tuesday can be named; in one with five, the fifth of a
    /// weekday that is there four times falls into the next month.
    [[nodiscard]] long getDstStart(unsigned long year) const;
    [[nodiscard]] long getDstEnd(unsigned long year) const;
};

}  // namespace Tarvik
