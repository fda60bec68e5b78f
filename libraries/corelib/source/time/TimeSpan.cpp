#include "libraries/corelib/source/time/TimeSpan.h"

#include "libraries/corelib/source/time/TimeArithmetic.h"
#include "libraries/corelib/source/time/TimeUnits.h"

#include <cmath>

namespace TarvikCorelib {

namespace {

using TimeArithmetic::saturatingAdd;
using TimeArithmetic::saturatingMultiply;
using TimeArithmetic::saturatingSubtract;

constexpr long long millisecondsPerMonth = 2'629'746'000;
constexpr long long millisecondsPerYear = 31'556'952'000;

// Wide enough for any three fields.
__extension__ using Total = __int128;

Total totalOf(long long years, long long months, long long milliseconds) {
    return Total{years} * millisecondsPerYear + Total{months} * millisecondsPerMonth + milliseconds;
}

double ratio(Total total, long long unit) {
    return static_cast<double>(total) / static_cast<double>(unit);
}

long long scaled(long long value, double factor) {
    constexpr double beyondHighest = 0x1p63;
    const double product = static_cast<double>(value) * factor;
    if (std::isnan(product)) return 0;
    if (product >= beyondHighest) return TimeArithmetic::highest;
    if (product < -beyondHighest) return TimeArithmetic::lowest;
    return static_cast<long long>(product);
}

}  // namespace

TimeSpan::TimeSpan(long long years, long long months, long long days, long long hours,
                   long long minutes, long long seconds, long long milliseconds) {
    set(years, months, days, hours, minutes, seconds, milliseconds);
}

TimeSpan::TimeSpan(std::string_view text) {
    *this = text;
}

TimeSpan& TimeSpan::operator=(long long newMilliseconds) {
    return *this = TimeSpan(newMilliseconds);
}

void TimeSpan::set(long long newYears, long long newMonths, long long days, long long hours,
                   long long minutes, long long seconds, long long newMilliseconds) {
    years = newYears;
    months = newMonths;
    milliseconds = saturatingMultiply(days, millisecondsPerDay);
    milliseconds = saturatingAdd(milliseconds, saturatingMultiply(hours, millisecondsPerHour));
    milliseconds = saturatingAdd(milliseconds, saturatingMultiply(minutes, millisecondsPerMinute));
    milliseconds = saturatingAdd(milliseconds, saturatingMultiply(seconds, millisecondsPerSecond));
    milliseconds = saturatingAdd(milliseconds, newMilliseconds);
}

TimeSpan& TimeSpan::operator+=(const TimeSpan& other) {
    years = saturatingAdd(years, other.years);
    months = saturatingAdd(months, other.months);
    milliseconds = saturatingAdd(milliseconds, other.milliseconds);
    return *this;
}

TimeSpan& TimeSpan::operator-=(const TimeSpan& other) {
    years = saturatingSubtract(years, other.years);
    months = saturatingSubtract(months, other.months);
    milliseconds = saturatingSubtract(milliseconds, other.milliseconds);
    return *this;
}

TimeSpan& TimeSpan::operator*=(int factor) {
    years = saturatingMultiply(years, factor);
    months = saturatingMultiply(months, factor);
    milliseconds = saturatingMultiply(milliseconds, factor);
    return *this;
}

TimeSpan& TimeSpan::operator*=(double factor) {
    years = scaled(years, factor);
    months = scaled(months, factor);
    milliseconds = scaled(milliseconds, factor);
    return *this;
}

void TimeSpan::invert() {
    *this *= -1;
}

double TimeSpan::countYears() const {
    return ratio(totalOf(years, months, milliseconds), millisecondsPerYear);
}

double TimeSpan::countMonths() const {
    return ratio(totalOf(years, months, milliseconds), millisecondsPerMonth);
}

double TimeSpan::countDays() const {
    return ratio(totalOf(years, months, milliseconds), millisecondsPerDay);
}

double TimeSpan::countHours() const {
    return ratio(totalOf(years, months, milliseconds), millisecondsPerHour);
}

double TimeSpan::countMinutes() const {
    return ratio(totalOf(years, months, milliseconds), millisecondsPerMinute);
}

double TimeSpan::countSeconds() const {
    return ratio(totalOf(years, months, milliseconds), millisecondsPerSecond);
}

long long TimeSpan::countMilliseconds(bool withMonths) const {
    if (!withMonths) return milliseconds;
    const Total total = totalOf(years, months, milliseconds);
    if (total > TimeArithmetic::highest) return TimeArithmetic::highest;
    if (total < TimeArithmetic::lowest) return TimeArithmetic::lowest;
    return static_cast<long long>(total);
}

int TimeSpan::compare(const TimeSpan& other) const {
    const Total mine = totalOf(years, months, milliseconds);
    const Total theirs = totalOf(other.years, other.months, other.milliseconds);
    return (mine > theirs ? 1 : 0) - (mine < theirs ? 1 : 0);
}

}  // namespace TarvikCorelib
