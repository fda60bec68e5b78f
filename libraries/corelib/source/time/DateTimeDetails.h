/// An instant as calendar fields.
#pragma once

#include "libraries/corelib/source/time/TimeUnits.h"
#include "libraries/corelib/source/time/TimeZone.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib {

class DateTime;
class TimeSpan;

/// Year to millisecond in the Gregorian calendar, in GMT or in local time, with the zone that gives
/// "local" its meaning.
///
/// The fields may hold any values: an object knows whether they are normalized, that is within
/// their ranges, and each operation that needs it works on a normalized copy. So month 13 or day 32
/// carry over, and day 0 is the last day of the month before. Dates before 1900 are no instants,
/// and a day below 1 stays there as it is. Nothing overflows; sums stop at the ends of their type.
///
///     DateTimeDetails details(2024, 1, 31, 0, 0, 0, 0, false);
///     details += TimeSpan("P1M");
///     details.getString(false, false, false);  // "2024-03-02T00:00:00Z"
///     details.setDay(0);
///     details.normalize();
///     details.getDay();                                                // 29
///     std::string(details - DateTimeDetails("2023-12-24T00:00:00Z"));  // "P2M5D"
class DateTimeDetails {
public:
    /// 1900-01-01T00:00:00 GMT without a zone.
    DateTimeDetails() = default;
    DateTimeDetails(long long year, long long month, long long day, long long hour,
                    long long minute, long long second, long long millisecond, bool local);
    explicit DateTimeDetails(const DateTime& instant);
    explicit DateTimeDetails(TimeType count);
    DateTimeDetails(TimeType count, const TimeZone& zone);
    explicit DateTimeDetails(std::string_view text);
    DateTimeDetails(const DateTimeDetails&) = default;
    DateTimeDetails& operator=(const DateTimeDetails&) = default;
    virtual ~DateTimeDetails() = default;

    // --- setting

    /// Takes fields of any values and normalizes them. The zone stays.
    void set(long long newYear, long long newMonth, long long newDay, long long newHour,
             long long newMinute, long long newSecond, long long newMillisecond, bool newLocal);
    /// The fields of an instant in GMT. A zone that is valid is taken over.
    /// Quirk: count 0 gives 1 January 1900, as count 86400000 does.
    void set(const DateTime& instant);
    void set(TimeType count);
    void set(TimeType count, const TimeZone& newZone);
    /// Reads a date, a time and a zone, of which each may be missing:
    ///
    ///   text = [ date ] [ "T" [ time ] [ "Z" ] [ zone ] ]
    ///   date = yyyy ["-"] mm ["-"] dd        time = hh [":"] mm [":"] ss ["." | ":"] mmm
    ///   zone = a text for `TimeZone`; with neither a "Z" nor a sign in front, behind one blank
    ///
    /// Fields end at their width or at a separator. The text is not checked: a field without digits
    /// is 0, and so is a missing one; only a missing date leaves 1900-01-01. The fields are GMT
    /// with a "Z", local otherwise. Without a zone in the text the one of this object stays; with a
    /// time, an unset zone becomes that of the system.
    /// Quirk: milliseconds are not scaled, so ".5" is 5 of them.
    /// Quirk: only "T" ends the date, so behind a blank a time is ignored.
    void set(std::string_view text);
    /// The present in GMT, changed by `modifySystemTime` if that is set. The zone stays.
    void setCurrent();
    /// The latest instant there is.
    void setEnd();
    void reset() { *this = DateTimeDetails(); }
    /// Fields of any values; they are normalized when it is needed.
    void setYear(long long value) { change(year, value); }
    void setMonth(long long value) { change(month, value); }
    void setDay(long long value) { change(day, value); }
    void setHour(long long value) { change(hour, value); }
    void setMinute(long long value) { change(minute, value); }
    void setSecond(long long value) { change(second, value); }
    void setMillisecond(long long value) { change(millisecond, value); }
    /// Says what the fields mean, and changes none of them.
    void setLocal(bool value) { local = value; }
    void setTimeZone(const TimeZone& value) { zone = value; }

    // --- normalizing

    /// Brings all fields into their ranges, the smaller ones first, and counts week, weekday and
    /// day of the year anew. Days that are borrowed from before 1900 end in month 0 of 1899.
    void normalize();
    /// The first half of it: negative fields borrow from the next larger one; a month below 1 from
    /// the year, and then, from 1900 on, a day below 1 from the months before.
    void ensureNoNegativeValues();
    /// The second half: fields above their ranges carry into the next larger one.
    void ensureValuesWithinLimits();

    // --- reading

