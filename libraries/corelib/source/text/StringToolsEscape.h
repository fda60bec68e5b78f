/// Writes characters that a text must not hold by means of others, and reads them back.
///
/// All take linear time. A text without anything to escape is copied as it is.
///
///     escape("a;b%", ';', 's', '%');         // "a%sb%%"
///     unescape("a%sb%%c%d", ';', 's', '%');  // "a;b%c%d"
///     escape("a=b;c", "=;", "es", '%');      // "a%eb%sc"
///     unescape("a%eb%sc", "es", "=;", '%');  // "a=b;c"
///     pconvert(L"\u00fcber #1");             // "#252;ber #35;1"
#pragma once

#include <string>
#include <string_view>

namespace TarvikCorelib::StringTools {

/// Writes each `c` as `escapeChar` and `replacement`, and each `escapeChar` twice.
std::string escape(std::string_view text, char c, char replacement, char escapeChar);
std::wstring escape(std::wstring_view text, wchar_t c, wchar_t replacement, wchar_t escapeChar);
/// The same for a table: the character at an index of `chars` is written as `escapeChar` and the
/// character at that index of `replacements`. If `replacements` ends before, the character is
/// copied as it is. Entries take precedence over doubling the escape character.
std::string escape(std::string_view text, std::string_view chars, std::string_view replacements,
                   char escapeChar);
std::wstring escape(std::wstring_view text, std::wstring_view chars, std::wstring_view replacements,
                    wchar_t escapeChar);

/// Undoes `escape`: `escapeChar` and `replacement` give `c`, `escapeChar` twice gives one. Before
/// any other character it stays, together with that character. Quirk: an `escapeChar` at the very
/// end is dropped.
std::string unescape(std::string_view text, char c, char replacement, char escapeChar);
std::wstring unescape(std::wstring_view text, wchar_t c, wchar_t replacement, wchar_t escapeChar);
/// The same for a table. The order of the two is the reverse of `escape`: `escapeChar` and the
/// character at an index of `encoded` give the character at that index of `plain`.
std::string unescape(std::string_view text, std::string_view encoded, std::string_view plain,
                     char escapeChar);
std::wstring unescape(std::wstring_view text, std::wstring_view encoded, std::wstring_view plain,
                      wchar_t escapeChar);

/// Narrows so that nothing is lost: "#" and each character that is not printable ASCII become "#",
/// the character's number in decimal digits and ";". Those in `keep` are narrowed by `convert`.
std::string pconvert(std::wstring_view text, std::wstring_view keep = {});
/// Reads that back. A "#" without digits and ";" behind it stays as it is, and a number too large
/// is cut. Throws a bare `std::exception` for a byte with the top bit set, as `convert` does.
std::wstring pconvert(std::string_view text);

}  // namespace TarvikCorelib::StringTools
