/// Turns narrow texts into wide ones and back.
///
/// `convert` follows the process locale and refuses what it cannot widen; `widen` never fails and
/// serves for display; `encode` and `decode` store wide characters as bytes, on any machine alike.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace TarvikCorelib::StringTools {

/// Widen by the process locale, one byte at a time. Throws a bare `std::exception` for a byte with
/// the top bit set, in a locale of several bytes a character, too.
wchar_t convert(char c);
std::wstring convert(std::string_view text);
/// Narrow by the process locale. A character that the locale lacks is cut to its low byte, and so
/// is one of several bytes where a single `char` is returned.
char convert(wchar_t c);
std::string convert(std::wstring_view text);
/// Whole containers, item by item. Two keys that become equal leave the first of them in a set or a
/// map.
std::set<std::wstring> convert(const std::set<std::string>& items);
std::set<std::string> convert(const std::set<std::wstring>& items);
std::multiset<std::wstring> convert(const std::multiset<std::string>& items);
std::multiset<std::string> convert(const std::multiset<std::wstring>& items);
std::map<std::wstring, std::wstring> convert(const std::map<std::string, std::string>& pairs);
std::map<std::string, std::string> convert(const std::map<std::wstring, std::wstring>& pairs);
std::multimap<std::wstring, std::wstring> convert(
    const std::multimap<std::string, std::string>& pairs);
std::multimap<std::string, std::string> convert(
    const std::multimap<std::wstring, std::wstring>& pairs);

/// Widens for display. Never fails: each byte becomes the character of its number, from 0 to 255.
std::wstring widen(std::string_view text);

/// Write and read a character as four bytes, the lowest first, in a buffer of `size` bytes. Writing
/// clears the rest of the buffer. A size below 4 returns false and changes nothing.
bool encode(wchar_t c, char* buffer, unsigned short size);
bool decode(wchar_t& c, const char* buffer, unsigned short size);
/// The same for each character of a text, at `width` bytes each. A width below 4 returns an empty
/// text. Bytes at the end that do not fill a width are dropped.
std::string encode(std::wstring_view text, unsigned short width);
std::wstring decode(std::string_view bytes, unsigned short width);

}  // namespace TarvikCorelib::StringTools
