#include "shared/library/common/TzDef.h"

#include "shared/library/common/DateTime.h"
#include "shared/library/common/StringTools.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <string_view>

namespace Tarvik {

namespace {

constexpr long farthestOffset = 43200;  // Twelve hours.
constexpr long secondsPerMinute = 60;
constexpr long secondsPerHour = 3600;
constexpr long secondsPerDay = 86400;
constexpr long daysPerWeek = 7;

constexpr long lastYearOfChanges = 2037;
constexpr unsigned long lastYearComputed = 9999;

constexpr unsigned long distance(long one, long other) {
    const long later = std::max(one, other);
    return static_cast<unsigned long>(wrappingDifference(later, std::min(one, other)));
}

constexpr bool isBetween(long value, long low, long high) {
    return low <= value && value <= high;
}

constexpr bool isUsable(const DstDef& change) {
    return isBetween(change.month, 1, 12) && change.week <= 5 && change.day <= 6;
}

// Narrower than what a valid zone asks for.
constexpr bool isInRange(const DstDef& change) {
    return isUsable(change) && change.week >= 1 && change.day >= 0 && isBetween(change.hour, 0, 23);
}

// Else both changes are at 0, and a moment is never in daylight time.
bool hasChanges(const TzDef& zone) {
    return zone.isValid() && isInRange(zone.dstStart) && isInRange(zone.dstEnd);
}

// The instant of a change as if its hour was GMT.
long changeInGmt(const DstDef& change, unsigned long year) {
    const auto firstOfMonth =
        std::chrono::year(static_cast<int>(std::min(year, lastYearComputed))) /
        std::chrono::month(static_cast<unsigned>(change.month)) / 1;
    const std::chrono::sys_days first(firstOfMonth);
    const long firstWeekday = std::chrono::weekday(first).iso_encoding() - 1L;
    const long monthLength =
        (std::chrono::sys_days(firstOfMonth + std::chrono::months(1)) - first).count();

    // This counts the weeks that end in the month, not the weekdays in question. On purpose.
    const long restOfMonth = monthLength - (firstWeekday == 6 ? 1 : daysPerWeek - firstWeekday);
    const long week = std::min(change.week, (restOfMonth + daysPerWeek) / daysPerWeek);

    const long daysToFirstOccurrence = (change.day - firstWeekday + daysPerWeek) % daysPerWeek;
    const long day =
        first.time_since_epoch().count() + daysToFirstOccurrence + (week - 1) * daysPerWeek;
    return day * secondsPerDay + change.hour * secondsPerHour;
}

// The year in GMT. Moments far out are brought near, which keeps them on their side of all changes.
unsigned long yearOf(const DateTime& moment) {
    const long time = std::clamp(moment.getInternalTime(), -DateTime::Max, DateTime::Max);
    const auto day =
        std::chrono::floor<std::chrono::days>(std::chrono::sys_seconds(std::chrono::seconds(time)));
    const long year = int{std::chrono::year_month_day(day).year()};
    return static_cast<unsigned long>(std::min(year, lastYearOfChanges));
}

long decimal(std::string_view digits) {
    return std::strtol(std::string(digits).c_str(), nullptr, 10);
}

// Minutes beyond 32 bits count as the farthest ones.
long minutesToSeconds(const std::string& text) {
    using Limits = std::numeric_limits<std::int32_t>;
    return std::clamp<long>(decimal(text), Limits::min(), Limits::max()) * secondsPerMinute;
}

}  // namespace

void DstDef::fromString(const std::string& text) {
    struct Unit {
        char letter;
        long DstDef::*field;
    };
    static constexpr auto units = std::to_array<Unit>(
        {{'M', &DstDef::month}, {'W', &DstDef::week}, {'D', &DstDef::day}, {'H', &DstDef::hour}});

    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto* const unit = std::find_if(
            units.begin(), units.end(), [&](const Unit& row) { return row.letter == text[at]; });
        if (unit == units.end()) continue;
        this->*(unit->field) = decimal(std::string_view(text).substr(begin, at - begin));
        begin = at + 1;
    }
}

bool TzDef::isValid() const {
    if (!isBetween(offset, -farthestOffset, farthestOffset)) return false;
    if (dstShift == 0) return true;
    if (!isUsable(dstStart) || !isUsable(dstEnd)) return false;
    return isBetween(std::abs(dstStart.month - dstEnd.month), 3, 9);
}

void TzDef::fromString(const std::string& text, const DateTime& moment) {
    static constexpr auto dstForm = "???:?? (???:?? *M*W*D*H-*M*W*D*H)";
    if (StringTools::patternMatch(dstForm, text)) {
        fromDstString(text);
        return;
    }

    // With so many characters it is an offset, even if it reads as none and so as GMT: "+12345" are
    // no minutes. On purpose.
    const bool isIso =
        StringTools::patternMatch("+????*", text) || StringTools::patternMatch("-????*", text);
    *this = DateTime::currentTz();
    offset = isIso ? fromIsoToSeconds(text) : minutesToSeconds(text);
    if (isDst(moment)) offset = wrappingDifference(offset, dstShift);
    set = true;
}

void TzDef::fromDstString(std::string text) {
    *this = {};
    set = true;
    offset = fromIsoToSeconds(StringTools::split(text, ' '));
    StringTools::split(text, '(');
    dstShift = fromIsoToSeconds(StringTools::split(text, ' '));
    dstStart.fromString(StringTools::split(text, '-'));
    dstEnd.fromString(StringTools::split(text, ')'));
    if (isInRange(dstStart) && isInRange(dstEnd)) return;

    dstShift = 0;
    dstStart = {};
    dstEnd = {};
}

long TzDef::fromIsoToSeconds(const std::string& text) {
    const std::string_view form = text;
    const bool hasColon = form.size() == 6 && form[3] == ':';
    if (!hasColon && form.size() != 5) return 0;
    if (form[0] != '+' && form[0] != '-') return 0;

    const long hours = decimal(form.substr(1, 2));
    const long minutes = decimal(form.substr(hasColon ? 4 : 3, 2));
    const long seconds = hours * secondsPerHour + minutes * secondsPerMinute;
    return form[0] == '-' ? -seconds : seconds;
}

DstNearness TzDef::dstQuickTest(const DateTime& moment) const {
    const long start = getDstStart(yearOf(moment));
    const long end = getDstEnd(yearOf(moment));
    if (start == end) return NotInDaylightTime;

    const long time = moment.getInternalTime();
    const long untilStart = wrappingDifference(start, time);
    const long untilEnd = wrappingDifference(end, time);
    const long sinceEnd = wrappingDifference(time, end);
    if (start < end) {
        if (untilStart > dstShift || sinceEnd >= dstShift) return NotInDaylightTime;
        if (time >= start) return InDaylightTime;
    } else {
        if (time >= start || untilEnd > dstShift) return InDaylightTime;
        if (untilStart >= dstShift && sinceEnd >= dstShift) return NotInDaylightTime;
    }
    return distance(time, end) <= distance(time, start) ? NearDaylightEnd : NearDaylightStart;
}

bool TzDef::isDst(const DateTime& moment) const {
    const DstNearness nearness = dstQuickTest(moment);
    return nearness == InDaylightTime || nearness == NearDaylightEnd;
}

long TzDef::getDstStart(unsigned long year) const {
    if (!hasChanges(*this)) return 0;
    return changeInGmt(dstStart, year) - offset;
}

long TzDef::getDstEnd(unsigned long year) const {
    if (!hasChanges(*this)) return 0;
    return wrappingDifference(changeInGmt(dstEnd, year) - offset, dstShift);
}

}  // namespace Tarvik
