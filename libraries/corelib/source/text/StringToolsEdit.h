/// Changes a text in place.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace TarvikCorelib::StringTools {

// Changing a text in place. Each of these returns its first argument; none of the others may point
// into it.

/// Remove blanks from one end: the characters of `whitespace`, or, if `whitespaceOnly` is false,
/// all whose unsigned value is at most 32.
std::string& trimLeft(std::string& text, bool whitespaceOnly);
std::wstring& trimLeft(std::wstring& text, bool whitespaceOnly);
std::string& trimRight(std::string& text, bool whitespaceOnly);
std::wstring& trimRight(std::wstring& text, bool whitespaceOnly);

/// Turn the case, by the process locale.
std::string& upper(std::string& text);
std::wstring& upper(std::wstring& text);
wchar_t& upper(wchar_t& c);
std::string& lower(std::string& text);
std::wstring& lower(std::wstring& text);
wchar_t& lower(wchar_t& c);

/// Makes the first character of each word a capital and turns all others down. Words end at space,
/// tab, line feed and carriage return, and nowhere else.
std::string& capitalize(std::string& text);
std::wstring& capitalize(std::wstring& text);
/// The same for sentences: only a full stop ends one. The text's first character begins one.
std::string& capitalizeSentence(std::string& text);
std::wstring& capitalizeSentence(std::wstring& text);

/// Replaces each occurrence.
std::string& substitute(std::string& text, char from, char to);
std::wstring& substitute(std::wstring& text, wchar_t from, wchar_t to);
/// Replaces each occurrence, left to right; what was inserted is not looked at again. An empty
/// `from` changes nothing.
std::string& substitute(std::string& text, std::string_view from, std::string_view to);
std::wstring& substitute(std::wstring& text, std::wstring_view from, std::wstring_view to);

/// Removes one pair of outer quotes: the first and the last character, if they are the same quote,
/// single or double.
std::string& unQuote(std::string& text);
std::wstring& unQuote(std::wstring& text);

/// Turns a stretch around.
std::string& reverse(std::string& text, std::size_t pos = 0, std::size_t count = npos);
std::wstring& reverse(std::wstring& text, std::size_t pos = 0, std::size_t count = npos);

/// Remove from a stretch the characters that are in the set, or those that are not.
std::string& erase(std::string& text, char unwanted, std::size_t pos = 0, std::size_t count = npos);
std::wstring& erase(std::wstring& text, wchar_t unwanted, std::size_t pos = 0,
                    std::size_t count = npos);
std::string& erase(std::string& text, std::string_view set, std::size_t pos = 0,
                   std::size_t count = npos);
std::wstring& erase(std::wstring& text, std::wstring_view set, std::size_t pos = 0,
                    std::size_t count = npos);
std::string& eraseAllExcept(std::string& text, std::string_view set, std::size_t pos = 0,
                            std::size_t count = npos);
std::wstring& eraseAllExcept(std::wstring& text, std::wstring_view set, std::size_t pos = 0,
                             std::size_t count = npos);

/// Widen to `width` characters, on both sides, on the left or on the right. Of an odd number of
/// characters to add, `pad` puts the smaller half on the left. A longer text stays as it is.
std::string& pad(std::string& text, std::size_t width, char c);
std::wstring& pad(std::wstring& text, std::size_t width, wchar_t c);
std::string& padLeft(std::string& text, std::size_t width, char c);
std::wstring& padLeft(std::wstring& text, std::size_t width, wchar_t c);
std::string& padRight(std::string& text, std::size_t width, char c);
std::wstring& padRight(std::wstring& text, std::size_t width, wchar_t c);

}  // namespace TarvikCorelib::StringTools
