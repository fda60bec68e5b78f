/// The older date-time: turns the text of a date into seconds, and refuses almost none.
#pragma once

#include "shared/library/common/TimeBase.h"
#include "shared/library/common/TzDef.h"

#include <cstdint>
#include <string>

namespace Tarvik {

// The fields hold the numbers of the text, whatever they are: `DateTime::set` brings them into
// their ranges. A number is read by `strtol` and cut to its low 32 bits.

struct DateT {
    std::int32_t year = 1970;
    std::int32_t month = 1;    ///< From 1.
    std::int32_t day = 1;      ///< From 1.
    std::int32_t weekDay = 0;  ///< Not changed by reading.

    /// Reads "2020-03-01" or "20200301". Fields that are missing at the end keep their values. A
    /// text without a "-" must hold digits only, or all fields keep their values.
    void fromString(std::string text);
};

struct TimeT {
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;
    std::int32_t millisecond = 0;  ///< Not changed by reading.

    /// Reads "12:30:45" or "1230", by the rules of dates with ":" for "-".
    ///
    /// Quirk: without colons the seconds are the two digits at position 6, not 4: "123045" has 0,
    /// "12304567" has 67, and five digits throw `std::out_of_range`.
    void fromString(std::string text);
};

struct DateTimeT {
    DateT date;
    TimeT time;
    TzDef zone;

    /// Reads a date, a "T" or a space, a time, and from a "+" or "-" on a zone. Without a zone, it
    /// is the current one.
    ///
    /// Throws `std::out_of_range` for a time of five digits. A date or time that cannot be read is
    /// 1970-01-01 or 0:00.
    void fromString(const std::string& text);
};

/// An instant, in seconds since 1970-01-01 00:00:00 GMT, and the zone that it was given in.
///
/// Fields become an instant in three steps: each is brought into its range, they are counted as if
/// they were GMT, and then the zone's offset is subtracted, and its daylight shift where it
/// applies. Nothing is refused, because a rule with a bad date is still compared with others by its
/// instant.
///
/// The zone of texts without one is process-wide and has no lock: for use on one thread.
///
///     DateTime("2024-03-01T12:00:00+00:00").getInternalTime();  // 1709294400
///     DateTime("2024-13-45T00:00+00:00").getInternalTime();     // 1735603200: 31 December
///     DateTime("soon").getInternalTime();                       // 0
class DateTime : public TimeBase {
public:
    static constexpr long Min = 0;
    static constexpr long Max = 2147483647;  ///< 2038-01-19 03:14:07 GMT.

    /// Process-wide. The copy that `setDefaultTZ` keeps; null while there is none.
    static TzDef* DefaultTZ;
    /// Process-wide. Whether `TARVIK_TZ` has been read. Setting it to false makes the next text
    /// read it again and drops the cache of the system's zone.
    static bool TZSet;

    DateTime() = default;
    /// The same as `set`.
    explicit DateTime(const std::string& text);
    explicit DateTime(const DateTimeT& fields);

    /// Reads a text like `DateTimeT::fromString`, and throws like it. A text of blanks only is the
    /// time 0 without a zone.
    void set(const std::string& text);
    void set(const DateTimeT& fields);

    /// The instant of these fields in the zone if it is `set`, else in GMT. Each field is brought
    /// into its range: "2020-13-45" is 2020-12-31. The zone is applied after that, so the instant
    /// can be before `Min` east of GMT and after `Max` west of it.
    ///
    /// A year after 2038 becomes 2038. Then the month is cut to that of `Max`, then the day, and so
    /// on, but the chain ends at the first field that needs no cut: 2040-06-25 is 2038-01-19, and
    /// 2040-01-25 is 2038-01-25.
    ///
    /// With `applyDst`, the daylight shift is subtracted if the instant is in daylight time.
    void set(int year, int month, int day, int hour, int minute, int second, const TzDef& zone,
             bool applyDst);

    [[nodiscard]] const TzDef& getZone() const { return zone; }

    /// Keeps a copy of the zone as the default one. Ignores an invalid record.
    static void setDefaultTZ(const TzDef& newDefault);

    /// The zone of texts without one: the default one or, as long as there is none, the system's.
    /// The first call reads `TARVIK_TZ`.
    static const TzDef& currentTz();

    /// The system's zone as the C library knows it, read anew after 3600 seconds.
    /// Quirk: the offset is the one in force now, daylight shift included. So in summer a text of
    /// that season without a zone is shifted twice.
    ///
    /// The changes are those of the current year. Daylight time needs exactly two of them, there
    /// and back, 3 to 9 months apart, and an offset of at most 12 hours.
    static const TzDef& calcCurrentTz();

private:
    /// Reads `TARVIK_TZ`, unless that was done before.
    static void prepareZones();

    TzDef zone;
};

}  // namespace Tarvik
