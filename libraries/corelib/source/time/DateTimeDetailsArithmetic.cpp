// Dates and spans.
//
// Months and years have no fixed length, so the order in which the parts of a span are applied
// decides what 31 January and a month is. The fields are normalized after each step: a day that the
// month lacks carries over into the next one, here 3 March.

#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/time/TimeArithmetic.h"
#include "libraries/corelib/source/time/TimeSpan.h"

namespace TarvikCorelib {

namespace {

using TimeArithmetic::saturatingAdd;
using TimeArithmetic::saturatingSubtract;

// A difference of fields that may borrow one from the next larger field.
void borrow(long long& difference, long long range, long long& larger) {
    if (difference >= 0) return;
    difference += range;
    larger = saturatingSubtract(larger, 1);
}

// From the earlier date to a later one in another month.
TimeSpan spanBetween(const DateTimeDetails& earlier, const DateTimeDetails& later) {
    long long years = saturatingSubtract(later.getYear(), earlier.getYear());
    long long months = saturatingSubtract(later.getMonth(), earlier.getMonth());
    long long days = saturatingSubtract(later.getDay(), earlier.getDay());
    long long hours = saturatingSubtract(later.getHour(), earlier.getHour());
    long long minutes = saturatingSubtract(later.getMinute(), earlier.getMinute());
    long long seconds = saturatingSubtract(later.getSecond(), earlier.getSecond());
    long long milliseconds = saturatingSubtract(later.getMillisecond(), earlier.getMillisecond());
    borrow(milliseconds, 1000, seconds);
    borrow(seconds, 60, minutes);
    borrow(minutes, 60, hours);
    borrow(hours, 24, days);
    borrow(days, DateTimeDetails::getDaysInMonth(earlier.getYear(), earlier.getMonth()), months);
    borrow(months, 12, years);
    return {years, months, days, hours, minutes, seconds, milliseconds};
}

}  // namespace

DateTimeDetails& DateTimeDetails::operator+=(const TimeSpan& span) {
    const long long milliseconds = span.countMilliseconds(false);
    if (span.isNegative()) {
        addMonths(span.getYears(), span.getMonths());
        addMilliseconds(milliseconds);
    } else {
        addMilliseconds(milliseconds);
        addMonths(0, span.getMonths());
        addMonths(span.getYears(), 0);
    }
    return *this;
}

DateTimeDetails& DateTimeDetails::operator-=(const TimeSpan& span) {
    TimeSpan reverse(span);
    reverse.invert();
    const long long milliseconds = reverse.countMilliseconds(false);
    if (span.isNegative()) {
        addMilliseconds(milliseconds);
        addMonths(0, reverse.getMonths());
        addMonths(reverse.getYears(), 0);
    } else {
        addMonths(reverse.getYears(), reverse.getMonths());
        addMilliseconds(milliseconds);
    }
    return *this;
}

// Broken into parts first, so that no field has to take them all.
void DateTimeDetails::addMilliseconds(long long amount) {
    day = saturatingAdd(day, amount / millisecondsPerDay);
    amount %= millisecondsPerDay;
    hour = saturatingAdd(hour, amount / millisecondsPerHour);
    amount %= millisecondsPerHour;
    minute = saturatingAdd(minute, amount / millisecondsPerMinute);
    amount %= millisecondsPerMinute;
    second = saturatingAdd(second, amount / millisecondsPerSecond);
    millisecond = saturatingAdd(millisecond, amount % millisecondsPerSecond);
    normalized = false;
    normalize();
}

void DateTimeDetails::addMonths(long long years, long long months) {
    year = saturatingAdd(year, years);
    month = saturatingAdd(month, months);
    normalized = false;
    normalize();
}

DateTimeDetails operator+(DateTimeDetails details, const TimeSpan& span) {
    details += span;
    return details;
}

DateTimeDetails operator-(DateTimeDetails details, const TimeSpan& span) {
    details -= span;
    return details;
}

TimeSpan operator-(const DateTimeDetails& a, const DateTimeDetails& b) {
    DateTimeDetails first(a);
    DateTimeDetails second(b);
    first.normalize();
    second.normalize();
    if (first.isLocal() != second.isLocal()) {
        first.makeGmt();
        second.makeGmt();
    }
    const TimeType firstCount = first.getTimeType();
    const TimeType secondCount = second.getTimeType();
    if (firstCount == secondCount) return {};
    if (first.getYear() == second.getYear() && first.getMonth() == second.getMonth())
        return TimeSpan(TimeArithmetic::difference(firstCount, secondCount));
    if (firstCount > secondCount) return spanBetween(second, first);
    TimeSpan span = spanBetween(first, second);
    span.invert();
    return span;
}

}  // namespace TarvikCorelib
