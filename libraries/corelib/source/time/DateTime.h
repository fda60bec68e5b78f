/// An instant.
#pragma once

#include "libraries/corelib/source/time/TimeUnits.h"
#include "libraries/corelib/source/time/TimeZone.h"

#include <map>
#include <string>
#include <string_view>

namespace TarvikCorelib {

class DateTimeDetails;
class TimeSpan;

/// A count of milliseconds on the scale of `TimeUnits.h`, and the zone for showing it.
///
/// The zone never changes the instant. Years and months are added through the calendar, in
/// `DateTimeDetails`; all else is arithmetic on the count, which stops at its ends: 0 and
/// `getMaxTime`. Bad texts and fields give an odd instant, never an exception.
///
/// A `DateTime` and a `DateTimeDetails` do not always convert into each other around a change of
/// daylight saving: `setLocal` asks the zone about the fields taken as GMT,
/// `DateTimeDetails::getTimeType` asks `TimeZone::dstQuickTest`.
///
///     DateTime instant("2024-02-28T23:30:00Z");
///     instant += TimeSpan("P1DT1H");
///     instant.getGmtString(false, false, false);  // "2024-03-01T00:30:00Z"
///     instant.alignGmt(millisecondsPerDay);
///     instant.getGmtString(true, true, false);  // "20240301T000000.000Z"
class DateTime {
public:
    /// Count 0, in the system's zone.
    DateTime();
    /// Leaves the zone unset, so it is cheap and may be used before `main`.
    explicit DateTime(TimeType count) : count(count) {}
    DateTime(TimeType count, const TimeZone& zone);
    explicit DateTime(const DateTimeDetails& details);
    explicit DateTime(std::string_view text);
    DateTime(const DateTime&) = default;
    DateTime& operator=(const DateTime&) = default;
    virtual ~DateTime() = default;

    // --- setting

    void set(TimeType newCount) { count = newCount; }
    void set(TimeType newCount, const TimeZone& newZone);
    void set(const DateTime& other) { *this = other; }
    /// Takes instant and zone.
    void set(const DateTimeDetails& details);
    /// Reads a date as `DateTimeDetails::set` does. A text without a zone is in the zone of this
    /// object or, if it has none, in the system's one, which it then keeps.
    void set(std::string_view text);
    /// Ignores a zone that is not valid, here and in the setters of a count above. A zone that is
    /// not set is valid, so it replaces one that is.
    void setTimeZone(const TimeZone& newZone);
    /// Build the instant from fields of any value: month 13 is the next January. They are GMT,
    /// local time in the zone of this object, or local time in another zone; the object keeps its
    /// own.
    void setGmt(long long year, long long month, long long day, long long hour, long long minute,
                long long second, long long millisecond);
    void setLocal(long long year, long long month, long long day, long long hour, long long minute,
                  long long second, long long millisecond);
    void setTZ(const TimeZone& other, long long year, long long month, long long day,
               long long hour, long long minute, long long second, long long millisecond);
    /// Count 0, no zone.
    void reset();

    // --- reading

    [[nodiscard]] TimeType time() const { return count; }
    [[nodiscard]] TimeType operator()() const { return count; }
    explicit operator TimeType() const { return count; }
    [[nodiscard]] const TimeZone& getTimeZone() const { return zone; }
    /// -1, 0 or 1 by the instant; zones are ignored.
    [[nodiscard]] int compare(const DateTime& other) const;
    /// The fields in GMT, in the zone of this object, or in another zone. A zone that is not set is
    /// as good as GMT here and in `setLocal`.
    [[nodiscard]] DateTimeDetails getGmt() const;
    [[nodiscard]] DateTimeDetails getLocal() const;
    [[nodiscard]] DateTimeDetails getTZ(const TimeZone& other) const;
    /// Print as `DateTimeDetails::getString`.
    [[nodiscard]] std::string getGmtString(bool milliseconds, bool compact, bool withZone) const;
    [[nodiscard]] std::string getLocalString(bool milliseconds, bool compact, bool withZone) const;

    // --- arithmetic

    /// In GMT. `DateTimeDetails` has the order in which years, months and the rest are added.
    DateTime& operator+=(const TimeSpan& span);
    DateTime& operator-=(const TimeSpan& span);
    /// Adds the shift of the zone's daylight saving.
    void compensateForDSTEndTime();

    /// Round down to a multiple of `step` milliseconds, on the clock of GMT or of a zone. A step of
    /// one week, in milliseconds, goes back to Monday. Steps below 2 do nothing.
    void alignGmt(TimeType step);
    void alignTZ(TimeType step, const TimeZone& other);
    /// Move to the first of a month (of a year) at midnight: to that whose number, from January
    /// (from year 0), is a multiple of `step`, or `step` further if that lies before the instant.
    /// So they move forward unless the instant is on a boundary. Steps below 1 do nothing.
    /// Quirk: a step that does not divide 12 runs on into the next year, and on when repeated.
    void alignGmtMonths(long long step);
    void alignLocalMonths(long long step);
    void alignGmtYears(long long step);
    void alignLocalYears(long long step);

    // --- the clock, limits, texts

    /// The present. Makes no object and may be called before `main`, unless
    /// `DateTimeDetails::modifySystemTime` is set.
    static TimeType getCurrentTime();
    static constexpr TimeType getMinTime() { return 0; }
    static constexpr TimeType getMaxTime() { return ~TimeType{0}; }
    /// Whether a text is a date such as "2010-01-02": of these ten places, from year 1000 on.
    /// Quirk: every fourth year has a 29 February, 1900 and 2100 too.
    static bool isDate(std::string_view text);
    /// The number of a month's short name in English, French or Italian, 0 for others. Letters are
    /// lowered by the process locale. French names with accents are in Latin-1.
    /// Quirk: "Avri" is never found: its entry has a capital letter.
    static int mapMonth(std::string_view text);
    /// Process-wide. The names that `mapMonth` knows; made on first use.
    // NOLINTNEXTLINE(readability-identifier-naming): an accessor keeps the name of its static.
    static const std::map<std::string, int, std::less<>>& MonthMap();

private:
    TimeType count = 0;
    TimeZone zone{TimeZone::Unset()};
};

}  // namespace TarvikCorelib
