/// Numbers as text: written, read, trimmed and rounded.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib::StringTools {

/// Takes the zeros off a decimal number that do not count: "007.50" becomes "7.5". On purpose "0.5"
/// becomes ".5", and "000" stays. A text with anything but digits, "-" and "." stays as it is.
std::string& trimNumber(std::string& text);
std::wstring& trimNumber(std::wstring& text);

/// Rounds a decimal number half up, away from zero, to `decimals` places; with none the "." stays
/// at the end. Fewer places are filled up with zeros if `padWithZeros`. All that begins with "."
/// stays as it is, on purpose, and so does what begins with "-" and is no number, or has two ".";
/// any other text is taken for one unchecked.
std::string& roundNumber(std::string& text, std::size_t decimals, bool padWithZeros);
std::wstring& roundNumber(std::wstring& text, std::size_t decimals, bool padWithZeros);

std::string toString(bool value);  ///< "1" or "0".
std::wstring toWString(bool value);
std::string toString(const void* value) = delete;  ///< A text is no truth value.
std::wstring toWString(const void* value) = delete;
std::string toString(long long number);
std::wstring toWString(long long number);
std::string toString(unsigned long long number);
std::wstring toWString(unsigned long long number);
/// Any integer, a character too, as plain decimal digits.
template <std::integral Integer>
std::string toString(Integer number);
template <std::integral Integer>
std::wstring toWString(Integer number);
/// With 14 decimals, 15 in the wide form; beyond 1e15 and below 1e-15 in scientific notation with
/// 15. Zeros at the very end go, on purpose those of an exponent too, and then a "." that is last.
std::string toString(double number);
std::wstring toWString(double number);

/// False for an empty text and for "0", true for all else: for "false" too.
bool toBool(std::string_view text);
bool toBool(std::wstring_view text);

/// As the C library reads the beginning of the text, cut to the width without a check: 0 where
/// there is no number.
std::int8_t toInt8(std::string_view text);
std::int8_t toInt8(std::wstring_view text);
std::uint8_t toUInt8(std::string_view text);
std::uint8_t toUInt8(std::wstring_view text);
std::int16_t toInt16(std::string_view text);
std::int16_t toInt16(std::wstring_view text);
std::uint16_t toUInt16(std::string_view text);
std::uint16_t toUInt16(std::wstring_view text);
std::int32_t toInt32(std::string_view text);
std::int32_t toInt32(std::wstring_view text);
std::uint32_t toUInt32(std::string_view text);
std::uint32_t toUInt32(std::wstring_view text);
/// The digits at the very beginning, behind a "-" if the type is signed; wraps around. Unlike the
/// narrower forms these take no leading blank and no "+", on purpose.
long long toInt64(std::string_view text);
long long toInt64(std::wstring_view text);
unsigned long long toUInt64(std::string_view text);
unsigned long long toUInt64(std::wstring_view text);
/// As the C library reads it. The narrow form gives the largest finite number for infinity, but not
/// the smallest for its negative; the wide form gives both as they are. On purpose.
double toDouble(std::string_view text);
double toDouble(std::wstring_view text);

template <std::integral Integer>
std::string toString(Integer number) {
    if constexpr (std::signed_integral<Integer>)
        return toString(static_cast<long long>(number));
    else
        return toString(static_cast<unsigned long long>(number));
}

template <std::integral Integer>
std::wstring toWString(Integer number) {
    if constexpr (std::signed_integral<Integer>)
        return toWString(static_cast<long long>(number));
    else
        return toWString(static_cast<unsigned long long>(number));
}

}  // namespace TarvikCorelib::StringTools
