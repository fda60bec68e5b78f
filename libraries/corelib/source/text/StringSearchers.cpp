#include "libraries/corelib/source/text/StringSearchers.h"

#include "libraries/corelib/source/text/GlobMatching.h"
#include "libraries/corelib/source/text/StringIterator.h"
#include "libraries/corelib/source/text/StringToolsCharacters.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace TarvikCorelib::StringTools {

namespace {

// What a rule finds. The rules are given the range alone and count from its beginning; in an empty
// range none of them finds anything.
struct Cut {
    std::size_t start;
    std::size_t length;
};

// Empty if `pos` is past the last character.
template <class Char>
View<Char> rangeOf(View<Char> text, std::size_t pos, std::size_t count) {
    if (!StringSearcher::validateParameters(text, pos, count)) return {};
    return text.substr(pos, count);
}

// Counts the cut from the beginning of the whole text again.
bool report(const std::optional<Cut>& cut, std::size_t pos, std::size_t& start,
            std::size_t& length) {
    if (!cut) return false;
    start = pos + cut->start;
    length = cut->length;
    return true;
}

bool clampCount(std::size_t size, std::size_t pos, std::size_t& count) {
    if (pos >= size) return false;
    count = std::min(count, size - pos);
    return true;
}

template <class Char>
std::optional<Cut> findAnyOf(View<Char> text, View<Char> set) {
    const auto found = text.find_first_of(set);
    if (found == npos) return std::nullopt;
    return Cut{found, 1};
}

// The walk begins with the range, outside quotes.
template <class Char>
std::optional<Cut> findAnyUnquoted(View<Char> text, View<Char> set) {
    BasicStringIterator<Char> at;
    while (at.next(text)) {
        if (!at.isQuoted() && set.find(at.current()) != npos) return Cut{at.index(), 1};
    }
    return std::nullopt;
}

// By the matching itself, not by `GlobMatcher`: no exception is built for a glob that is not found.
template <class Char>
std::optional<Cut> findMatch(View<Char> text, View<Char> pattern) {
    const auto match = findGlob(text, pattern, 0, npos);
    if (!match) return std::nullopt;
    return Cut{match->first, match->second};
}

// How to wrap: `blanks` are the characters of the break set that are consumed by a cut.
template <class Char>
struct LineRule {
    std::size_t lineSize;
    View<Char> breakSet;
    View<Char> blanks;
};

// Goes back from `start` to a character of the break set. A line without one, or with one only at
// its beginning, is cut at `start`.
template <class Char>
Cut breakLine(View<Char> text, std::size_t start, const LineRule<Char>& rule) {
    const auto found = text.find_last_of(rule.breakSet, start);
    if (found == npos || found == 0) return {start, 0};
    if (rule.blanks.find(text[found]) != npos) return {found, 1};
    return {found + 1, 0};
}

// The window is as much of the range as a line may hold. The line feed that ends it, or the end of
// the window, is `start`; whether that is also the cut depends on what follows the window.
template <class Char>
std::optional<Cut> findLineEnd(View<Char> text, const LineRule<Char>& rule) {
    const std::size_t window = std::min(text.size(), rule.lineSize);
    if (window == 0) return std::nullopt;
    if (text.front() == '\n') return Cut{1, 0};

    const std::size_t start = std::min(text.substr(0, window).find(Char{'\n'}), window);
    if (window == text.size() || text[window] == '\n') return Cut{start, 1};
    return breakLine(text, start, rule);
}

}  // namespace

bool StringSearcher::operator()(std::size_t& start, std::size_t& length, const std::string& text,
                                std::size_t pos, std::size_t count) {
    return std::as_const(*this)(start, length, text, pos, count);
}

bool StringSearcher::operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                                std::size_t pos, std::size_t count) {
    return std::as_const(*this)(start, length, text, pos, count);
}

bool StringSearcher::validateParameters(std::string_view text, std::size_t pos,
                                        std::size_t& count) {
    return clampCount(text.size(), pos, count);
}

bool StringSearcher::validateParameters(std::wstring_view text, std::size_t pos,
                                        std::size_t& count) {
    return clampCount(text.size(), pos, count);
}

CharSearcher::CharSearcher(std::string_view set) : CharSearcher(set, widen(set)) {}

CharSearcher::CharSearcher(std::string_view set, std::wstring_view setW) : set(set), setW(setW) {}

bool CharSearcher::operator()(std::size_t& start, std::size_t& length, const std::string& text,
                              std::size_t pos, std::size_t count) const {
    const auto cut = findAnyOf<char>(rangeOf<char>(text, pos, count), set);
    return report(cut, pos, start, length);
}

bool CharSearcher::operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                              std::size_t pos, std::size_t count) const {
    const auto cut = findAnyOf<wchar_t>(rangeOf<wchar_t>(text, pos, count), setW);
    return report(cut, pos, start, length);
}

bool CharSearcherUnquoted::operator()(std::size_t& start, std::size_t& length,
                                      const std::string& text, std::size_t pos,
                                      std::size_t count) const {
    const auto cut = findAnyUnquoted<char>(rangeOf<char>(text, pos, count), set);
    return report(cut, pos, start, length);
}

bool CharSearcherUnquoted::operator()(std::size_t& start, std::size_t& length,
                                      const std::wstring& text, std::size_t pos,
                                      std::size_t count) const {
    const auto cut = findAnyUnquoted<wchar_t>(rangeOf<wchar_t>(text, pos, count), setW);
    return report(cut, pos, start, length);
}

GlobSearcher::GlobSearcher(std::string_view pattern) : GlobSearcher(pattern, widen(pattern)) {}

GlobSearcher::GlobSearcher(std::string_view pattern, std::wstring_view patternW)
    : pattern(pattern), patternW(patternW) {}

bool GlobSearcher::operator()(std::size_t& start, std::size_t& length, const std::string& text,
                              std::size_t pos, std::size_t count) const {
    const auto cut = findMatch<char>(rangeOf<char>(text, pos, count), pattern);
    return report(cut, pos, start, length);
}

bool GlobSearcher::operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                              std::size_t pos, std::size_t count) const {
    const auto cut = findMatch<wchar_t>(rangeOf<wchar_t>(text, pos, count), patternW);
    return report(cut, pos, start, length);
}

LineSizeSearcher::LineSizeSearcher(std::uint32_t lineSize, std::string_view breakSet)
    : LineSizeSearcher(lineSize, breakSet, widen(breakSet)) {}

LineSizeSearcher::LineSizeSearcher(std::uint32_t lineSize, std::string_view breakSet,
                                   std::wstring_view breakSetW)
    : lineSize(lineSize), breakSet(breakSet), breakSetW(breakSetW) {}

bool LineSizeSearcher::operator()(std::size_t& start, std::size_t& length, const std::string& text,
                                  std::size_t pos, std::size_t count) const {
    const auto cut =
        findLineEnd<char>(rangeOf<char>(text, pos, count), {lineSize, breakSet, whitespace()});
    return report(cut, pos, start, length);
}

bool LineSizeSearcher::operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                                  std::size_t pos, std::size_t count) const {
    const auto cut = findLineEnd<wchar_t>(rangeOf<wchar_t>(text, pos, count),
                                          {lineSize, breakSetW, whitespaceW()});
    return report(cut, pos, start, length);
}

}  // namespace TarvikCorelib::StringTools
