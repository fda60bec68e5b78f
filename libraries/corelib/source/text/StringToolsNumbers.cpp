#include "libraries/corelib/source/text/StringToolsNumbers.h"

#include "libraries/corelib/source/text/StringToolsCharacters.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <cwctype>
#include <iterator>
#include <limits>

namespace TarvikCorelib::StringTools {

namespace {

// What differs between narrow and wide numbers. The algorithms below are written once for both.
template <class Char>
struct NumberForm;

template <>
struct NumberForm<char> {
    static constexpr int Decimals = 14;
    static constexpr auto ReadLong = std::strtol;
    static constexpr auto ReadUnsignedLong = std::strtoul;
};

template <>
struct NumberForm<wchar_t> {
    static constexpr int Decimals = 15;
    static constexpr auto ReadLong = std::wcstol;
    static constexpr auto ReadUnsignedLong = std::wcstoul;
};

template <class Char>
bool isDigitOrPoint(Char c) {
    return isDigit(c) || c == '.';
}

// Trimming and rounding work on the digits of the text. A `double` would change numbers of more
// than 15 digits, and the user would see others than those that were typed.

template <class Char>
bool isTrimmable(View<Char> text) {
    if (text.size() == 1 && text.front() == '.') return false;
    return std::all_of(text.begin(), text.end(),
                       [](Char c) { return isDigitOrPoint(c) || c == '-'; });
}

//   number = { "0" } digits [ "." { digit } ]
// The leading zeros go, unless there is nothing else; behind a "." the trailing zeros go, then the
// "." if it is last. The "-" counts as a digit here: zeros behind it are not leading ones.
template <class Char>
Text<Char>& trimZeros(Text<Char>& text) {
    if (!isTrimmable<Char>(text)) return text;
    // Quirk: the zero before a "." goes, too, while a text of nothing but zeros stays.
    if (const auto first = text.find_first_not_of(Char{'0'}); first != npos) text.erase(0, first);

    const auto point = text.find(Char{'.'});
    if (point == npos) return text;
    const auto last = text.find_last_not_of(Char{'0'});
    text.erase(last == point ? point : last + 1);
    if (text.empty()) text = Char{'0'};
    return text;
}

// Whether the text is taken for a number. The rest of the rounding relies on a single "." at most.
template <class Char>
bool isRoundable(View<Char> text) {
    // Quirk: a text with "." in front is never rounded.
    if (text.empty() || text.front() == '.') return false;
    if (std::count(text.begin(), text.end(), Char{'.'}) > 1) return false;
    // Quirk: only a text with "-" in front is checked for digits.
    if (text.front() != '-') return true;
    return text.size() > 1 && std::all_of(text.begin() + 1, text.end(), isDigitOrPoint<Char>);
}

// Adds 1 to the last digit, as on paper: a 9 becomes 0 and carries to the digit on its left, over a
// ".". Where the digits end on the left, at the beginning of the text, a sign or a letter, a carry
// that is left puts a 1 before them.
template <class Char>
void roundUp(Text<Char>& text) {
    std::size_t pos = text.size();
    for (; pos > 0; --pos) {
        Char& c = text[pos - 1];
        if (c == '.') continue;
        if (!isDigit(c)) break;
        if (c != '9') {
            ++c;
            return;
        }
        c = Char{'0'};
    }
    text.insert(pos, 1, Char{'1'});
}

// The digit at `cut` alone decides: those behind it cannot bring it to a half.
template <class Char>
void cutAndRound(Text<Char>& text, std::size_t cut) {
    const Char digit = text[cut];
    text.erase(cut);
    if (isDigit(digit) && digit >= '5') roundUp(text);
}

// Cuts behind the last place wanted and, if the first digit cut is 5 or more, adds 1 to the rest.
// The sign plays no part, which makes it a rounding away from zero.
template <class Char>
Text<Char>& roundTo(Text<Char>& text, std::size_t decimals, bool padWithZeros) {
    if (!isRoundable<Char>(text)) return text;
    const std::size_t point = std::min(text.find(Char{'.'}), text.size());
    const std::size_t present = point == text.size() ? 0 : text.size() - point - 1;

    if (present > decimals) cutAndRound(text, point + 1 + decimals);
    if (present < decimals && padWithZeros) {
        if (point == text.size()) text += Char{'.'};
        text.append(decimals - present, Char{'0'});
    }
    return text;
}

// By `to_chars`, which knows no locale and allocates nothing.
template <class Char, class Integer>
Text<Char> digitsOf(Integer number) {
    std::array<char, 20> digits{};  // As many as 64 bits need, with a sign.
    const char* const end = std::to_chars(digits.begin(), digits.end(), number).ptr;
    return {digits.cbegin(), end};
}

// Quirk: the text may end in an exponent, whose zeros go, too.
std::string_view withoutTrailingZeros(std::string_view text) {
    if (text.find('.') == npos) return text;
    text = text.substr(0, text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.remove_suffix(1);
    return text;
}

// The limits keep the fixed form within the digits that a `double` has: beyond 1e15 it would invent
// digits, below 1e-15 it would show none.
template <class Char>
Text<Char> decimalsOf(double number) {
    if (number == 0) return {Char{'0'}};

    // The longest is -1e15 with 15 decimals: 33 characters.
    std::array<char, 48> buffer{};
    const double magnitude = std::fabs(number);
    const bool isScientific = magnitude > 1e15 || magnitude < 1e-15;
    if (isScientific) {
        std::snprintf(buffer.data(), buffer.size(), "%.15e", number);
    } else {
        std::snprintf(buffer.data(), buffer.size(), "%.*f", NumberForm<Char>::Decimals, number);
    }
    const std::string_view text = withoutTrailingZeros(buffer.data());
    return {text.begin(), text.end()};
}

template <class Char>
bool isTrue(View<Char> text) {
    return !text.empty() && !(text.size() == 1 && text.front() == '0');
}

bool isBlank(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

bool isBlank(wchar_t c) {
    return std::iswspace(static_cast<std::wint_t>(c)) != 0;
}

// Reads the number at the front of a text by a function of the C library, from a terminated copy.
//
// Only a head of the text is copied, so that a caller may take number after number off a long view.
// The head doubles until it reaches well behind the number: the cost grows with the number and the
// blanks in front of it, not with what follows. `copyOf` makes the copy, `read` is given its first
// character and the place where to store the end of the number.
template <class Char, class CopyOf, class Read>
auto readNumber(View<Char> text, CopyOf copyOf, Read read) {
    // A head may end within a number that seems to end before: "1e+", "-0x.", "infinit".
    constexpr std::ptrdiff_t longestUndecided = 8;
    for (std::size_t size = 32;; size *= 2) {
        const auto head = copyOf(text.substr(0, size));
        typename decltype(copyOf(text))::value_type* end = nullptr;
        const auto number = read(head.c_str(), &end);

        const auto blanksEnd =
            std::find_if_not(head.begin(), head.end(), [](auto c) { return isBlank(c); });
        const std::ptrdiff_t seen = std::max(end - head.data(), blanksEnd - head.begin());
        if (size >= text.size() || seen + longestUndecided < std::ssize(head)) return number;
    }
}

template <class Integer, class Char>
Integer toInteger(View<Char> text) {
    const auto copyOf = [](View<Char> head) { return Text<Char>(head); };
    return readNumber(text, copyOf, [](const Char* head, Char** end) {
        if constexpr (std::signed_integral<Integer>)
            return static_cast<Integer>(NumberForm<Char>::ReadLong(head, end, 10));
        else
            return static_cast<Integer>(NumberForm<Char>::ReadUnsignedLong(head, end, 10));
    });
}

// Wraps around, as unsigned arithmetic does.
template <class Char>
unsigned long long leadingDigits(View<Char> text) {
    unsigned long long number = 0;
    for (const Char c : text) {
        if (!isDigit(c)) break;
        number = number * 10 + static_cast<unsigned long long>(c - '0');
    }
    return number;
}

// The sign is applied in the unsigned type: the smallest number has no positive counterpart.
template <class Char>
long long signedNumber(View<Char> text) {
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative) text.remove_prefix(1);
    const unsigned long long magnitude = leadingDigits(text);
    return static_cast<long long>(isNegative ? 0 - magnitude : magnitude);
}

}  // namespace

std::string& trimNumber(std::string& text) {
    return trimZeros(text);
}

std::wstring& trimNumber(std::wstring& text) {
    return trimZeros(text);
}

std::string& roundNumber(std::string& text, std::size_t decimals, bool padWithZeros) {
    return roundTo(text, decimals, padWithZeros);
}

std::wstring& roundNumber(std::wstring& text, std::size_t decimals, bool padWithZeros) {
    return roundTo(text, decimals, padWithZeros);
}

std::string toString(bool value) {
    return value ? "1" : "0";
}

std::wstring toWString(bool value) {
    return value ? L"1" : L"0";
}

std::string toString(long long number) {
    return digitsOf<char>(number);
}

std::wstring toWString(long long number) {
    return digitsOf<wchar_t>(number);
}

std::string toString(unsigned long long number) {
    return digitsOf<char>(number);
}

std::wstring toWString(unsigned long long number) {
    return digitsOf<wchar_t>(number);
}

std::string toString(double number) {
    return decimalsOf<char>(number);
}

std::wstring toWString(double number) {
    return decimalsOf<wchar_t>(number);
}

bool toBool(std::string_view text) {
    return isTrue(text);
}

bool toBool(std::wstring_view text) {
    return isTrue(text);
}

std::int8_t toInt8(std::string_view text) {
    return toInteger<std::int8_t>(text);
}

std::int8_t toInt8(std::wstring_view text) {
    return toInteger<std::int8_t>(text);
}

std::uint8_t toUInt8(std::string_view text) {
    return toInteger<std::uint8_t>(text);
}

std::uint8_t toUInt8(std::wstring_view text) {
    return toInteger<std::uint8_t>(text);
}

std::int16_t toInt16(std::string_view text) {
    return toInteger<std::int16_t>(text);
}

std::int16_t toInt16(std::wstring_view text) {
    return toInteger<std::int16_t>(text);
}

std::uint16_t toUInt16(std::string_view text) {
    return toInteger<std::uint16_t>(text);
}

std::uint16_t toUInt16(std::wstring_view text) {
    return toInteger<std::uint16_t>(text);
}

std::int32_t toInt32(std::string_view text) {
    return toInteger<std::int32_t>(text);
}

std::int32_t toInt32(std::wstring_view text) {
    return toInteger<std::int32_t>(text);
}

std::uint32_t toUInt32(std::string_view text) {
    return toInteger<std::uint32_t>(text);
}

std::uint32_t toUInt32(std::wstring_view text) {
    return toInteger<std::uint32_t>(text);
}

long long toInt64(std::string_view text) {
    return signedNumber(text);
}

long long toInt64(std::wstring_view text) {
    return signedNumber(text);
}

unsigned long long toUInt64(std::string_view text) {
    return leadingDigits(text);
}

unsigned long long toUInt64(std::wstring_view text) {
    return leadingDigits(text);
}

double toDouble(std::string_view text) {
    const auto copyOf = [](std::string_view head) { return std::string(head); };
    return std::min(readNumber(text, copyOf, std::strtod), std::numeric_limits<double>::max());
}

// Quirk: infinity stays as it is here, while the narrow form gives the largest finite number.
double toDouble(std::wstring_view text) {
    const auto copyOf = [](std::wstring_view head) { return convert(head); };
    return readNumber(text, copyOf, std::strtod);
}

}  // namespace TarvikCorelib::StringTools
