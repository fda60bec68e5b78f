/// Writes characters that a text must not hold as others, and reads them back.
#pragma once

#include <string>
#include <string_view>

namespace TarvikCorelib::StringTools {

/// Writes each `c` as `escapeChar` and `replacement`, and each `escapeChar` twice.
std::string escape(std::string_view text, char c, char replacement, char escapeChar);
std::wstring escape(std::wstring_view text, wchar_t c, wchar_t replacement, wchar_t escapeChar);
/// The same for a table: the character at an index of `chars` is written as `escapeChar` and the
/// one at that index of `replacements`; without one there it is copied as it is.
std::string escape(std::string_view text, std::string_view chars, std::string_view replacements,
                   char escapeChar);
std::wstring escape(std::wstring_view text, std::wstring_view chars, std::wstring_view replacements,
                    wchar_t escapeChar);

/// Undoes `escape`: `escapeChar` and `replacement` give `c`, `escapeChar` twice gives one; before
/// any other character it stays, with that character; at the very end it is dropped.
std::string unescape(std::string_view text, char c, char replacement, char escapeChar);
std::wstring unescape(std::wstring_view text, wchar_t c, wchar_t replacement, wchar_t escapeChar);
/// The same for a table, the escaped characters first: `escapeChar` and the character at an index
/// of `encoded` give the one at that index of `plain`.
std::string unescape(std::string_view text, std::string_view encoded, std::string_view plain,
                     char escapeChar);
std::wstring unescape(std::wstring_view text, std::wstring_view encoded, std::wstring_view plain,
                      wchar_t escapeChar);

/// Narrows so that nothing is lost: a character that is not printable 7-bit, and "#", becomes "#",
/// its number and ";". Those in `keep` are narrowed as by `convert`.
std::string pconvert(std::wstring_view text, std::wstring_view keep = {});
/// Reads that back. A "#" without digits and ";" behind it stays as it is. Throws as `convert`
/// does.
std::wstring pconvert(std::string_view text);

}  // namespace TarvikCorelib::StringTools
