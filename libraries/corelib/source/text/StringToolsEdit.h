/// Changes a text in place.
///
/// Each function returns its first argument, so that calls can be nested. The other arguments must
/// not point into that text.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace TarvikCorelib::StringTools {

/// Remove from one end the characters of `whitespace`, or, if `whitespaceOnly` is false, all whose
/// unsigned value is at most 32. Nothing but such characters leaves an empty text.
std::string& trimLeft(std::string& text, bool whitespaceOnly);
std::wstring& trimLeft(std::wstring& text, bool whitespaceOnly);
std::string& trimRight(std::string& text, bool whitespaceOnly);
std::wstring& trimRight(std::wstring& text, bool whitespaceOnly);

/// Change every letter to upper or lower case, by the process locale, one character at a time: a
/// narrow letter of several bytes stays as it is.
std::string& upper(std::string& text);
std::wstring& upper(std::wstring& text);
wchar_t& upper(wchar_t& c);
std::string& lower(std::string& text);
std::wstring& lower(std::wstring& text);
wchar_t& lower(wchar_t& c);

/// Raises the first character of each word and lowers all others, by the process locale. Words end
/// at space, tab, line feed and carriage return, and nowhere else: "world-wide" is one word.
std::string& capitalize(std::string& text);
std::wstring& capitalize(std::wstring& text);
/// The same for sentences, which only a full stop ends. The characters that end words are passed
/// over: the first other character behind a full stop, and the first of the text, is raised.
std::string& capitalizeSentence(std::string& text);
std::wstring& capitalizeSentence(std::wstring& text);

/// Replaces each occurrence.
std::string& substitute(std::string& text, char from, char to);
std::wstring& substitute(std::wstring& text, wchar_t from, wchar_t to);
/// Replaces each occurrence, left to right, and continues behind the inserted text: "aa" for "a"
/// does not run for ever. An empty `from` changes nothing.
std::string& substitute(std::string& text, std::string_view from, std::string_view to);
std::wstring& substitute(std::wstring& text, std::wstring_view from, std::wstring_view to);

/// Removes one pair of outer quotes: the first and the last character, if both are the same kind of
/// quote, single or double. A single quote character alone is no pair.
std::string& unQuote(std::string& text);
std::wstring& unQuote(std::wstring& text);

/// Reverses the order of the characters within a range.
std::string& reverse(std::string& text, std::size_t pos = 0, std::size_t count = npos);
std::wstring& reverse(std::wstring& text, std::size_t pos = 0, std::size_t count = npos);

/// Remove the unwanted characters within a range: those of a set, or, in `eraseAllExcept`, those
/// that are not in it. The rest of the text stays.
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

/// Add characters until there are `width` of them, on both sides, on the left or on the right. If
/// the number to add is odd, `pad` puts the smaller half on the left. A longer text stays as it is.
std::string& pad(std::string& text, std::size_t width, char c);
std::wstring& pad(std::wstring& text, std::size_t width, wchar_t c);
std::string& padLeft(std::string& text, std::size_t width, char c);
std::wstring& padLeft(std::wstring& text, std::size_t width, wchar_t c);
std::string& padRight(std::string& text, std::size_t width, char c);
std::wstring& padRight(std::wstring& text, std::size_t width, wchar_t c);

}  // namespace TarvikCorelib::StringTools
