/// Turns narrow texts into wide ones and back.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace TarvikCorelib::StringTools {

/// Widen by the process locale, a byte at a time. Throws a bare `std::exception` for a byte with
/// the top bit set.
wchar_t convert(char c);
std::wstring convert(std::string_view text);
/// Narrow by the process locale. A character that the locale lacks, or that takes more than the one
/// `char` there is to return, is cut to its low byte.
char convert(wchar_t c);
std::string convert(std::wstring_view text);
/// Whole containers, item by item.
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

/// Widens for display: never fails, a byte with the top bit set becomes the character of its
/// number.
std::wstring widen(std::string_view text);

/// Write and read a character as its four bytes, the lowest first, in a buffer of `size` bytes.
/// What is left of the buffer is cleared. False below a size of 4: nothing is changed.
bool encode(wchar_t c, char* buffer, unsigned short size);
bool decode(wchar_t& c, const char* buffer, unsigned short size);
/// The same for each character of a text, at `width` bytes each. Empty below a width of 4. Bytes at
/// the end that are less than a width are dropped.
std::string encode(std::wstring_view text, unsigned short width);
std::wstring decode(std::string_view bytes, unsigned short width);

}  // namespace TarvikCorelib::StringTools
