/// A time zone: its offset from GMT and its daylight-saving rules.
#pragma once

#include "libraries/corelib/source/time/DSTTimeDef.h"
#include "libraries/corelib/source/time/TimeUnits.h"

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

namespace TarvikCorelib {

class DateTime;
class DateTimeDetails;

/// Seconds since the Unix epoch, of fields in GMT. Weekday, day of the year and daylight flag are
/// ignored; a day beyond its month counts into the next one. Returns -1 outside of the years 1970
/// to 2038.
std::time_t toTime(const std::tm& fields);

/// Where an instant lies beside the two changes of its year.
enum DSTNearness : std::int32_t {
    UnknownDaylight = 0,
    InDaylightTime = 1,
    NotInDaylightTime = 2,
    NearDaylightStart = 3,  ///< Counts as standard time.
    NearDaylightEnd = 4,    ///< Counts as daylight time.
};

/// A standard offset, a shift for daylight saving, and the two rules that say when the shift begins
/// and ends each year. There is no database of named zones: a zone comes from the system's clock
/// (`setCurrent`), from the variable `TARVIK_TZ`, or from a text.
///
///   zone   = offset [ " (" shift " " rule "-" rule ")" ]      "+01:00 (+01:00 3M5W6D2H-10M5W6D3H)"
///   offset = shift = ( "+" | "-" ) hh ":" mm
///
/// All lengths are in milliseconds, offsets east of GMT. There are two questions: `isSet` says
/// whether anybody has given this object a zone, `isValid` whether its fields make a zone. Nothing
/// throws: a bad text gives an offset of 0 or a zone without daylight saving.
///
/// `TARVIK_TZ` is read once, when a zone is first made, copied or asked from the system. Objects
/// belong to one thread. The statics have no lock: make the first zone, and call `setCurrent`, only
/// where no other thread does the same.
///
///     TimeZone zone;
///     zone.setFull("+01:00 (+01:00 3M5W6D2H-10M5W6D3H)");
///     const DateTime summer("2024-07-01T12:00:00Z");
///     zone.isDST(summer);                                // true
///     zone.getIsoString(summer, false);                  // "+02:00"
///     summer.getTZ(zone).getString(false, false, true);  // "2024-07-01T14:00:00+02:00"
class TimeZone {
public:
    /// Not set, all zero.
    TimeZone();
    /// As `set` with the present as reference.
    explicit TimeZone(std::string_view text);
    TimeZone(const TimeZone& other);
    /// Unlike a copy, an assignment never reads `TARVIK_TZ`.
    TimeZone& operator=(const TimeZone& other) = default;
    constexpr virtual ~TimeZone() = default;

    /// A zone that is not set and did not read `TARVIK_TZ` either: for members of objects that may
    /// be made before `main`.
    struct Unset {};
    constexpr explicit TimeZone(Unset /*tag*/) {}

    // --- filling

    void set(const TimeZone& other) { *this = other; }
    /// Reads the long form, an offset alone ("+01:00" or "+0100"), or a number as in `setNumber`.
    /// The object counts as set after any text, with an offset of 0 if the text is none of these.
    /// Quirk: "+120" is none of these; "-120" is a number, two hours west.
    void set(std::string_view text, const DateTime& reference);
    /// Reads the long form. Rules that make no zone are dropped together with the shift.
    void setFull(std::string_view text);
    /// Reads an offset alone; the zone has no daylight saving then.
    void setISO(std::string_view text);
    /// Reads an offset that includes the shift if it is in force at the reference, by the rules
    /// that this object holds and keeps.
    /// Quirk: the reference is compared with changes by the new offset, shift included.
    void setISO(std::string_view text, const DateTime& reference);
    /// Sets the whole offset, in minutes up to 1,000,000 either way, in milliseconds beyond. Shift
    /// and rules are those of the reference's zone, and its shift is subtracted from the offset.
    /// Quirk: it is subtracted in winter, too.
    void setNumber(long long number, const DateTime& reference);
    void reset() { *this = TimeZone(Unset()); }

    // --- the system's zone

    /// The present as the clocks tell it: a tick of `TickTimer`, and seconds since the Unix epoch.
    struct Moment {
        unsigned long long tick = 0;
        std::time_t time = 0;
    };

