/// Counts, compares and finds characters and parts of a text.
///
/// An index in a result counts from the beginning of the whole text, whatever the range.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <cstddef>
#include <string_view>

namespace TarvikCorelib::StringTools {

/// The number of occurrences within a range. Those of a substring do not overlap: "aaa" holds "aa"
/// once. An empty substring has none, and so has a range past the end.
std::size_t count(std::string_view text, char c, std::size_t pos = 0, std::size_t count = npos);
std::size_t count(std::wstring_view text, wchar_t c, std::size_t pos = 0, std::size_t count = npos);
std::size_t count(std::string_view text, std::string_view part, std::size_t pos = 0,
                  std::size_t count = npos);
std::size_t count(std::wstring_view text, std::wstring_view part, std::size_t pos = 0,
                  std::size_t count = npos);

/// The number of occurrences from `pos` forward, or from `pos` backward, up to the first `stop` or
/// the end of the text. Backward, a `pos` past the end means the last character.
std::size_t countUpTo(std::string_view text, char c, std::size_t pos, char stop);
std::size_t countUpTo(std::wstring_view text, wchar_t c, std::size_t pos, wchar_t stop);
std::size_t countDownTo(std::string_view text, char c, std::size_t pos, char stop);
std::size_t countDownTo(std::wstring_view text, wchar_t c, std::size_t pos, wchar_t stop);

/// The index in `a` of the first difference between `a` from `posA` on and `b` from `posB` on. If
/// one of them ends first, they differ there; all ones if both end together.
std::size_t findFirstDiff(std::string_view a, std::string_view b, std::size_t posA = 0,
                          std::size_t posB = 0);
std::size_t findFirstDiff(std::wstring_view a, std::wstring_view b, std::size_t posA = 0,
                          std::size_t posB = 0);

/// Compares `part` with as many characters of `text` from `pos` on, as unsigned numbers: 0 if they
/// are equal, 1 if the text is greater, -1 if it is less or ends early. An empty part is equal
/// anywhere but past the end.
int subCompare(std::string_view text, std::size_t pos, std::string_view part);
int subCompare(std::wstring_view text, std::size_t pos, std::wstring_view part);

/// The index of the first occurrence outside quotes, as `StringIterator` reads them, or all ones.
/// The walk begins at `pos`, outside quotes, and looks at `count` characters outside quotes at
/// most; 0 means all. A part may reach into quotes: only its first character must be outside.
std::size_t findNotQuoted(std::string_view text, char c, std::size_t pos = 0,
                          std::size_t count = 0);
std::size_t findNotQuoted(std::wstring_view text, wchar_t c, std::size_t pos = 0,
                          std::size_t count = 0);
std::size_t findNotQuoted(std::string_view text, std::string_view part, std::size_t pos = 0,
                          std::size_t count = 0);
std::size_t findNotQuoted(std::wstring_view text, std::wstring_view part, std::size_t pos = 0,
                          std::size_t count = 0);

}  // namespace TarvikCorelib::StringTools
