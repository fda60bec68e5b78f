// Rounding an instant to a boundary of the clock or of the calendar.

#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/time/TimeArithmetic.h"

namespace TarvikCorelib {

namespace {

using TimeArithmetic::moved;
using TimeArithmetic::movedBack;
using TimeArithmetic::saturatingAdd;

constexpr TimeType dayStep = millisecondsPerDay;
constexpr TimeType weekStep = millisecondsPerWeek;

// Moves an instant, on the clock of a zone, by what `shift` does to the count of that clock. If
// that crosses a change of daylight saving, the clock was read with the wrong offset: corrected by
// the shift.
template <class Shift>
void moveOnClock(DateTime& instant, const TimeZone& zone, Shift shift) {
    const bool before = zone.isDST(instant);
    const long long difference = zone.getGmtLocalDiff(instant);
    instant.set(movedBack(shift(moved(instant.time(), difference)), difference));
    const bool after = zone.isDST(instant);
    if (before && !after) instant.set(moved(instant.time(), zone.getDstLength()));
    if (!before && after) instant.set(movedBack(instant.time(), zone.getDstLength()));
}

TimeType backToMonday(TimeType count) {
    return movedBack(count, DateTimeDetails(count).getWeekDay() * millisecondsPerDay);
}

// The first of the month at midnight.
DateTimeDetails monthOf(const DateTimeDetails& details) {
    return {details.getYear(), details.getMonth(), 1, 0, 0, 0, 0, details.isLocal()};
}

// One step further if a boundary lies before the instant.
DateTimeDetails monthBoundary(const DateTimeDetails& details, long long step) {
    DateTimeDetails boundary = monthOf(details);
    boundary.setTimeZone(details.getTimeZone());
    boundary.setMonth(details.getMonth() - (details.getMonth() - 1) % step);
    if (boundary.compare(details) < 0) boundary.setMonth(saturatingAdd(boundary.getMonth(), step));
    boundary.normalize();
    return boundary;
}

DateTimeDetails yearBoundary(const DateTimeDetails& details, long long step) {
    DateTimeDetails boundary = monthOf(details);
    boundary.setTimeZone(details.getTimeZone());
    boundary.setMonth(1);
    boundary.setYear(details.getYear() - details.getYear() % step);
    if (boundary.compare(details) < 0) boundary.setYear(saturatingAdd(boundary.getYear(), step));
    boundary.normalize();
    return boundary;
}

}  // namespace

void DateTime::alignGmt(TimeType step) {
    if (step < 2) return;
    if (step == weekStep)
        count = backToMonday(count - count % dayStep);
    else
        count -= count % step;
}

void DateTime::alignTZ(TimeType step, const TimeZone& other) {
    if (step < 2) return;
    const TimeType firstStep = step == weekStep ? dayStep : step;
    moveOnClock(*this, other, [=](TimeType local) { return local - local % firstStep; });
    if (step == weekStep) moveOnClock(*this, other, backToMonday);
}

void DateTime::alignGmtMonths(long long step) {
    if (step > 0) count = monthBoundary(getGmt(), step).getTimeType();
}

void DateTime::alignLocalMonths(long long step) {
    if (!zone.isSet()) zone.setCurrent(false);
    if (step > 0) count = monthBoundary(getLocal(), step).getTimeType();
}

void DateTime::alignGmtYears(long long step) {
    if (step > 0) count = yearBoundary(getGmt(), step).getTimeType();
}

void DateTime::alignLocalYears(long long step) {
    if (!zone.isSet()) zone.setCurrent(false);
    if (step > 0) count = yearBoundary(getLocal(), step).getTimeType();
}

}  // namespace TarvikCorelib
