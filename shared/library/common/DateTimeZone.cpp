// The zone of a DateTime without one.
//
// The C library knows the system's zone but only says which offset an instant has. The two changes
// of a year are found by that: the offsets at the first of each month show the month of a change,
// and halving that month shows its second. The changes are then put into words as rules ("the last
// Sunday of March at 2"), since a zone record holds rules. That takes some 70 calls of the C
// library, so the changes are kept for their year and the zone for an hour.

#include "shared/library/common/DateTime.h"
#include "shared/library/common/StringTools.h"

#include <chrono>
#include <cstdlib>
#include <ctime>

namespace Tarvik {

namespace {

constexpr long cacheSeconds = 3600;
constexpr long secondsPerHour = 3600;

// The instants at which daylight time begins and ends in one year.
struct YearChanges {
    int year = 0;  // 0 before the first search.
    std::time_t start = 0;
    std::time_t end = 0;
    long shift = 0;  // 0 for no daylight time.
};

struct SystemZone {
    bool known = false;
    std::time_t askedAt = 0;
    YearChanges changes;
    TzDef inForce;
};

constinit TzDef defaultZone;
constinit SystemZone systemZone;

// Seconds east of GMT, daylight shift included.
long offsetAt(std::time_t instant) {
    std::tm fields{};
    return localtime_r(&instant, &fields) == nullptr ? 0 : fields.tm_gmtoff;
}

// The date in GMT, or on a clock whose offset has been added.
std::chrono::year_month_day dateOf(std::time_t instant) {
    return std::chrono::floor<std::chrono::days>(
        std::chrono::sys_seconds(std::chrono::seconds(instant)));
}

std::time_t monthBegin(int year, unsigned month) {
    const std::chrono::sys_days day(std::chrono::year(year) / std::chrono::month(month) / 1);
    return std::chrono::sys_seconds(day).time_since_epoch().count();
}

// The first instant with another offset than `before`. `behind` must have another one, too.
std::time_t changeBetween(std::time_t before, std::time_t behind) {
    const long offset = offsetAt(before);
    while (behind - before > 1) {
        const std::time_t middle = before + (behind - before) / 2;
        if (offsetAt(middle) == offset) {
            before = middle;
        } else {
            behind = middle;
        }
    }
    return behind;
}

// There is daylight time if the offset rises once in the year and falls once by the same amount.
YearChanges changesOf(int year) {
    YearChanges changes{.year = year};
    int rises = 0;
    int falls = 0;
    long risen = 0;
    for (unsigned month = 1; month <= 12; ++month) {
        const std::time_t first = monthBegin(year, month);
        const std::time_t next =
            month == 12 ? monthBegin(year + 1, 1) : monthBegin(year, month + 1);
        const long offset = offsetAt(first);
        const long difference = offsetAt(next) - offset;
        risen += difference;
        if (difference > 0) {
            ++rises;
            changes.start = changeBetween(first, next);
            changes.shift = difference;
        } else if (difference < 0) {
            ++falls;
            changes.end = changeBetween(first, next);
        }
    }
    if (rises != 1 || falls != 1 || risen != 0) changes.shift = 0;
    return changes;
}

// 1 for the first of its weekday in the month, and so on.
long occurrenceAt(std::time_t clock) {
    return (unsigned{dateOf(clock).day()} - 1L) / 7 + 1;
}

// The rule for a change at which the local clock shows this. A weekday that is the last of its
// month counts as the fifth, since a rule for the last one is the usual meaning of that.
DstDef changeAt(std::time_t clock) {
    const std::chrono::year_month_day date = dateOf(clock);
    const std::chrono::sys_days day(date);
    const std::chrono::year_month_day weekLater = day + std::chrono::weeks(1);
    const bool isLast = weekLater.month() != date.month();
    const std::chrono::seconds sinceMidnight =
        std::chrono::sys_seconds(std::chrono::seconds(clock)) - day;
    return {.month = unsigned{date.month()},
            .week = isLast ? 5 : occurrenceAt(clock),
            .day = std::chrono::weekday(day).iso_encoding() - 1L,
            .hour = sinceMidnight.count() / secondsPerHour};
}

// A zone with rules that give the same instants of change with this offset.
TzDef zoneWith(const YearChanges& changes, long offset) {
    TzDef zone;
    zone.set = true;
    zone.offset = offset;
    if (changes.shift == 0) return zone;
    const std::time_t clockAtStart = changes.start + offset;
    const std::time_t clockAtEnd = changes.end + offset + changes.shift;
    zone.dstShift = changes.shift;
    zone.dstStart = changeAt(clockAtStart);
    zone.dstEnd = changeAt(clockAtEnd);

    // In some months a rule for the fifth weekday does not give the last one: then count it.
    const auto year = static_cast<unsigned long>(changes.year);
    if (zone.getDstStart(year) != changes.start) zone.dstStart.week = occurrenceAt(clockAtStart);
    if (zone.getDstEnd(year) != changes.end) zone.dstEnd.week = occurrenceAt(clockAtEnd);
    return zone;
}

void refresh(SystemZone& system, std::time_t now) {
    const int year = int{dateOf(now).year()};
    if (system.changes.year != year) system.changes = changesOf(year);
    system.known = true;
    system.askedAt = now;
    system.inForce = zoneWith(system.changes, offsetAt(now));
    // These changes do not fit a rule, so the zone has none.
    if (!system.inForce.isValid()) system.inForce = zoneWith({}, offsetAt(now));
}

}  // namespace

constinit TzDef* DateTime::DefaultTZ = nullptr;
constinit bool DateTime::TZSet = false;

void DateTime::prepareZones() {
    if (TZSet) return;
    TZSet = true;
    systemZone = {};
    const char* const text = std::getenv("TARVIK_TZ");
    if (text == nullptr || StringTools::trimmed(text).empty()) {
        tzset();
        return;
    }
    TzDef zone;
    zone.fromDstString(text);
    setDefaultTZ(zone);
}

void DateTime::setDefaultTZ(const TzDef& newDefault) {
    if (!newDefault.isValid()) return;
    defaultZone = newDefault;
    DefaultTZ = &defaultZone;
}

const TzDef& DateTime::currentTz() {
    prepareZones();
    return DefaultTZ != nullptr ? *DefaultTZ : calcCurrentTz();
}

const TzDef& DateTime::calcCurrentTz() {
    prepareZones();
    const std::time_t now = std::time(nullptr);
    // A clock that was put back makes the cache stale, like one that ran on for an hour.
    const bool isFresh =
        systemZone.known && now >= systemZone.askedAt && now - systemZone.askedAt < cacheSeconds;
    if (!isFresh) refresh(systemZone, now);
    return systemZone.inForce;
}

}  // namespace Tarvik
