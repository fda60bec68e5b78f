/// Counts, compares and finds characters and parts of a text.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <cstddef>
#include <string_view>

namespace TarvikCorelib::StringTools {

/// The number of occurrences in a stretch; those of a substring do not overlap, and an empty one
/// has none.
std::size_t count(std::string_view text, char c, std::size_t pos = 0, std::size_t count = npos);
std::size_t count(std::wstring_view text, wchar_t c, std::size_t pos = 0, std::size_t count = npos);
std::size_t count(std::string_view text, std::string_view part, std::size_t pos = 0,
                  std::size_t count = npos);
std::size_t count(std::wstring_view text, std::wstring_view part, std::size_t pos = 0,
                  std::size_t count = npos);

/// The number of occurrences from `pos` on, or from `pos` backward, this side of the first `stop`.
/// Backward, a `pos` past the end means the last character.
std::size_t countUpTo(std::string_view text, char c, std::size_t pos, char stop);
std::size_t countUpTo(std::wstring_view text, wchar_t c, std::size_t pos, wchar_t stop);
std::size_t countDownTo(std::string_view text, char c, std::size_t pos, char stop);
std::size_t countDownTo(std::wstring_view text, wchar_t c, std::size_t pos, wchar_t stop);

/// The index in `a` of the first difference, with `a` from `posA` laid on `b` from `posB`. Where
/// one is the shorter it differs at its end; all ones if both end together.
std::size_t findFirstDiff(std::string_view a, std::string_view b, std::size_t posA = 0,
                          std::size_t posB = 0);
std::size_t findFirstDiff(std::wstring_view a, std::wstring_view b, std::size_t posA = 0,
                          std::size_t posB = 0);

/// 0 if `text` has `part` at `pos`; -1 if it is less there, or ends before `part` does, or before
/// `pos`; 1 if it is greater. Characters are compared as unsigned numbers.
int subCompare(std::string_view text, std::size_t pos, std::string_view part);
int subCompare(std::wstring_view text, std::size_t pos, std::wstring_view part);

/// The index of the first occurrence outside quotes, as `StringIterator` reads them, or all ones.
/// At most `count` characters outside quotes are looked at; 0 means all.
std::size_t findNotQuoted(std::string_view text, char c, std::size_t pos = 0,
                          std::size_t count = 0);
std::size_t findNotQuoted(std::wstring_view text, wchar_t c, std::size_t pos = 0,
                          std::size_t count = 0);
std::size_t findNotQuoted(std::string_view text, std::string_view part, std::size_t pos = 0,
                          std::size_t count = 0);
std::size_t findNotQuoted(std::wstring_view text, std::wstring_view part, std::size_t pos = 0,
                          std::size_t count = 0);

}  // namespace TarvikCorelib::StringTools
