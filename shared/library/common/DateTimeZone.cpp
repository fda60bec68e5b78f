// Which zone a DateTime without one is in.
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
    int year = 0;  // 0 for none.
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

long offsetAt(std::time_t instant) {
    std::tm fields{};
    return localtime_r(&instant, &fields) == nullptr ? 0 : fields.tm_gmtoff;
}

std::chrono::year_month_day dateOf(std::time_t instant) {
    return std::chrono::floor<std::chrono::days>(
        std::chrono::sys_seconds(std::chrono::seconds(instant)));
}

std::time_t monthBegin(int year, unsigned month) {
    const std::chrono::sys_days day(std::chrono::year(year) / std::chrono::month(month) / 1);
    return std::chrono::sys_seconds(day).time_since_epoch().count();
}

// The first instant with another offset than `before`; `behind` has another one too.
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

// Sees the offset at each month's begin, and looks closer only where it changed. Daylight time is
// there if it rises once and falls once by the same.
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

long occurrenceAt(std::time_t clock) {
    return (unsigned{dateOf(clock).day()} - 1L) / 7 + 1;
}

// What the clock shows at a change, in the words of a rule. The fourth of a weekday is taken for
// the last one, if it is that.
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

// The changes in the words of rules that lead to the same instants with this offset.
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

    // Of some weekdays the last cannot be named as the fifth.
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
    // Changes that the record cannot hold.
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
    // A clock that was put back counts as one that ran on.
    const bool isFresh =
        systemZone.known && now >= systemZone.askedAt && now - systemZone.askedAt < cacheSeconds;
    if (!isFresh) refresh(systemZone, now);
    return systemZone.inForce;
}

}  // namespace Tarvik