    enum class Field : std::uint8_t {
        Year,
        Month,
        Day,
        Hour,
        Minute,
        Second,
        Millisecond,
        Week,
        WeekDay,
        YearDay,
    };
    [[nodiscard]] long long getVal(Field field) const;
    [[nodiscard]] long long getYear() const { return year; }
    [[nodiscard]] long long getMonth() const { return month; }  ///< 1 to 12.
    [[nodiscard]] long long getDay() const { return day; }      ///< 1 to 31.
    [[nodiscard]] long long getHour() const { return hour; }
    [[nodiscard]] long long getMinute() const { return minute; }
    [[nodiscard]] long long getSecond() const { return second; }
    [[nodiscard]] long long getMillisecond() const { return millisecond; }
    /// These three belong to the fields as they were last normalized.
    [[nodiscard]] long long getWeek() const { return week; }        ///< See the static one.
    [[nodiscard]] long long getWeekDay() const { return weekDay; }  ///< 0 Monday to 6 Sunday.
    [[nodiscard]] long long getYearDay() const { return yearDay; }  ///< 1 for 1 January.
    [[nodiscard]] bool isNormalized() const { return normalized; }
    [[nodiscard]] bool isLocal() const { return local; }  ///< Otherwise GMT.
    [[nodiscard]] const TimeZone& getTimeZone() const { return zone; }
    /// Whether all fields are as after `reset`, whatever the zone.
    [[nodiscard]] bool isReset() const;

    /// The instant. Local fields without a zone are taken in the system's zone. In the hour that is
    /// repeated when daylight saving ends, daylight time is assumed.
    /// Quirk: in the hour that is skipped, too, so its instants are those of the hour before.
    [[nodiscard]] DateTime getDateTime() const;
    [[nodiscard]] TimeType getTimeType() const;

    /// Prints "2010-01-02T03:04:05.006Z", or "20100102T030405.006Z" if `compact`; the milliseconds
    /// only if asked for, the "Z" only for GMT. `withZone` adds the whole offset of the zone.
    /// Quirk: behind the "Z" as well, though the clock is that of GMT.
    [[nodiscard]] std::string getString(bool milliseconds, bool compact, bool withZone) const;

    // --- views

    /// Turn the fields into local time or GMT, the same instant; nothing to do if they are already.
    /// Without a zone the object takes the system's; one that is not valid is replaced by it.
    void makeLocal();
    void makeLocal(const TimeZone& newZone);
    void makeGmt();

    /// -1, 0 or 1. Two local or two GMT objects are compared field by field, zones ignored; of a
    /// mixed pair the local one is turned into GMT first.
    [[nodiscard]] int compare(const DateTimeDetails& other) const;

    // --- arithmetic

    /// Adds milliseconds, then months, then years, normalizing after each; a negative span (see
    /// `TimeSpan::isNegative`) adds years and months together first. `-=` is the reverse: years and
    /// months first, unless the span is negative. So 31 January and a month is 3 March.
    DateTimeDetails& operator+=(const TimeSpan& span);
    DateTimeDetails& operator-=(const TimeSpan& span);

    // --- the calendar

    static bool isLeapYear(long long year);
    /// 0 for a month that does not exist.
    static long long getDaysInMonth(long long year, long long month);
    /// Leap years from 1901 on that lie before this year, negative before 1897.
    static long long countLeapYears(long long year);
    /// Days from 1900 on that lie before this year.
    static long long countDays(long long year);
    /// The number of the day, 1 for 1 January 1900. Months are taken into 1 to 12 here and below.
    /// Quirk: years before 1900 count as 1900 here.
    static long long countDays(long long year, long long month, long long day);
    /// The number of the week. It is that of ISO 8601 with two differences.
    /// Quirk: the weeks of a year that begins on a Friday run from Sunday to Saturday.
    /// Quirk: the last days of December are never in week 1 of the next year.
    static long long getWeek(long long year, long long month, long long day);
    static long long getWeekDay(long long year, long long month, long long day);
    static long long getYearDay(long long year, long long month, long long day);
    /// Decimal with leading zeros, as `printf` fills up to a width; a sign counts as a digit.
    static std::string format(long long value, int width);

    using SystemTimeHook = void (*)(DateTimeDetails& present);
    /// Process-wide. Null, or called with the present whenever the clock is read: it may change the
    /// fields, so that a host can simulate the clock. Must not read the clock itself.
    static SystemTimeHook modifySystemTime;

private:
    void change(long long& field, long long value) {
        field = value;
        normalized = false;
    }
    [[nodiscard]] bool isWithinRanges() const;
    // Of local fields: their own, or the system's if that is unset.
    [[nodiscard]] TimeZone zoneInForce() const;
    void countWeekAndDay();
    void balanceMonths();
    void borrowDays();
    void carryDays();
    void addMilliseconds(long long amount);
    void addMonths(long long years, long long months);

    long long year = 1900;
    long long month = 1;
    long long day = 1;
    long long hour = 0;
    long long minute = 0;
    long long second = 0;
    long long millisecond = 0;
    long long week = 1;
    long long weekDay = 0;
    long long yearDay = 1;
    bool normalized = true;
    bool local = false;
    TimeZone zone{TimeZone::Unset()};
};

DateTimeDetails operator+(DateTimeDetails details, const TimeSpan& span);
DateTimeDetails operator-(DateTimeDetails details, const TimeSpan& span);
/// The span from `b` to `a`, negative if `a` is earlier. In one month it is milliseconds alone,
/// otherwise years, months and the rest; days are borrowed from the month of the earlier date.
TimeSpan operator-(const DateTimeDetails& a, const DateTimeDetails& b);

}  // namespace TarvikCorelib
