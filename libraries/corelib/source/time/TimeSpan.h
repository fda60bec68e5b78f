/// A length of time.
#pragma once

#include <string>
#include <string_view>

namespace TarvikCorelib {

/// Years, months and milliseconds, each of which may be negative.
///
/// Days, hours, minutes and seconds are part of the milliseconds, so "1 day" and "24 hours" are the
/// same span. Years and months stay apart, because their length depends on where they are applied.
/// No operation overflows: a field stops at the ends of its type.
///
///     const TimeSpan span("P1MT90S");
///     std::string(span);              // "P1MT1M30S"
///     span.countMilliseconds(false);  // 90000
///     span.countMilliseconds(true);   // 2629836000, with a month of the mean length
class TimeSpan {
public:
    TimeSpan() = default;
    explicit TimeSpan(long long milliseconds) : milliseconds(milliseconds) {}
    TimeSpan(long long years, long long months, long long days, long long hours, long long minutes,
             long long seconds, long long milliseconds);
    /// Reads the text of a duration; see the assignment below.
    explicit TimeSpan(std::string_view text);
    TimeSpan(const TimeSpan&) = default;
    TimeSpan& operator=(const TimeSpan&) = default;
    virtual ~TimeSpan() = default;

    /// A span of nothing but milliseconds.
    TimeSpan& operator=(long long milliseconds);
    /// Reads an ISO 8601 duration such as "P1Y2M3DT4H5M6.7S"; letters but the "P" and the "T" may
    /// be small. Without a "P" the span is zero; all before the first one is ignored.
    ///
    /// The text is not checked. Characters that mean nothing here are skipped and do not end a
    /// number, so "P1W2D" is 12 days; a number without a letter is ignored. A fraction is
    /// read in seconds only.
    /// Quirk: years and months replace earlier ones; the other parts add up.
    /// Quirk: a "T" does not end a number, so "P5T3H" is 53 hours.
    /// Quirk: more than three digits of a fraction are milliseconds as they stand: ".2345" is 2345.
    /// Quirk: the sign of a fraction is that of the whole seconds, so "PT-0.5S" is positive.
    TimeSpan& operator=(std::string_view text);
    void set(long long years, long long months, long long days, long long hours, long long minutes,
             long long seconds, long long milliseconds);
    void reset() { *this = TimeSpan(); }

    /// The text form that is read above, without what is zero; "P" alone for a zero span. Seconds
    /// have three decimals or none.
    /// Quirk: -1 ms is "PT-0.001S", which reads back as +1 ms.
    explicit operator std::string() const;

    /// Field by field.
    TimeSpan& operator+=(const TimeSpan& other);
    TimeSpan& operator-=(const TimeSpan& other);
    TimeSpan& operator*=(int factor);
    /// Fractions of a field are cut off; what is no number counts as 0.
    TimeSpan& operator*=(double factor);
    void invert();

    [[nodiscard]] bool isZero() const { return years == 0 && months == 0 && milliseconds == 0; }
    /// One negative field is enough.
    [[nodiscard]] bool isNegative() const { return years < 0 || months < 0 || milliseconds < 0; }

    [[nodiscard]] long long getYears() const { return years; }
    [[nodiscard]] long long getMonths() const { return months; }

    /// The whole span in one unit, fraction included. A year counts as 365.2425 days and a month as
    /// a twelfth of it.
    [[nodiscard]] double countYears() const;
    [[nodiscard]] double countMonths() const;
    [[nodiscard]] double countDays() const;
    [[nodiscard]] double countHours() const;
    [[nodiscard]] double countMinutes() const;
    [[nodiscard]] double countSeconds() const;
    /// Without `withMonths` the milliseconds alone; months and years are left out.
    [[nodiscard]] long long countMilliseconds(bool withMonths) const;

    /// -1, 0 or 1 by the whole length, counted as above: 12 months equal a year, and 30 days are
    /// less than a month.
    [[nodiscard]] int compare(const TimeSpan& other) const;

private:
    long long years = 0;
    long long months = 0;
    long long milliseconds = 0;
};

}  // namespace TarvikCorelib
