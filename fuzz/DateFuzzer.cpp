// Any text as a date, any numbers as its fields, and any count; printed, added to and aligned.

#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/time/TimeSpan.h"

#include <array>
#include <cstdlib>
#include <limits>

#include "fuzz/Feed.h"

namespace {

using fuzz::check;
using TarvikCorelib::DateTime;
using TarvikCorelib::DateTimeDetails;
using TarvikCorelib::TimeSpan;
using TarvikCorelib::TimeType;
using TarvikCorelib::TimeZone;

using Numbers = std::array<long long, 15>;

constexpr long long lastYear = std::numeric_limits<long long>::max();

const TimeZone& zone() {
    static const TimeZone value("+01:00 (+01:00 3M5W6D2H-10M5W6D3H)");
    return value;
}

void checkRanges(const DateTimeDetails& details) {
    const auto isWithin = [](long long value, long long low, long long high) {
        return low <= value && value <= high;
    };
    check(details.isNormalized());
    // The last year may have been cut after its day was found.
    if (details.getYear() < 1900 || details.getYear() == lastYear) return;
    const long long length = DateTimeDetails::getDaysInMonth(details.getYear(), details.getMonth());
    check(isWithin(details.getMonth(), 1, 12) && isWithin(details.getDay(), 1, length));
    check(isWithin(details.getHour(), 0, 23) && isWithin(details.getMinute(), 0, 59));
    check(isWithin(details.getSecond(), 0, 59) && isWithin(details.getMillisecond(), 0, 999));
    check(isWithin(details.getWeek(), 1, 53) && isWithin(details.getWeekDay(), 0, 6));
    check(isWithin(details.getYearDay(), details.getDay(), 366));
}

void checkText(const std::string& text) {
    DateTimeDetails details;
    details.setTimeZone(zone());
    details.set(text);
    const std::string printed = details.getString(true, false, true);
    details.normalize();
    checkRanges(details);
    check(details.getString(true, false, true) == printed);
    DateTime instant(0, zone());
    instant.set(text);
    check(instant.time() == details.getTimeType());
    DateTime::mapMonth(text);
    // Every fourth year has a 29 February there.
    if (DateTime::isDate(text) && text >= "1900" && !text.ends_with("00-02-29"))
        check(printed.starts_with(text + "T00:00:00.000"));
}

void checkCount(TimeType count, long long step, const TimeSpan& span) {
    constexpr TimeType firstDay = 86'400'000;
    constexpr TimeType year10000 = 255'611'376'000'000;
    DateTime instant(count, zone());
    check(count < firstDay || instant.getGmt().getTimeType() == count);
    if (count >= firstDay && count < year10000) {
        instant.set(instant.getGmtString(true, step % 2 == 0, false));
        check(instant.time() == count);
    }
    DateTime aligned = instant;
    aligned.alignGmt(static_cast<TimeType>(step));
    check(aligned.time() <= count);
    aligned.alignTZ(static_cast<TimeType>(step), zone());
    aligned.alignLocalMonths(step);
    aligned.alignLocalYears(step);
    for (const auto align : {&DateTime::alignGmtMonths, &DateTime::alignGmtYears}) {
        aligned = instant;
        (aligned.*align)(step);
        check(aligned.time() >= count);
    }
    (instant += span) -= span;
}

void checkFields(const Numbers& n) {
    DateTimeDetails fields(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7] % 2 != 0);
    fields.setTimeZone(zone());
    checkRanges(fields);
    const TimeSpan span(n[8], n[9], 0, 0, 0, 0, n[10]);
    DateTimeDetails sum = fields + span;
    checkRanges(sum);
    checkRanges(fields - span);
    check(sum.compare(fields) == -fields.compare(sum));
    // A count of years that does not fit is cut, to a number without a counterpart below zero.
    if (std::abs(sum.getYear() / 2 - fields.getYear() / 2) < lastYear / 2) {
        TimeSpan difference = sum - fields;
        difference.invert();
        check(std::string(fields - sum) == std::string(difference));
    }
    sum.makeLocal();
    sum.makeGmt();
    sum.setMonth(n[11]);
    sum.setDay(n[12]);
    const std::string printed = sum.getString(true, true, true);
    sum.normalize();
    check(sum.getString(true, true, true) == printed);
    checkRanges(sum);
    DateTime instant(0, zone());
    instant.setLocal(n[0], n[1], n[2], n[3], n[4], n[5], n[6]);
    checkCount(static_cast<TimeType>(n[13]), n[14], span);
    // A week and a day are steps with rules of their own.
    checkCount(instant.time(), n[14] % 2 == 0 ? 604800000 : 86400000, span);
}

}  // namespace

// A text, ended by a zero byte; behind it the numbers.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Feed feed(data, size);
    checkText(feed.text());
    Numbers numbers{};
    for (long long& field : numbers)
        field = feed.number();
    checkFields(numbers);
    return 0;
}
