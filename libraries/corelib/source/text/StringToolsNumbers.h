/// Numbers as text: written, read, trimmed and rounded.
///
/// Nothing here reports a text that is no number: it is read as 0 or left as it is.
///
///     toInt32(" +12 km");   // 12
///     toInt64(" +12 km");   // 0
///     toInt8("300");        // 44
///     toDouble("1e3 km");   // 1000
///     toString(0.1 + 0.2);  // "0.3"
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib::StringTools {

/// Removes leading zeros, and behind a "." trailing ones: "007.50" becomes "7.5", "12." becomes
/// "12". A text with anything but digits, "-" and "." stays as it is.
/// Quirk: the only zero before a "." goes, too: "0.5" becomes ".5". Nothing but zeros stays: "000".
std::string& trimNumber(std::string& text);
std::wstring& trimNumber(std::wstring& text);

/// Rounds a decimal number to `decimals` places, half away from zero, in the text itself, so that
/// numbers of any length keep their digits. Zeros are added to fewer places if `padWithZeros` is
/// set. A text with two "." stays as it is, and so does one behind a "-" that is no number.
/// Quirk: with no places left the "." stays at the end: "99.5" becomes "100.".
/// Quirk: a text that begins with "." is never rounded.
/// Quirk: without a "-" in front the text is not checked: "a.99" becomes "a1.0".
std::string& roundNumber(std::string& text, std::size_t decimals, bool padWithZeros);
std::wstring& roundNumber(std::wstring& text, std::size_t decimals, bool padWithZeros);

std::string toString(bool value);  ///< "1" or "0".
std::wstring toWString(bool value);
std::string toString(const void* value) = delete;  ///< A literal is no truth value.
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
/// With 14 decimals, 15 in the wide form; above 1e15 and below 1e-15 in magnitude in scientific
/// notation, with 15. Zeros at the very end are removed, and then a "." that is last.
/// Quirk: the zeros of an exponent go, too: 5e-300 ends in "e-3".
std::string toString(double number);
std::wstring toWString(double number);

/// False for an empty text and for "0", true for all else.
/// Quirk: so "false" is true, and "00" as well.
bool toBool(std::string_view text);
bool toBool(std::wstring_view text);

/// As the C library reads a decimal number at the beginning of the text: behind blanks and a sign,
/// up to the first character that is no digit, limited to the range of `long` (unsigned: of
/// `unsigned long`). 0 if there is no number.
/// Quirk: the result is then cut to the width without a check: 300 is 44 in eight bits.
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
/// The digits at the very beginning, behind a "-" if the type is signed; wraps around.
/// Quirk: unlike the narrower forms these accept neither a leading blank nor a "+".
long long toInt64(std::string_view text);
long long toInt64(std::wstring_view text);
unsigned long long toUInt64(std::string_view text);
unsigned long long toUInt64(std::wstring_view text);
/// As the C library reads a real number, by the process locale; 0 if there is none.
/// Quirk: the narrow form returns the largest finite number for infinity, but leaves negative
/// infinity as it is. The wide form leaves both.
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
