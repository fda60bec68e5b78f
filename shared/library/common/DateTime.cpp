#include "shared/library/common/DateTime.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>

namespace Tarvik {

namespace {

// Year, month, day, hour, minute, second: in the order in which a cut field cuts the next.
using Fields = std::array<int, 6>;

constexpr Fields firstFields{1970, 1, 1, 0, 0, 0};
constexpr Fields lastFields{2038, 1, 19, 3, 14, 7};
// The limits of single fields; the day has a tighter one, by its month.
constexpr Fields highestFields{2038, 12, 31, 23, 59, 59};

// Every fourth year is a leap year from 1970 to 2038.
constexpr int daysIn(int year, int month) {
    constexpr std::array<int, 12> lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month == 2 && year % 4 == 0) return 29;
    return lengths[static_cast<std::size_t>(month - 1)];
}

constexpr Fields inRange(const Fields& given) {
    Fields fields{};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        fields[i] = std::clamp(given[i], firstFields[i], highestFields[i]);
    }
    fields[2] = std::min(fields[2], daysIn(fields[0], fields[1]));

    // Quirk: the chain ends at the first field that needs no cut, so the result can still be after
    // the last instant.
    if (given[0] <= lastFields[0]) return fields;
    for (std::size_t i = 1; i < fields.size() && fields[i] > lastFields[i]; ++i) {
        fields[i] = lastFields[i];
    }
    return fields;
}

// Seconds since 1970 of fields that are in their ranges.
constexpr long secondsInGmt(const Fields& fields) {
    const auto date = std::chrono::year(fields[0]) /
                      std::chrono::month(static_cast<unsigned>(fields[1])) /
                      std::chrono::day(static_cast<unsigned>(fields[2]));
    const std::chrono::sys_days day(date);
    const long hours = day.time_since_epoch().count() * 24L + fields[3];
    return (hours * 60 + fields[4]) * 60 + fields[5];
}
static_assert(secondsInGmt(lastFields) == DateTime::Max);

}  // namespace

DateTime::DateTime(const std::string& text) {
    set(text);
}

DateTime::DateTime(const DateTimeT& fields) {
    set(fields);
}

void DateTime::set(const DateTimeT& fields) {
    const DateT& date = fields.date;
    const TimeT& time = fields.time;
    set(date.year, date.month, date.day, time.hour, time.minute, time.second, fields.zone, true);
}

void DateTime::set(int year, int month, int day, int hour, int minute, int second,
                   const TzDef& zone, bool applyDst) {
    long seconds = secondsInGmt(inRange({year, month, day, hour, minute, second}));
    this->zone = zone;
    if (zone.set) seconds = wrappingDifference(seconds, zone.offset);
    setInternalTime(seconds);
    if (applyDst && zone.isDst(*this)) {
        setInternalTime(wrappingDifference(seconds, zone.dstShift));
    }
}

}  // namespace Tarvik
