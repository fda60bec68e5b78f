#include "libraries/corelib/source/time/DateTimeDetails.h"

#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/TimeArithmetic.h"

#include <tuple>

namespace TarvikCorelib {

namespace {

using TimeArithmetic::floorDivide;
using TimeArithmetic::floorModulo;
using TimeArithmetic::saturatingAdd;

constexpr long long firstYear = 1900;
constexpr long long monthsPerYear = 12;

// A field as many times above or below its range as needed, moved into it at the expense of the
// next larger one.
void balance(long long& field, long long range, long long& larger) {
    larger = saturatingAdd(larger, floorDivide(field, range));
    field = floorModulo(field, range);
}

void borrow(long long& field, long long range, long long& larger) {
    if (field < 0) balance(field, range, larger);
}

void carry(long long& field, long long range, long long& larger) {
    if (field >= range) balance(field, range, larger);
}

}  // namespace

constinit DateTimeDetails::SystemTimeHook DateTimeDetails::modifySystemTime = nullptr;

DateTimeDetails::DateTimeDetails(long long year, long long month, long long day, long long hour,
                                 long long minute, long long second, long long millisecond,
                                 bool local) {
    set(year, month, day, hour, minute, second, millisecond, local);
}

DateTimeDetails::DateTimeDetails(const DateTime& instant) {
    set(instant);
}

DateTimeDetails::DateTimeDetails(TimeType count) {
    set(count);
}

DateTimeDetails::DateTimeDetails(TimeType count, const TimeZone& zone) {
    set(count, zone);
}

DateTimeDetails::DateTimeDetails(std::string_view text) {
    set(text);
}

void DateTimeDetails::set(long long newYear, long long newMonth, long long newDay,
                          long long newHour, long long newMinute, long long newSecond,
                          long long newMillisecond, bool newLocal) {
    year = newYear;
    month = newMonth;
    day = newDay;
    hour = newHour;
    minute = newMinute;
    second = newSecond;
    millisecond = newMillisecond;
    local = newLocal;
    normalized = false;
    normalize();
}

void DateTimeDetails::set(const DateTime& instant) {
    set(instant.time(), instant.getTimeZone());
}

void DateTimeDetails::set(TimeType count, const TimeZone& newZone) {
    set(count);
    if (newZone.isValid()) zone = newZone;
}

void DateTimeDetails::setEnd() {
    set(DateTime::getMaxTime());
}

void DateTimeDetails::normalize() {
    if (normalized) return;
    ensureNoNegativeValues();
    ensureValuesWithinLimits();
    countWeekAndDay();
    normalized = true;
}

// Both ways, since the length of a month can only be asked once it exists.
void DateTimeDetails::balanceMonths() {
    month = saturatingAdd(month, -1);
    balance(month, monthsPerYear, year);
    ++month;
}

void DateTimeDetails::ensureNoNegativeValues() {
    borrow(millisecond, 1000, second);
    borrow(second, 60, minute);
    borrow(minute, 60, hour);
    borrow(hour, 24, day);
    if (month < 1 || month > monthsPerYear) balanceMonths();
    if (year >= firstYear && day < 1) borrowDays();
}

void DateTimeDetails::ensureValuesWithinLimits() {
    carry(millisecond, 1000, second);
    carry(second, 60, minute);
    carry(minute, 60, hour);
    carry(hour, 24, day);
    if (month > monthsPerYear) balanceMonths();
    // A month below 1 has no length: nothing can be carried out of it.
    if (month >= 1 && day > getDaysInMonth(year, month)) carryDays();
}

long long DateTimeDetails::getVal(Field field) const {
    switch (field) {
    case Field::Year: return year;
    case Field::Month: return month;
    case Field::Day: return day;
    case Field::Hour: return hour;
    case Field::Minute: return minute;
    case Field::Second: return second;
    case Field::Millisecond: return millisecond;
    case Field::Week: return week;
    case Field::WeekDay: return weekDay;
    case Field::YearDay: return yearDay;
    }
    return 0;
}

bool DateTimeDetails::isReset() const {
    const auto fields = [](const DateTimeDetails& of) {
        return std::tie(of.year, of.month, of.day, of.hour, of.minute, of.second, of.millisecond,
                        of.week, of.weekDay, of.yearDay, of.normalized, of.local);
    };
    return fields(*this) == fields(DateTimeDetails());
}

DateTime DateTimeDetails::getDateTime() const {
    return DateTime(*this);
}

void DateTimeDetails::makeLocal() {
    makeLocal(zone);
}

void DateTimeDetails::makeLocal(const TimeZone& newZone) {
    if (local) return;
    zone = newZone;
    if (!zone.isSet()) zone.setCurrent(false);
    *this = DateTime(getTimeType()).getTZ(zone);
}

TimeZone DateTimeDetails::zoneInForce() const {
    TimeZone inForce(zone);
    if (!inForce.isSet()) inForce.setCurrent(false);
    return inForce;
}

void DateTimeDetails::makeGmt() {
    if (local) *this = getDateTime().getGmt();
}

int DateTimeDetails::compare(const DateTimeDetails& other) const {
    const auto inOrder = [](const DateTimeDetails& a, const DateTimeDetails& b) {
        const auto fields = [](const DateTimeDetails& of) {
            return std::tie(of.year, of.month, of.day, of.hour, of.minute, of.second,
                            of.millisecond);
        };
        return (fields(a) > fields(b) ? 1 : 0) - (fields(a) < fields(b) ? 1 : 0);
    };
    DateTimeDetails mine(*this);
    DateTimeDetails theirs(other);
    mine.normalize();
    theirs.normalize();
    if (local != other.local) {
        mine.makeGmt();
        theirs.makeGmt();
    }
    return inOrder(mine, theirs);
}

}  // namespace TarvikCorelib
