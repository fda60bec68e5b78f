// Any text as a span, and any fields; printed, read again, added, multiplied and compared.

#include "libraries/corelib/source/time/TimeSpan.h"

#include <cmath>
#include <cstring>

#include "fuzz/Feed.h"

namespace {

using fuzz::check;
using TarvikCorelib::TimeSpan;

void checkSpan(const TimeSpan& span) {
    const std::string text(span);
    const TimeSpan again(text);
    check(span.isZero() == (text == "P"));
    check(std::isfinite(span.countYears() + span.countMonths() + span.countDays()));
    check(std::isfinite(span.countHours() + span.countMinutes() + span.countSeconds()));
    if (span.isNegative()) return;
    check(again.getYears() == span.getYears() && again.getMonths() == span.getMonths());
    check(again.countMilliseconds(false) == span.countMilliseconds(false));
    check(again.compare(span) == 0 && span.countMilliseconds(true) >= 0);
}

}  // namespace

// A text, ended by a zero byte; behind it the fields of a span, and a factor.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Feed feed(data, size);
    TimeSpan read(feed.text());
    checkSpan(read);
    // Braces, so that the numbers are taken in this order.
    TimeSpan span{feed.number(), feed.number(), feed.number(), feed.number(),
                  feed.number(), feed.number(), feed.number()};
    checkSpan(span);
    check(read.compare(span) == -span.compare(read));
    checkSpan(read += span);
    checkSpan(read -= span);
    const long long factor = feed.number();
    double real = 0;
    std::memcpy(&real, &factor, sizeof real);
    checkSpan(read *= static_cast<int>(factor));
    checkSpan(span *= real);
    span.invert();
    checkSpan(span);
    return 0;
}
