/// Free functions on strings, for everything else in the suite.
#pragma once

#include <string>

namespace TarvikCorelib::StringTools {

/// Space, carriage return, line feed, tab, vertical tab, backspace and form feed, in this order.
/// Backspace belongs to it on purpose.
const std::string& whitespace();

/// Folds the case in place, by the process locale. Returns its argument.
std::string& lower(std::string& text);

/// Removes one pair of outer quotes in place: the first and the last character, if they are the
/// same quote, single or double. Returns its argument.
std::string& unQuote(std::string& text);

/// Takes the head: returns what stands before the first delimiter and removes it, with the
/// delimiter, from `text`. Without a delimiter all is returned and `text` is left empty.
std::string split(std::string& text, char delimiter);

/// Undoes escapes: `escapeChar` and the character at an index of `encoded` give the character at
/// that index of `plain`, which must be as long; `escapeChar` twice gives one; before any other
/// character it stays, with that character; at the very end it is dropped.
std::string unescape(const std::string& text, const std::string& encoded, const std::string& plain,
                     char escapeChar);

/// Converts each character by the process locale. One that the locale lacks is cut to its low byte.
std::string convert(const std::wstring& text);

}  // namespace TarvikCorelib::StringTools
