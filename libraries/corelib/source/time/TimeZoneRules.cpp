// When daylight saving is in force.
//
// Both changes of a year are computed from their rules whenever an instant is asked about: some
// fifty nanoseconds, and nothing to keep.

#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/time/TimeArithmetic.h"
#include "libraries/corelib/source/time/TimeZone.h"

#include <algorithm>
#include <cstdlib>

namespace TarvikCorelib {

namespace {

using TimeArithmetic::difference;
using TimeArithmetic::floorModulo;
using TimeArithmetic::moved;
using TimeArithmetic::movedBack;

// Milliseconds since the two changes, negative before them. The instant may be off by the shift.
DSTNearness northernTest(long long sinceStart, long long sinceEnd, long long shift) {
    if (sinceStart < -shift) return NotInDaylightTime;
    if (sinceEnd >= shift) return NotInDaylightTime;
    if (sinceStart >= 0) return InDaylightTime;
    return -sinceStart < std::llabs(sinceEnd) ? NearDaylightStart : NearDaylightEnd;
}

DSTNearness southernTest(long long sinceStart, long long sinceEnd, long long shift) {
    if (sinceStart >= 0 || sinceEnd < -shift) return InDaylightTime;
    if (sinceEnd > shift && sinceStart < -shift) return NotInDaylightTime;
    return -sinceStart < std::llabs(sinceEnd) ? NearDaylightStart : NearDaylightEnd;
}

}  // namespace

bool TimeZone::isValid() const {
    constexpr long long maxOffset = 12 * millisecondsPerHour;
    if (offset < -maxOffset || offset > maxOffset) return false;
    return dstLength == 0 || hasUsableRules();
}

bool TimeZone::hasUsableRules() const {
    if (!dstStart.isValid() || !dstEnd.isValid()) return false;
    const int distance = std::abs(dstStart.month - dstEnd.month);
    return distance >= 2 && distance <= 10;
}

bool TimeZone::isDST(const DateTime& instant) const {
    if (!hasDaylightSaving()) return false;
    const long long year = instant.getGmt().getYear();
    const TimeType start = getDstStart(year);
    const TimeType end = getDstEnd(year);
    const TimeType at = instant.time();
    if (start == end) return false;
    if (start < end) return start <= at && at < end;
    // In the south it lasts over the end of the year.
    return at >= start || at < end;
}

DSTNearness TimeZone::dstQuickTest(const DateTime& instant) const {
    if (!isValid()) return UnknownDaylight;
    if (dstLength == 0) return NotInDaylightTime;
    const long long year = instant.getGmt().getYear();
    const TimeType start = getDstStart(year);
    const TimeType end = getDstEnd(year);
    if (start == end) return NotInDaylightTime;
    const long long sinceStart = difference(instant.time(), start);
    const long long sinceEnd = difference(instant.time(), end);
    return start < end ? northernTest(sinceStart, sinceEnd, dstLength)
                       : southernTest(sinceStart, sinceEnd, dstLength);
}

TimeType TimeZone::getDstStart(long long year) const {
    if (!hasDaylightSaving()) return 0;
    return getDstChangeTime(year, dstStart.month, dstStart.week, dstStart.day, dstStart.hour);
}

TimeType TimeZone::getDstEnd(long long year) const {
    if (!hasDaylightSaving()) return 0;
    return movedBack(getDstChangeTime(year, dstEnd.month, dstEnd.week, dstEnd.day, dstEnd.hour),
                     dstLength);
}

TimeType TimeZone::getDstChangeTime(long long year, long long month, long long week, long long day,
                                    long long hour) const {
    DateTimeDetails first;
    prepareDTD(first, year, month, hour);
    const long long weekDay = first.getWeekDay();
    const long long firstSunday = weekDay > 5 ? 1 : 7 - weekDay;
    const long long daysInMonth =
        DateTimeDetails::getDaysInMonth(first.getYear(), first.getMonth());
    const long long sundays = (daysInMonth - firstSunday + 7) / 7;
    const long long weeksAhead = std::max(1LL, std::min(week, sundays)) - 1;
    const long long daysAhead = floorModulo(floorModulo(day, 7) - weekDay, 7) + 7 * weeksAhead;
    const TimeType change = moved(first.getTimeType(), daysAhead * millisecondsPerDay);
    return movedBack(change, offset);
}

long long TimeZone::getGmtLocalDiff(const DateTime& instant) const {
    if (isValid()) return isDST(instant) ? offset + dstLength : offset;
    TimeZone system{Unset()};
    system.setCurrent(false);
    // Nobody asks a third time: an offset without a shift is the best there is.
    return system.isDST(instant) ? system.offset + system.dstLength : system.offset;
}

void TimeZone::prepareDTD(DateTimeDetails& details, long long year, long long month,
                          long long hour) {
    details.set(year, month, 1, hour, 0, 0, 0, false);
}

}  // namespace TarvikCorelib
