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

// Instants end early in 2038: its own changes would never be reached.
constexpr long lastYearOfChanges = 2037;
constexpr unsigned long lastYearComputed = 9999;

// Unsigned, since the difference of two open numbers may need all bits.
constexpr unsigned long distance(long one, long other) {
    const long later = std::max(one, other);
    return static_cast<unsigned long>(wrappingDifference(later, std::min(one, other)));
}

constexpr bool isBetween(long value, long low, long high) {
    return low <= value && value <= high;
}

// Weeks and days below their ranges pass, too.
constexpr bool isUsable(const DstDef& change) {
    return isBetween(change.month, 1, 12) && change.week <= 5 && change.day <= 6;
}

// Narrower than `isUsable`, which decides whether a zone is valid.
constexpr bool isInRange(const DstDef& change) {
    return isUsable(change) && change.week >= 1 && change.day >= 0 && isBetween(change.hour, 0, 23);
}

// Without them both changes are at 0, so no instant is in daylight time.
bool hasChanges(const TzDef& zone) {
    return zone.isValid() && isInRange(zone.dstStart) && isInRange(zone.dstEnd);
}

// The instant of a change as if its hour were in GMT.
long changeInGmt(const DstDef& change, unsigned long year) {
    const auto firstOfMonth =
        std::chrono::year(static_cast<int>(std::min(year, lastYearComputed))) /
        std::chrono::month(static_cast<unsigned>(change.month)) / 1;
    const std::chrono::sys_days first(firstOfMonth);
    const long firstWeekday = std::chrono::weekday(first).iso_encoding() - 1L;
    const long monthLength =
        (std::chrono::sys_days(firstOfMonth + std::chrono::months(1)) - first).count();

    // Quirk: counts the weeks that end in the month, not the occurrences of the weekday.
    const long restOfMonth = monthLength - (firstWeekday == 6 ? 1 : daysPerWeek - firstWeekday);
    const long week = std::min(change.week, (restOfMonth + daysPerWeek) / daysPerWeek);

    const long daysToFirstOccurrence = (change.day - firstWeekday + daysPerWeek) % daysPerWeek;
    const long day =
        first.time_since_epoch().count() + daysToFirstOccurrence + (week - 1) * daysPerWeek;
    return day * secondsPerDay + change.hour * secondsPerHour;
}

// The year in GMT. Instants far out are brought near, which keeps them on their side of all changes
// and within the years of the calendar.
unsigned long yearOf(const DateTime& moment) {
    const long time = std::clamp(moment.getInternalTime(), -DateTime::Max, DateTime::Max);
    const auto day =
        std::chrono::floor<std::chrono::days>(std::chrono::sys_seconds(std::chrono::seconds(time)));
    const long year = int{std::chrono::year_month_day(day).year()};
    return static_cast<unsigned long>(std::min(year, lastYearOfChanges));
}

// The number at the start of the text; 0 if there is none.
long decimal(std::string_view digits) {
    return std::strtol(std::string(digits).c_str(), nullptr, 10);
}

// Minutes beyond 32 bits are cut to the largest or smallest number of 32 bits.
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

    // Quirk: four characters or more behind the sign are an offset, even if that cannot be read:
    // "+12345" is GMT, not a number of minutes.
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
    // In the north daylight time is between the changes, in the south outside them.
    if (start < end) {
        if (untilStart > dstShift || sinceEnd >= dstShift) return NotInDaylightTime;
        if (time >= start) return InDaylightTime;
    } else {
        if (time >= start || untilEnd > dstShift) return InDaylightTime;
        if (untilStart >= dstShift && sinceEnd >= dstShift) return NotInDaylightTime;
    }
    // Within a shift of a change.
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
