// The text form of a span:
//
//   span   = "P" [ n "Y" ] [ n "M" ] [ n "D" ] [ "T" [ n "H" ] [ n "M" ] [ n [ "." n ] "S" ] ]

#include "libraries/corelib/source/text/StringToolsNumbers.h"
#include "libraries/corelib/source/time/PaddedNumber.h"
#include "libraries/corelib/source/time/TimeArithmetic.h"
#include "libraries/corelib/source/time/TimeSpan.h"
#include "libraries/corelib/source/time/TimeUnits.h"

#include <array>
#include <cstdlib>
#include <string>

namespace TarvikCorelib {

namespace {

using StringTools::toInt64;
using TimeArithmetic::saturatingAdd;
using TimeArithmetic::saturatingMultiply;
using TimeArithmetic::saturatingSubtract;

constexpr std::size_t fractionDigits = 3;

char* writePart(char* out, long long value, char unit) {
    if (value == 0) return out;
    out = writePadded(out, value, 1);
    *out++ = unit;
    return out;
}

// The sign stands in front, also where the whole seconds are 0.
char* writeSeconds(char* out, long long milliseconds) {
    if (milliseconds == 0) return out;
    if (milliseconds < 0) *out++ = '-';
    const long long magnitude = std::llabs(milliseconds);
    out = writePadded(out, magnitude / millisecondsPerSecond, 1);
    if (magnitude % millisecondsPerSecond != 0) {
        *out++ = '.';
        out = writePadded(out, magnitude % millisecondsPerSecond, fractionDigits);
    }
    *out++ = 'S';
    return out;
}

// Seconds with a fraction, in milliseconds.
long long readSeconds(const std::string& number) {
    const std::size_t point = number.find('.');
    const long long seconds = toInt64(number.substr(0, point));
    const long long whole = saturatingMultiply(seconds, millisecondsPerSecond);
    if (point == std::string::npos) return whole;

    std::string fraction = number.substr(point + 1);
    // Only filled up, never cut: longer fractions are whole numbers.
    if (fraction.size() < fractionDigits) fraction.resize(fractionDigits, '0');
    const long long milliseconds = toInt64(fraction);
    return seconds < 0 ? saturatingSubtract(whole, milliseconds)
                       : saturatingAdd(whole, milliseconds);
}

bool isPartOfNumber(char c) {
    return c == '-' || c == '.' || (c >= '0' && c <= '9');
}

}  // namespace

TimeSpan& TimeSpan::operator=(std::string_view text) {
    reset();
    const std::size_t begin = text.find('P');
    if (begin == std::string_view::npos) return *this;

    bool inTime = false;
    std::string number;
    const auto add = [&](long long unit) {
        milliseconds = saturatingAdd(milliseconds, saturatingMultiply(toInt64(number), unit));
    };
    for (const char c : text.substr(begin + 1)) {
        if (isPartOfNumber(c)) {
            number += c;
            continue;
        }
        switch (c) {
        case 'T': inTime = true; continue;
        case 'Y':
        case 'y':
            if (!inTime) years = toInt64(number);
            break;
        case 'M':
        case 'm':
            if (inTime)
                add(millisecondsPerMinute);
            else
                months = toInt64(number);
            break;
        case 'D':
        case 'd':
            if (!inTime) add(millisecondsPerDay);
            break;
        case 'H':
        case 'h':
            if (inTime) add(millisecondsPerHour);
            break;
        case 'S':
        case 's':
            if (inTime) milliseconds = saturatingAdd(milliseconds, readSeconds(number));
            break;
        default: continue;
        }
        // A letter on the wrong side of the "T" drops its number.
        number.clear();
    }
    return *this;
}

TimeSpan::operator std::string() const {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): what is used is written before.
    std::array<char, 8 * maxPaddedNumber> buffer;
    char* out = buffer.data();
    *out++ = 'P';
    out = writePart(out, years, 'Y');
    out = writePart(out, months, 'M');
    out = writePart(out, milliseconds / millisecondsPerDay, 'D');
    const long long time = milliseconds % millisecondsPerDay;
    if (time != 0) *out++ = 'T';
    out = writePart(out, time / millisecondsPerHour, 'H');
    out = writePart(out, time % millisecondsPerHour / millisecondsPerMinute, 'M');
    out = writeSeconds(out, time % millisecondsPerMinute);
    return {buffer.data(), out};
}

}  // namespace TarvikCorelib
