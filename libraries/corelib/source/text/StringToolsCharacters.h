/// What the text tools know about single characters.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

namespace TarvikCorelib::StringTools {

constexpr auto npos = std::string::npos;

template <class Char>
using Text = std::basic_string<Char>;
template <class Char>
using View = std::basic_string_view<Char>;

/// One of the ten ASCII digits, in any locale.
template <class Char>
constexpr bool isDigit(Char c) {
    return c >= '0' && c <= '9';
}

/// Space, carriage return, line feed, tab, vertical tab, backspace and form feed, in this order.
/// Backspace belongs to it on purpose. Safe to call from any thread.
const std::string& whitespace();
const std::wstring& whitespaceW();
/// That of either kind, for code that is written once for both.
template <class Char>
const std::basic_string<Char>& whitespaceOf();

template <class Char>
const std::basic_string<Char>& whitespaceOf() {
    if constexpr (std::is_same_v<Char, wchar_t>)
        return whitespaceW();
    else
        return whitespace();
}

}  // namespace TarvikCorelib::StringTools
