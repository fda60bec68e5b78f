// Zones as text: reading and printing.

#include "libraries/corelib/source/match/GlobMatcher.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"
#include "libraries/corelib/source/text/StringToolsSplit.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/PaddedNumber.h"
#include "libraries/corelib/source/time/TimeArithmetic.h"
#include "libraries/corelib/source/time/TimeZone.h"

#include <array>
#include <string>

namespace TarvikCorelib {

namespace {

using StringTools::toInt64;
using TimeArithmetic::saturatingSubtract;

bool matchesAny(std::string_view text, std::string_view glob, std::string_view otherGlob) {
    return GlobMatcher::match(text, glob) || GlobMatcher::match(text, otherGlob);
}

// An offset without rules, such as "-05:30" or "-0530", in milliseconds; 0 for any other text.
long long parsePlain(std::string_view text) {
    std::size_t minutes = 0;
    if (matchesAny(text, "+??:??", "-??:??"))
        minutes = 4;
    else if (matchesAny(text, "+????", "-????"))
        minutes = 3;
    else
        return 0;
    const long long length = toInt64(text.substr(1, 2)) * millisecondsPerHour +
                             toInt64(text.substr(minutes, 2)) * millisecondsPerMinute;
    return text.front() == '-' ? -length : length;
}

char* writeLength(char* out, long long milliseconds, bool compact) {
    *out++ = milliseconds < 0 ? '-' : '+';
    // Cut before the sign is dropped: the lowest number has no positive counterpart.
    const long long hours = milliseconds / millisecondsPerHour;
    const long long minutes = milliseconds % millisecondsPerHour / millisecondsPerMinute;
    out = writePadded(out, hours < 0 ? -hours : hours, 2);
    if (!compact) *out++ = ':';
    return writePadded(out, minutes < 0 ? -minutes : minutes, 2);
}

std::string lengthText(long long milliseconds, bool compact) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): what is used is written before.
    std::array<char, 2 * maxPaddedNumber> buffer;
    return {buffer.data(), writeLength(buffer.data(), milliseconds, compact)};
}

}  // namespace

void TimeZone::set(std::string_view text, const DateTime& reference) {
    if (GlobMatcher::match(text, "???:?? (???:?? *M*W*D*H-*M*W*D*H)")) {
        setFull(text);
    } else if (matchesAny(text, "+????*", "-????*")) {
        setISO(text);
    } else {
        // The reference's zone may be this object, so it is not cleared before.
        setNumber(toInt64(text), reference);
    }
}

void TimeZone::setFull(std::string_view text) {
    reset();
    flag = true;
    std::string rest(text);
    offset = parsePlain(StringTools::split(rest, ' '));
    StringTools::split(rest, '(');
    dstLength = parsePlain(StringTools::split(rest, ' '));
    dstStart.fromString(StringTools::split(rest, '-'));
    dstEnd.fromString(StringTools::split(rest, ')'));
    if (hasUsableRules()) return;
    dstLength = 0;
    dstStart.reset();
    dstEnd.reset();
}

void TimeZone::setISO(std::string_view text) {
    reset();
    flag = true;
    offset = parsePlain(text);
}

void TimeZone::setISO(std::string_view text, const DateTime& reference) {
    flag = true;
    offset = parsePlain(text);
    if (isDST(reference)) offset -= dstLength;
}

void TimeZone::setNumber(long long number, const DateTime& reference) {
    constexpr long long maxMinutes = 1'000'000;
    const bool isMinutes = number >= -maxMinutes && number <= maxMinutes;
    const TimeZone& model = reference.getTimeZone();
    flag = true;
    dstLength = model.dstLength;
    dstStart = model.dstStart;
    dstEnd = model.dstEnd;
    offset = saturatingSubtract(isMinutes ? number * millisecondsPerMinute : number, dstLength);
}

std::string TimeZone::getString() const {
    std::string text = toString(offset);
    if (!hasDaylightSaving()) return text;
    return text.append(" (")
        .append(toString(dstLength))
        .append(" ")
        .append(dstStart.toString())
        .append("-")
        .append(dstEnd.toString())
        .append(")");
}

std::string TimeZone::getIsoString(const DateTime& instant, bool compact) const {
    return lengthText(getGmtLocalDiff(instant), compact);
}

std::string TimeZone::toString(long long milliseconds) {
    return lengthText(milliseconds, false);
}

}  // namespace TarvikCorelib