    /// Takes the zone of the system, that of the variable `TZ`. It is found by watching the clock
    /// of the C library for a year, and kept for an hour in `CustomDefaultTZ`; `force` finds it
    /// anew. Changes of the rules in another year than the present one are not seen.
    /// Quirk: the first call finds it anew even if `TARVIK_TZ` or `setDefault` has filled the
    /// default: their zone holds only until somebody asks for the system's.
    void setCurrent(bool force);
    /// The same at a moment that the caller knows.
    void setCurrent(bool force, const Moment& now);
    /// Finds the system's zone without keeping it.
    void calcCurrent();
    void calcCurrent(std::time_t now);

    static void setDefault(const TimeZone& zone);
    /// The default counts as not set, so the next `setCurrent` finds it anew.
    static void resetDefault();
    /// Makes the zone of `TARVIK_TZ` the default if the variable holds one. Does nothing the second
    /// time unless `force` is set.
    static void setTZ(bool force);

    // --- asking

    [[nodiscard]] bool isSet() const { return flag; }
    /// Whether the offset is at most 12 hours either way and, where there is a shift, both rules
    /// are valid and their months 2 to 10 apart. Ignores `isSet`, so an empty zone is valid.
    [[nodiscard]] bool isValid() const;
    [[nodiscard]] long long getOffset() const { return offset; }  ///< Without daylight saving.
    /// The shift as it is stored, rules usable or not; 0 for no daylight saving.
    [[nodiscard]] long long getDstLength() const { return dstLength; }
    [[nodiscard]] const DSTTimeDef& getStartRule() const { return dstStart; }
    [[nodiscard]] const DSTTimeDef& getEndRule() const { return dstEnd; }
    /// -1, 0 or 1 by the offset alone: rules are not compared.
    [[nodiscard]] int compare(const TimeZone& other) const;

    /// Whether daylight saving is in force. Always false for a zone that is not valid.
    [[nodiscard]] bool isDST(const DateTime& instant) const;
    /// The same for a local time whose instant is not known yet: `instant` is computed with the
    /// standard offset, so around a change it may be off by the shift.
    [[nodiscard]] DSTNearness dstQuickTest(const DateTime& instant) const;
    /// The changes of a year; 0 if there is no daylight saving. The hour of the first is standard
    /// time, that of the second daylight time.
    [[nodiscard]] TimeType getDstStart(long long year) const;
    [[nodiscard]] TimeType getDstEnd(long long year) const;
    /// The instant of one rule, its hour taken as standard time.
    /// Quirk: a `week` is limited by the number of Sundays in the month, whatever the day. So the
    /// fifth of another weekday can be its fourth, or lie in the next month.
    [[nodiscard]] TimeType getDstChangeTime(long long year, long long month, long long week,
                                            long long day, long long hour) const;
    /// What to add to GMT for the local time: the offset, and the shift while it is in force. A
    /// zone that is not valid has that of the system's zone; if that is no valid zone either, its
    /// offset.
    [[nodiscard]] long long getGmtLocalDiff(const DateTime& instant) const;
    /// Sets the fields to the first of the month, normalized.
    static void prepareDTD(DateTimeDetails& details, long long year, long long month,
                           long long hour);

    // --- printing

    /// The text form; without the bracket if there is no daylight saving.
    [[nodiscard]] std::string getString() const;
    /// The whole offset at the instant as "+01:00", or "+0100" if `compact`.
    [[nodiscard]] std::string getIsoString(const DateTime& instant, bool compact) const;
    /// A length of milliseconds as "+01:00"; what is less than a minute is cut off.
    static std::string toString(long long milliseconds);

    // --- statics

    /// Process-wide. The default zone: the system's one, or what `TARVIK_TZ` or `setDefault` said.
    static TimeZone CustomDefaultTZ;
    /// Process-wide. Whether `TARVIK_TZ` has been looked at.
    static bool HaveEnvTZ;

private:
    // Fills this zone from the clock of the C library around `now`.
    void calcDst(std::time_t now);
    void calcTz(std::time_t now);

    // Both rules are valid, and their months far enough apart.
    [[nodiscard]] bool hasUsableRules() const;
    [[nodiscard]] bool hasDaylightSaving() const { return dstLength != 0 && isValid(); }

    bool flag = false;
    long long offset = 0;
    long long dstLength = 0;
    DSTTimeDef dstStart;
    DSTTimeDef dstEnd;
};

}  // namespace TarvikCorelib
