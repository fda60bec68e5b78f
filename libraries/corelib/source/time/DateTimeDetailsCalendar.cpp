// The calendar: days, weeks and months as numbers, and an instant as fields.
//
// From a day's number to its date one needs the year first. The Gregorian calendar repeats after
// 400 years, 146097 days, so the number is split into whole periods and the day within one. Periods
// begin on 1 March: then the leap day is the last of its year, and the months before a day follow
// from its number by a straight line. What weeks and days of the year need of a year is in a table
// of one period. So no step loops or branches, and a count takes some nine nanoseconds.

#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/time/TimeArithmetic.h"

#include <algorithm>
#include <array>

namespace TarvikCorelib {

namespace {

using TimeArithmetic::floorDivide;
using TimeArithmetic::floorModulo;
using TimeArithmetic::saturatingAdd;
using TimeArithmetic::saturatingMultiply;
using TimeArithmetic::saturatingSubtract;

constexpr long long firstYear = 1900;
constexpr long long monthsPerYear = 12;
constexpr long long daysPerPeriod = 146'097;
constexpr long long yearsPerPeriod = 400;

constexpr bool isLeap(long long year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// Days of a year without leap day that lie before a month, January being 1.
constexpr std::array<int, 14> daysBefore = {0,   0,   31,  59,  90,  120, 151,
                                            181, 212, 243, 273, 304, 334, 365};

constexpr long long daysBeforeMonth(long long year, long long month) {
    const auto index = static_cast<std::size_t>(std::clamp(month, 1LL, monthsPerYear));
    return daysBefore[index] + (index > 2 && isLeap(year) ? 1 : 0);
}

// The day of the year on which week 1 begins, by the weekday of 1 January, Monday first; 0 and
// below lie in December.
// Quirk: on 3 January in a year that begins on a Friday, which is a Sunday.
constexpr std::array<std::int16_t, 7> firstDayOfWeeks = {1, 0, -1, -2, 3, 3, 2};

// A day as the period that it lies in, period 0 beginning on 1 March of year 0, and its number
// there, from 0.
struct PeriodDay {
    long long period = 0;
    unsigned int day = 0;
};

// 31 December 1899, day 0 of the time scale, in days from the beginning of period 0.
constexpr long long daysToDayZero = 693'900;

constexpr PeriodDay periodDayOf(long long dayNumber) {
    const auto days = static_cast<unsigned long long>(dayNumber + daysToDayZero);
    return {static_cast<long long>(days / daysPerPeriod),
            static_cast<unsigned int>(days % daysPerPeriod)};
}

// The day may be beyond its month on either side, and the year may be any.
constexpr PeriodDay periodDayOf(long long year, long long month, long long day) {
    const long long marchYear = month > 2 ? year : saturatingSubtract(year, 1);
    const long long yearOfPeriod = floorModulo(marchYear, yearsPerPeriod);
    const long long monthFromMarch = month > 2 ? month - 3 : month + 9;
    const long long dayOfYear = (153 * monthFromMarch + 2) / 5;
    const long long daysAhead = saturatingSubtract(day, 1);
    const long long days = yearOfPeriod * 365 + yearOfPeriod / 4 - yearOfPeriod / 100 + dayOfYear +
                           floorModulo(daysAhead, daysPerPeriod);
    return {floorDivide(marchYear, yearsPerPeriod) + floorDivide(daysAhead, daysPerPeriod) +
                days / daysPerPeriod,
            static_cast<unsigned int>(days % daysPerPeriod)};
}

// What weeks and days of the year depend on.
struct YearOfPeriod {
    std::int16_t leapDays = 0;  // 1 in a leap year.
    std::int16_t newYear = 0;   // The weekday of 1 January, 0 being Monday.
    std::int16_t firstDay = 0;  // The day of the year on which week 1 begins.
};

// The last row is year 0 of the next period, for the January and February that this one ends with.
constexpr auto yearsOfPeriod = [] {
    std::array<YearOfPeriod, yearsPerPeriod + 1> years{};
    std::int16_t newYear = 5;  // Year 0 begins on a Saturday.
    for (std::size_t year = 0; year < years.size(); ++year) {
        const std::int16_t leapDays = isLeap(static_cast<long long>(year)) ? 1 : 0;
        years[year] = {.leapDays = leapDays,
                       .newYear = newYear,
                       .firstDay = firstDayOfWeeks[static_cast<std::size_t>(newYear)]};
        newYear = static_cast<std::int16_t>((newYear + 1 + leapDays) % 7);
    }
    return years;
}();

// Not before the first day. Unsigned, which divides faster.
constexpr unsigned int weekOf(int yearDay, YearOfPeriod year) {
    return static_cast<unsigned int>(yearDay - year.firstDay) / 7 + 1;
}

struct Date {
    long long year = 0;
    long long month = 0;
    long long day = 0;
    int yearDay = 0;
    YearOfPeriod ofYear;
};

constexpr Date dateOf(PeriodDay at) {
    // In quarters of a day a century has 146097 and a year in it 1461.
    const unsigned int century = (4 * at.day + 3) / 146'097;
    const unsigned int dayOfCentury = at.day - century * 146'097 / 4;
    const unsigned int quarters = 4 * dayOfCentury + 3;
    const unsigned int dayOfYear = quarters % 1461 / 4;
    // A day is 2141 parts of a month that has 65536; the rest of the line gives March the number 3.
    const unsigned int months = 2141 * dayOfYear + 197'913;
    const bool isNextYear = dayOfYear >= 306;
    const unsigned int year = 100 * century + quarters / 1461 + (isNextYear ? 1 : 0);
    const YearOfPeriod ofYear = yearsOfPeriod[year];
    return {.year = saturatingAdd(saturatingMultiply(at.period, yearsPerPeriod), year),
            .month = months / 65'536 - (isNextYear ? 12 : 0),
            .day = months % 65'536 / 2141 + 1,
            .yearDay = static_cast<int>(dayOfYear) + (isNextYear ? -305 : 60 + ofYear.leapDays),
            .ofYear = ofYear};
}

}  // namespace

bool DateTimeDetails::isLeapYear(long long year) {
    return isLeap(year);
}

long long DateTimeDetails::getDaysInMonth(long long year, long long month) {
    if (month < 1 || month > monthsPerYear) return 0;
    if (month == 2 && isLeap(year)) return 29;
    const auto index = static_cast<std::size_t>(month);
    return daysBefore[index + 1] - daysBefore[index];
}

long long DateTimeDetails::countLeapYears(long long year) {
    // Of the years 1 to 1900.
    constexpr long long leapYearsBefore = 460;
    const long long before = saturatingSubtract(year, 1);
    return before / 4 - before / 100 + before / 400 - leapYearsBefore;
}

long long DateTimeDetails::countDays(long long year) {
    const long long ordinary = saturatingMultiply(saturatingSubtract(year, firstYear), 365);
    return saturatingAdd(ordinary, countLeapYears(year));
}

long long DateTimeDetails::countDays(long long year, long long month, long long day) {
    const long long daysBeforeYear = year > firstYear ? countDays(year) : 0;
    return saturatingAdd(daysBeforeYear, saturatingAdd(daysBeforeMonth(year, month), day));
}

long long DateTimeDetails::getWeek(long long year, long long month, long long day) {
    const long long yearDay = getYearDay(year, month, day);
    const long long newYear = getWeekDay(year, 1, 1);
    const long long firstDay = firstDayOfWeeks[static_cast<std::size_t>(newYear)];
    // The first days of January can belong to the last week of the year before.
    if (month == 1 && yearDay < firstDay)
        return getWeek(saturatingSubtract(year, 1), monthsPerYear, 31);
    return saturatingSubtract(yearDay, firstDay) / 7 + 1;
}

long long DateTimeDetails::getWeekDay(long long year, long long month, long long day) {
    // Day 1 is a Monday.
    return floorModulo(saturatingSubtract(countDays(year, month, day), 1), 7);
}

long long DateTimeDetails::getYearDay(long long year, long long month, long long day) {
    return saturatingAdd(daysBeforeMonth(year, month), day);
}

TimeType DateTimeDetails::getTimeType() const {
    if (!normalized) {
        DateTimeDetails copy(*this);
        copy.normalize();
        return copy.getTimeType();
    }

    const long long days = countDays(year, month, day);
    const long long clock = hour * millisecondsPerHour + minute * millisecondsPerMinute +
                            second * millisecondsPerSecond + millisecond;
    TimeType count = 0;
    if (days > 0 && __builtin_mul_overflow(days, millisecondsPerDay, &count))
        return DateTime::getMaxTime();
    if (days >= 0) count = TimeArithmetic::moved(count, clock);
    if (!local) return count;

    const TimeZone inForce = zoneInForce();
    count = TimeArithmetic::movedBack(count, inForce.getOffset());
    const DSTNearness nearness = inForce.dstQuickTest(DateTime(count));
    if (nearness != InDaylightTime && nearness != NearDaylightEnd) return count;
    return TimeArithmetic::movedBack(count, inForce.getDstLength());
}

void DateTimeDetails::set(TimeType count) {
    local = false;
    normalized = true;
    // Quirk: count 0 is not shown as the day before 1 January 1900 but as that day.
    if (count == 0) count = static_cast<TimeType>(millisecondsPerDay);

    const TimeType dayNumber = count / millisecondsPerDay;
    const PeriodDay at = periodDayOf(static_cast<long long>(dayNumber));
    const Date date = dateOf(at);
    year = date.year;
    month = date.month;
    day = date.day;
    if (year < firstYear || date.yearDay < date.ofYear.firstDay) {
        countWeekAndDay();
    } else {
        yearDay = date.yearDay;
        weekDay = (at.day + 2) % 7;  // Each period begins on a Wednesday.
        week = weekOf(date.yearDay, date.ofYear);
    }

    auto clock = static_cast<unsigned int>(count - dayNumber * millisecondsPerDay);
    millisecond = clock % 1000;
    clock /= 1000;
    second = clock % 60;
    clock /= 60;
    minute = clock % 60;
    hour = clock / 60;
}

// By the table for the dates that there are, since a date is parsed faster then; by the static
// functions for others.
void DateTimeDetails::countWeekAndDay() {
    if (!normalized || year <= firstYear) {
        yearDay = getYearDay(year, month, day);
        weekDay = getWeekDay(year, month, day);
        week = getWeek(year, month, day);
        return;
    }
    const YearOfPeriod ofYear =
        yearsOfPeriod[static_cast<std::size_t>(floorModulo(year, yearsPerPeriod))];
    const int dayOfYear = daysBefore[static_cast<std::size_t>(month)] +
                          (month > 2 ? ofYear.leapDays : 0) + static_cast<int>(day);
    yearDay = dayOfYear;
    weekDay = (ofYear.newYear + dayOfYear + 6) % 7;
    week = dayOfYear < ofYear.firstDay ? getWeek(year, month, day) : weekOf(dayOfYear, ofYear);
}

void DateTimeDetails::borrowDays() {
    const PeriodDay at = periodDayOf(year, month, day);
    const long long dayNumber = saturatingSubtract(
        saturatingAdd(saturatingMultiply(at.period, daysPerPeriod), at.day), daysToDayZero);
    if (dayNumber > 0) {
        carryDays();
        return;
    }
    // Month by month the loan would end here: there is no December of 1899 to borrow from.
    year = firstYear - 1;
    month = 0;
    day = dayNumber;
}

void DateTimeDetails::carryDays() {
    const Date date = dateOf(periodDayOf(year, month, day));
    year = date.year;
    month = date.month;
    day = date.day;
}

}  // namespace TarvikCorelib
