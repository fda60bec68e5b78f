// The system's zone, found by watching the clock of the C library.
//
// The clock says what the local time of any instant is, but not by which rules. So it is stepped
// through the present year hour by hour: where its hour jumps, daylight saving begins or ends. Each
// change is put into words as a rule ("the last Sunday of March at 2"). The offset is then asked
// for at a moment outside of daylight saving. That is up to 8760 calls, some tenths of a
// millisecond, so the result is kept for an hour.
//
// Quirk: shifts of half an hour are not seen, or taken for an hour if the year begins with one. Of
// two changes within 90 days the second is missed.

#include "libraries/corelib/source/time/TimeUnits.h"
#include "libraries/corelib/source/time/TimeZone.h"

#include <algorithm>
#include <array>
#include <ctime>

namespace TarvikCorelib {

namespace {

constexpr std::time_t secondsPerHour = 3600;
constexpr std::time_t afterChange = secondsPerHour * 24 * 90;
constexpr int september = 8;

std::tm localTime(std::time_t instant) {
    std::tm fields{};
    localtime_r(&instant, &fields);
    return fields;
}

std::time_t localInstant(int year, int month, int day, int hour) {
    std::tm fields{};
    fields.tm_year = year;
    fields.tm_mon = month;
    fields.tm_mday = day;
    fields.tm_hour = hour;
    fields.tm_isdst = -1;  // Whatever is in force then.
    return std::mktime(&fields);
}

// Hours by which the clock went back between one hour and the next, or 0. Both may lie on two days.
int hoursBack(int before, int after) {
    if (before >= after && before - after < 5) return before - after + 1;
    return after - before > 19 ? before - after + 25 : 0;
}

// Hours by which it went forward, or 0.
int hoursForward(int before, int after) {
    if (after > before + 1) return after - before - 1;
    const bool isMidnight = before == 23 && after == 0;
    return before - after > 18 && !isMidnight ? after - before + 23 : 0;
}

// The rule for a change at the end of this hour.
// Quirk: the fourth of a weekday counts as the last, and a change at midnight has hour 24, which no
// valid rule has.
DSTTimeDef ruleAt(const std::tm& hourBefore) {
    const int week = (hourBefore.tm_mday - 1) / 7 + 1;
    return {.month = static_cast<std::int8_t>(hourBefore.tm_mon + 1),
            .week = static_cast<std::int8_t>(week == 4 ? 5 : week),
            .day = static_cast<std::int8_t>((hourBefore.tm_wday + 6) % 7),
            .hour = static_cast<std::int8_t>(hourBefore.tm_hour + 1)};
}

}  // namespace

std::time_t toTime(const std::tm& fields) {
    constexpr int firstYear = 70;
    constexpr int lastYear = 138;
    constexpr std::array<int, 12> daysBefore = {0,   31,  59,  90,  120, 151,
                                                181, 212, 243, 273, 304, 334};
    if (fields.tm_year < firstYear || fields.tm_year > lastYear) return -1;
    // Among these years each fourth is a leap year.
    const bool isLeap = fields.tm_year % 4 == 0;
    const int month = std::clamp(fields.tm_mon, 0, 11);
    const std::time_t days = std::time_t{fields.tm_year - firstYear} * 365 +
                             (fields.tm_year - 69) / 4 +
                             daysBefore[static_cast<std::size_t>(month)] +
                             (isLeap && month > 1 ? 1 : 0) + std::time_t{fields.tm_mday} - 1;
    return ((days * 24 + fields.tm_hour) * 60 + fields.tm_min) * 60 + fields.tm_sec;
}

void TimeZone::calcDst(std::time_t now) {
    const int year = localTime(now).tm_year;
    const std::time_t end = localInstant(year, 11, 31, 23);
    std::time_t at = localInstant(year, 0, 1, 0);
    std::tm before = localTime(at);
    for (at += secondsPerHour; at <= end; at += secondsPerHour) {
        const std::tm after = localTime(at);
        const int back = hoursBack(before.tm_hour, after.tm_hour);
        const int forward = back == 0 ? hoursForward(before.tm_hour, after.tm_hour) : 0;
        if (back == 0 && forward == 0) {
            before = after;
            continue;
        }
        (back != 0 ? dstEnd : dstStart) = ruleAt(before);
        dstLength = (back + forward) * millisecondsPerHour;
        if (before.tm_mon > september) return;
        at += afterChange;
        before = localTime(at);
    }
}

// Quirk: only the month is changed, so on its last days the moment may lie in the month behind it.
// Quirk: from 2039 on the moment is -1, one second before 1970. East of GMT the offset is that of
// 1970 then; elsewhere the local side is -1 too, and the offset 0.
void TimeZone::calcTz(std::time_t now) {
    const std::time_t hour = now - now % secondsPerHour;
    std::tm fields{};
    gmtime_r(&hour, &fields);
    fields.tm_mon = dstStart.month > 1 ? dstStart.month - 2 : 11;
    const std::time_t outside = toTime(fields);
    std::tm there = localTime(outside);
    there.tm_isdst = 0;
    offset = (toTime(there) - outside) * millisecondsPerSecond;
}

}  // namespace TarvikCorelib
