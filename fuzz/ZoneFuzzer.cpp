// Any text and any number as a zone, asked about any instant.

#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/time/TimeZone.h"

#include <cstdlib>

#include "fuzz/Feed.h"

namespace {

using fuzz::check;
using TarvikCorelib::DateTime;
using TarvikCorelib::TimeZone;

std::uint64_t takeNumber(fuzz::Feed& feed) {
    std::uint64_t number = 0;
    for (int i = 0; i < 8; ++i)
        number = number << 8 | feed.byte();
    return number;
}

// The long form has whole minutes, and two digits of hours.
bool isPrintable(long long milliseconds) {
    return milliseconds % 60000 == 0 && std::llabs(milliseconds / 60000) < 6000;
}

void checkZone(const TimeZone& zone, const DateTime& instant) {
    const bool isDST = zone.isDST(instant);
    const bool isKnown = zone.dstQuickTest(instant) != TarvikCorelib::UnknownDaylight;
    check(isKnown == zone.isValid() && (isKnown || !isDST));
    const long long difference = zone.getGmtLocalDiff(instant);
    if (isKnown) check(difference == zone.getOffset() + (isDST ? zone.getDstLength() : 0));

    TimeZone again{TimeZone::Unset()};
    again.set(zone.getString(), instant);
    if (isKnown && isPrintable(zone.getOffset()) && isPrintable(zone.getDstLength()))
        check(again.getString() == zone.getString() && again.getOffset() == zone.getOffset());

    static_cast<void>(zone.getIsoString(instant, true));
    static_cast<void>(instant.getTZ(zone).getTimeType());
    static_cast<void>(DateTime(instant.time(), zone).getLocalString(true, false, true));
}

}  // namespace

// An instant and a number, each of eight bytes. The text of the reference's zone follows, then,
// behind a zero byte, another one.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Feed feed(data, size);
    DateTime instant(takeNumber(feed));
    const auto number = static_cast<long long>(takeNumber(feed));
    TimeZone zone{TimeZone::Unset()};
    zone.setFull(feed.text());
    checkZone(zone, instant);
    instant.setTimeZone(zone);

    const std::string text = feed.text();
    zone.setISO(text, instant);
    checkZone(zone, instant);
    zone.setISO(text);
    checkZone(zone, instant);
    zone.set(text, instant);
    checkZone(zone, instant);
    zone.setNumber(number, instant);
    checkZone(zone, instant);

    TarvikCorelib::DSTTimeDef rule;
    rule.fromString(text);
    TarvikCorelib::DSTTimeDef again;
    again.fromString(rule.toString());
    check(again == rule);
    return 0;
}
