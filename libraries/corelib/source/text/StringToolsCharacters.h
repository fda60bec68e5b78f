/// Single characters, and the names that the text tools share.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

namespace TarvikCorelib::StringTools {

/// All ones: "none" as a result, "the rest of the text" as a count.
constexpr auto npos = std::string::npos;

/// A text of either width, for code that is written once for both.
template <class Char>
using Text = std::basic_string<Char>;
template <class Char>
using View = std::basic_string_view<Char>;

/// One of the ten ASCII digits, in any locale.
template <class Char>
constexpr bool isDigit(Char c) {
    return c >= '0' && c <= '9';
}

/// White space: space, carriage return, line feed, tab, vertical tab, backspace and form feed, in
/// this order. Made on first use, by whichever thread comes first.
/// Quirk: backspace is white space, too.
const std::string& whitespace();
const std::wstring& whitespaceW();
/// The one of the two that fits the character type.
template <class Char>
const Text<Char>& whitespaceOf() {
    if constexpr (std::is_same_v<Char, wchar_t>)
        return whitespaceW();
    else
        return whitespace();
}

}  // namespace TarvikCorelib::StringTools
