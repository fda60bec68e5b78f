#include "libraries/corelib/source/text/StringToolsSearch.h"

#include "libraries/corelib/source/text/StringIterator.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace TarvikCorelib::StringTools {

namespace {

// The characters of a range. Empty if `pos` is past the last character.
template <class Char>
View<Char> rangeOf(View<Char> text, std::size_t pos, std::size_t count) {
    return text.substr(std::min(pos, text.size()), count);
}

template <class Char>
std::size_t countChars(View<Char> text, Char c) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), c));
}

// Continues behind each occurrence, so that they do not overlap.
template <class Char>
std::size_t countParts(View<Char> text, View<Char> part) {
    if (part.empty()) return 0;
    std::size_t found = 0;
    for (auto at = text.find(part); at != npos; at = text.find(part, at + part.size()))
        ++found;
    return found;
}

template <class Char>
std::size_t countForward(View<Char> text, Char c, std::size_t pos, Char stop) {
    const View<Char> tail = rangeOf(text, pos, npos);
    return countChars(tail.substr(0, tail.find(stop)), c);
}

// The range ends at `pos` itself and begins behind the last `stop` in it.
template <class Char>
std::size_t countBackward(View<Char> text, Char c, std::size_t pos, Char stop) {
    const View<Char> head = text.substr(0, pos < text.size() ? pos + 1 : npos);
    const auto stopAt = head.rfind(stop);
    return countChars(head.substr(stopAt == npos ? 0 : stopAt + 1), c);
}

template <class Char>
std::size_t firstDiff(View<Char> a, View<Char> b, std::size_t posA, std::size_t posB) {
    a.remove_prefix(std::min(posA, a.size()));
    b.remove_prefix(std::min(posB, b.size()));
    const auto [endA, endB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    if (endA == a.end() && endB == b.end()) return npos;
    return posA + static_cast<std::size_t>(endA - a.begin());
}

// Compares by unsigned characters. A text that ends early is a beginning of the part, and so less;
// one that goes on behind the part is equal as far as it is compared.
template <class Char>
int compareAt(View<Char> text, std::size_t pos, View<Char> part) {
    if (pos > text.size()) return -1;
    const View<Char> own = text.substr(pos, part.size());
    const auto isLess = [](Char a, Char b) {
        using Unsigned = std::make_unsigned_t<Char>;
        return static_cast<Unsigned>(a) < static_cast<Unsigned>(b);
    };
    if (own == part) return 0;
    const bool less =
        std::lexicographical_compare(own.begin(), own.end(), part.begin(), part.end(), isLess);
    return less ? -1 : 1;
}

// Walks through the characters outside quotes to the first that `isWanted` accepts; through `count`
// of them at most, or all if that is 0. Quotes before `pos` are not seen: the walk begins outside.
template <class Char, class IsWanted>
std::size_t findOutsideQuotes(View<Char> text, std::size_t pos, std::size_t count,
                              IsWanted isWanted) {
    BasicStringIterator<Char> walk(pos);
    std::size_t looked = 0;
    while (walk.next(text)) {
        if (walk.isQuoted()) continue;
        if (isWanted(walk)) return walk.index();
        if (++looked == count) return npos;
    }
    return npos;
}

template <class Char>
std::size_t findChar(View<Char> text, Char c, std::size_t pos, std::size_t count) {
    return findOutsideQuotes(text, pos, count,
                             [c](const auto& walk) { return walk.current() == c; });
}

// Keeps the place of the next occurrence, quoted or not, and searches anew only when the walk has
// passed it: comparing at each character would be quadratic for a long part.
template <class Char>
std::size_t findPart(View<Char> text, View<Char> part, std::size_t pos, std::size_t count) {
    std::size_t next = text.find(part, pos);
    return findOutsideQuotes(text, pos, count, [=](const auto& walk) mutable {
        if (next < walk.index()) next = text.find(part, walk.index());
        return next == walk.index();
    });
}

}  // namespace

std::size_t count(std::string_view text, char c, std::size_t pos, std::size_t count) {
    return countChars(rangeOf(text, pos, count), c);
}

std::size_t count(std::wstring_view text, wchar_t c, std::size_t pos, std::size_t count) {
    return countChars(rangeOf(text, pos, count), c);
}

std::size_t count(std::string_view text, std::string_view part, std::size_t pos,
                  std::size_t count) {
    return countParts(rangeOf(text, pos, count), part);
}

std::size_t count(std::wstring_view text, std::wstring_view part, std::size_t pos,
                  std::size_t count) {
    return countParts(rangeOf(text, pos, count), part);
}

std::size_t countUpTo(std::string_view text, char c, std::size_t pos, char stop) {
    return countForward(text, c, pos, stop);
}

std::size_t countUpTo(std::wstring_view text, wchar_t c, std::size_t pos, wchar_t stop) {
    return countForward(text, c, pos, stop);
}

std::size_t countDownTo(std::string_view text, char c, std::size_t pos, char stop) {
    return countBackward(text, c, pos, stop);
}

std::size_t countDownTo(std::wstring_view text, wchar_t c, std::size_t pos, wchar_t stop) {
    return countBackward(text, c, pos, stop);
}

std::size_t findFirstDiff(std::string_view a, std::string_view b, std::size_t posA,
                          std::size_t posB) {
    return firstDiff(a, b, posA, posB);
}

std::size_t findFirstDiff(std::wstring_view a, std::wstring_view b, std::size_t posA,
                          std::size_t posB) {
    return firstDiff(a, b, posA, posB);
}

int subCompare(std::string_view text, std::size_t pos, std::string_view part) {
    return compareAt(text, pos, part);
}

int subCompare(std::wstring_view text, std::size_t pos, std::wstring_view part) {
    return compareAt(text, pos, part);
}

std::size_t findNotQuoted(std::string_view text, char c, std::size_t pos, std::size_t count) {
    return findChar(text, c, pos, count);
}

std::size_t findNotQuoted(std::wstring_view text, wchar_t c, std::size_t pos, std::size_t count) {
    return findChar(text, c, pos, count);
}

std::size_t findNotQuoted(std::string_view text, std::string_view part, std::size_t pos,
                          std::size_t count) {
    return findPart(text, part, pos, count);
}

std::size_t findNotQuoted(std::wstring_view text, std::wstring_view part, std::size_t pos,
                          std::size_t count) {
    return findPart(text, part, pos, count);
}

}  // namespace TarvikCorelib::StringTools
