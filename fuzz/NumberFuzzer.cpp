// Any text as a number, rounded, trimmed and converted; and any number as a text.

#include "libraries/corelib/source/text/StringToolsConvert.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"
#include "libraries/corelib/source/text/StringToolsSearch.h"

#include <cmath>
#include <cstring>

#include "fuzz/Feed.h"

namespace {

namespace StringTools = TarvikCorelib::StringTools;
using fuzz::check;
using StringTools::widen;

std::string rounded(std::string text, std::size_t decimals, bool padWithZeros) {
    return StringTools::roundNumber(text, decimals, padWithZeros);
}

std::string trimmed(std::string text) {
    return StringTools::trimNumber(text);
}

// Digits, and among them at most one "."; a sign in front. Short enough for a `long double`.
bool isNumber(const std::string& text) {
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    return text.size() < 18 && text.size() > first && std::isdigit(text[first]) != 0 &&
           text.find_first_not_of("0123456789.", first) == std::string::npos &&
           StringTools::count(text, '.') < 2;
}

void checkValue(const std::string& text, std::size_t decimals, bool padWithZeros) {
    const std::string result = rounded(text, decimals, padWithZeros);
    const long double value = std::strtold(text.c_str(), nullptr);
    const long double half = std::pow(10.0L, -static_cast<long double>(decimals)) / 2;
    const long double uncertainty = std::fabs(value) * 1e-18L;
    check(std::fabs(std::strtold(result.c_str(), nullptr) - value) <= half + uncertainty);
    check(rounded(result, decimals, padWithZeros) == result);

    const std::string shortest = trimmed(text);
    check(std::strtold(shortest.c_str(), nullptr) == value);
    check(shortest.size() <= text.size() && trimmed(shortest) == shortest);
}

// Narrow and wide agree on any text, a number or not.
void checkTwins(const std::string& text, std::size_t decimals, bool padWithZeros) {
    std::wstring wide = widen(text);
    check(StringTools::roundNumber(wide, decimals, padWithZeros) ==
          widen(rounded(text, decimals, padWithZeros)));
    wide = widen(text);
    check(StringTools::trimNumber(wide) == widen(trimmed(text)));
    wide = widen(text);
    check(StringTools::toInt8(wide) == StringTools::toInt8(text));
    check(StringTools::toUInt32(wide) == StringTools::toUInt32(text));
    check(StringTools::toInt64(wide) == StringTools::toInt64(text));
    check(StringTools::toBool(wide) == StringTools::toBool(text));
    StringTools::toDouble(text);
}

void checkNumber(std::uint64_t bits) {
    const auto number = static_cast<long long>(bits);
    check(StringTools::toInt64(StringTools::toString(number)) == number);
    check(StringTools::toUInt64(StringTools::toWString(bits)) == bits);
    double real = 0;
    std::memcpy(&real, &bits, sizeof real);
    const double again = StringTools::toDouble(StringTools::toString(real));
    StringTools::toWString(real);
    const double magnitude = std::fabs(real);
    if (magnitude >= 1 && magnitude <= 1e15) check(std::fabs(again - real) <= magnitude * 1e-14);
}

}  // namespace

// Two bytes say how to round. The rest is the text; its first eight bytes are also a number.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Feed feed(data, size);
    const std::size_t decimals = feed.byte() % 24;
    const bool padWithZeros = feed.byte() % 2 != 0;
    const std::string text = feed.text();
    checkTwins(text, decimals, padWithZeros);
    if (isNumber(text)) checkValue(text, decimals, padWithZeros);

    std::uint64_t bits = 0;
    std::memcpy(&bits, text.data(), std::min(text.size(), sizeof bits));
    checkNumber(bits);
    return 0;
}
