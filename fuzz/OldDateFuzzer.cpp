// Any text as a date of the older library, and any numbers as its fields.

#include "shared/library/common/DateTime.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <stdexcept>

#include "fuzz/Feed.h"

namespace {

using fuzz::check;
using Tarvik::DateTime;
using Tarvik::TzDef;

// Before the zone is subtracted, an instant lies in the years from 1970 to 2038.
void checkInstant(const DateTime& instant) {
    constexpr long year2039 = 2177452800;
    const TzDef& zone = instant.getZone();
    const long standard = instant.getInternalTime() + (zone.set ? zone.offset : 0);
    const long daylight = standard + zone.dstShift;
    check((standard >= 0 && standard < year2039) || (daylight >= 0 && daylight < year2039));
}

void checkText(const std::string& text) {
    Tarvik::DateTimeT fields;
    fields.date.fromString(text);
    fields.zone.fromString(text, DateTime(fields));
    checkInstant(DateTime(fields));
    fields.zone.fromDstString(text);
    checkInstant(DateTime(fields));
    checkInstant(DateTime(text));
    fields.fromString(text);
    fields.time.fromString(text);
}

void checkFields(const std::array<unsigned, 6>& n) {
    const std::array<unsigned, 6> inRange{1970 + n[0] % 68, 1 + n[1] % 12, 1 + n[2] % 28,
                                          n[3] % 24,        n[4] % 60,     n[5] % 60};
    const auto [year, month, day, hour, minute, second] = inRange;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%u-%u-%uT%u:%u:%u", year, month, day, hour, minute,
                  second);
    const std::chrono::sys_days date(std::chrono::year(static_cast<int>(year)) /
                                     std::chrono::month(month) / std::chrono::day(day));
    const long hours = date.time_since_epoch().count() * 24L + hour;
    check(DateTime(text.data()).getInternalTime() == (hours * 60 + minute) * 60 + second);

    std::array<int, 6> any{};
    std::transform(n.begin(), n.end(), any.begin(),
                   [](unsigned field) { return static_cast<int>(field); });
    DateTime instant;
    instant.set(any[0], any[1], any[2], any[3], any[4], any[5], TzDef(), true);
    checkInstant(instant);
}

void setZone(const char* text) {
    TzDef zone;
    zone.fromDstString(text);
    DateTime::TZSet = true;
    DateTime::setDefaultTZ(zone);
}

}  // namespace

// A byte chooses the zone of texts without one. A text follows, ended by a zero byte, then fields.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Feed feed(data, size);
    setZone(feed.byte() % 2 == 0 ? "+00:00" : "+10:00 (+01:00 10M1W6D2H-4M1W6D3H)");
    try {
        checkText(feed.text());
    } catch (const std::out_of_range&) {
        // A compact time of five digits.
    }
    std::array<unsigned, 6> numbers{};
    for (std::size_t i = 0; i < 4 * numbers.size(); ++i)
        numbers[i / 4] = numbers[i / 4] << 8 | feed.byte();
    setZone("+00:00");
    checkFields(numbers);
    return 0;
}
