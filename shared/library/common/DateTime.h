/// The older date-time: turns the text of a date into seconds, and all but never refuses one.
#pragma once

#include "shared/library/common/TimeBase.h"
#include "shared/library/common/TzDef.h"

#include <cstdint>
#include <string>

namespace Tarvik {

// The fields take what the text says: ranges are a matter for `DateTime::set`. A number is read as
// by `strtol` and cut to 32 bits.

struct DateT {
    std::int32_t year = 1970;
    std::int32_t month = 1;    ///< From 1.
    std::int32_t day = 1;      ///< From 1.
    std::int32_t weekDay = 0;  ///< Reading leaves it alone.

    /// "2020-03-01" or "20200301". What is missing at the end stays as it is, and so does all if
    /// there is neither a "-" nor nothing but digits.
    void fromString(std::string text);
};

struct TimeT {
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;
    std::int32_t millisecond = 0;  ///< Reading leaves it alone.

    /// "12:30:45" or "1230", by the rules of dates.
    ///
    /// Without colons the seconds are the two digits at position 6, not 4: "123045" has none, and
    /// "12304567" has 67. On purpose. Five digits throw `std::out_of_range`.
    void fromString(std::string text);
};

struct DateTimeT {
    DateT date;
    TimeT time;
    TzDef zone;

    /// A date, then a "T" or a blank, a time, and from a "+" or "-" on a zone. A date alone and a
    /// time without a zone are in the current zone.
    ///
    /// Throws `std::out_of_range` for a time of five digits; what else cannot be read stays at
    /// 1970-01-01 0:00.
    void fromString(const std::string& text);
};

/// An instant, in seconds since 1970-01-01 00:00:00 GMT, and the zone that it was given in. For use
/// on one thread.
class DateTime : public TimeBase {
public:
    static constexpr long Min = 0;
    static constexpr long Max = 2147483647;  ///< 2038-01-19 03:14:07 GMT.

    /// Process-wide. Null while no zone was set; else what `setDefaultTZ` keeps.
    static TzDef* DefaultTZ;
    /// Process-wide. Whether `TARVIK_TZ` was looked at. If it is made false, the next text looks
    /// again, and what is known of the system's zone is forgotten.
    static bool TZSet;

    DateTime() = default;
    /// As `set` of the same arguments.
    explicit DateTime(const std::string& text);
    explicit DateTime(const DateTimeT& fields);

    /// Reads a text as `DateTimeT::fromString` does, with what that throws. A blank text is the
    /// time 0 in no zone.
    void set(const std::string& text);
    void set(const DateTimeT& fields);

    /// The instant of these fields in the zone, if that is `set`, else in GMT. Each field is
    /// brought into its range: "2020-13-45" is 2020-12-31. The range is kept before the zone is
    /// applied, so that a zone east of GMT may lead below `Min`, and one west of it behind `Max`.
    ///
    /// A year behind 2038 becomes 2038 and then cuts the month, that the day, and so on, each to
    /// `Max`'s, but only as long as each was cut: 2040-01-01 is 2038-01-01, and 2040-06-25 is
    /// 2038-01-19.
    ///
    /// With `applyDst`, the zone's daylight shift is taken into account.
    void set(int year, int month, int day, int hour, int minute, int second, const TzDef& zone,
             bool applyDst);

    [[nodiscard]] const TzDef& getZone() const { return zone; }

    /// Keeps a copy of the zone as the default one. Ignores an invalid record.
    static void setDefaultTZ(const TzDef& newDefault);

    /// The zone that texts without one are in: the default one or, as long as there is none, the
    /// system's. The first call reads `TARVIK_TZ`.
    static const TzDef& currentTz();

    /// The system's zone as the C library tells it, asked for at most once in 3600 seconds. The
    /// offset is the one in force, daylight shift included, so that in summer a text of that season
    /// without a zone of its own is shifted twice. On purpose.
    ///
    /// The changes are those of this year. There is no daylight time if there are not just two of
    /// them, there and back, 3 to 9 months apart, or if the offset is more than 12 hours.
    static const TzDef& calcCurrentTz();

private:
    static void prepareZones();

    TzDef zone;
};

}  // namespace Tarvik
