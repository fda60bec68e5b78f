#include "libraries/corelib/source/text/StringToolsEdit.h"

#include <algorithm>
#include <cctype>
#include <cwctype>
#include <type_traits>
#include <utility>

namespace TarvikCorelib::StringTools {

namespace {

// Each operation is a template on the character; the named functions behind this namespace are its
// two widths. They are no templates themselves, so that literals and views convert to their
// arguments, and so that their code is compiled once, here.

// Space, the control characters and, as the character is unsigned, nothing else.
template <class Char>
bool isLow(Char c) {
    return static_cast<std::make_unsigned_t<Char>>(c) <= ' ';
}

template <class Char>
Text<Char>& trimFront(Text<Char>& text, bool whitespaceOnly) {
    const auto first = std::find_if_not(text.begin(), text.end(), [=](Char c) {
        return whitespaceOnly ? whitespaceOf<Char>().find(c) != npos : isLow(c);
    });
    text.erase(text.begin(), first);
    return text;
}

template <class Char>
Text<Char>& trimBack(Text<Char>& text, bool whitespaceOnly) {
    const auto last = std::find_if_not(text.rbegin(), text.rend(), [=](Char c) {
        return whitespaceOnly ? whitespaceOf<Char>().find(c) != npos : isLow(c);
    });
    text.erase(last.base(), text.end());
    return text;
}

// The C library takes unsigned values: a byte from 0x80 up would be a negative index into its
// tables.

char raised(char c) {
    return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

wchar_t raised(wchar_t c) {
    return static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(c)));
}

char lowered(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

wchar_t lowered(wchar_t c) {
    return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(c)));
}

template <class Char>
Text<Char>& raiseAll(Text<Char>& text) {
    for (Char& c : text)
        c = raised(c);
    return text;
}

template <class Char>
Text<Char>& lowerAll(Text<Char>& text) {
    for (Char& c : text)
        c = lowered(c);
    return text;
}

template <class Char>
bool endsWord(Char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// One pass. A character is raised if the one before it ended a word, or if there is none.
template <class Char>
Text<Char>& capitalizeWords(Text<Char>& text) {
    bool isFirst = true;
    for (Char& c : text) {
        c = isFirst ? raised(c) : lowered(c);
        isFirst = endsWord(c);
    }
    return text;
}

// What ends a word leaves the state as it is: a capital waits for the first other character.
template <class Char>
Text<Char>& capitalizeSentences(Text<Char>& text) {
    bool isFirst = true;
    for (Char& c : text) {
        if (endsWord(c)) continue;
        c = isFirst ? raised(c) : lowered(c);
        isFirst = c == '.';
    }
    return text;
}

template <class Char>
Text<Char>& replaceChars(Text<Char>& text, Char from, Char to) {
    std::replace(text.begin(), text.end(), from, to);
    return text;
}

// Builds the result beside the text: replacing within it would move the tail once a part.
template <class Char>
Text<Char>& replaceParts(Text<Char>& text, View<Char> from, View<Char> to) {
    auto found = from.empty() ? npos : text.find(from);
    if (found == npos) return text;
    Text<Char> result;
    result.reserve(text.size());
    std::size_t done = 0;
    for (; found != npos; found = text.find(from, done)) {
        result.append(text, done, found - done).append(to);
        done = found + from.size();
    }
    result.append(text, done);
    text = std::move(result);
    return text;
}

// Only the outer pair goes: quotes inside are part of the text, even if another pair is left.
template <class Char>
Text<Char>& dropQuotes(Text<Char>& text) {
    if (text.size() < 2 || text.front() != text.back()) return text;
    if (text.front() != '\'' && text.front() != '"') return text;
    text.pop_back();
    text.erase(0, 1);
    return text;
}

// The ends of a range, cut to the text.
template <class Char>
auto rangeOf(Text<Char>& text, std::size_t pos, std::size_t count) {
    const std::size_t first = std::min(pos, text.size());
    const std::size_t last = first + std::min(count, text.size() - first);
    const auto at = [&text](std::size_t i) {
        return text.begin() + static_cast<std::ptrdiff_t>(i);
    };
    return std::pair(at(first), at(last));
}

template <class Char>
Text<Char>& reverseRange(Text<Char>& text, std::size_t pos, std::size_t count) {
    const auto [first, last] = rangeOf(text, pos, count);
    std::reverse(first, last);
    return text;
}

// Moves the characters that stay to the front of the range in one pass: linear, however many go.
template <class Char, class IsUnwanted>
Text<Char>& eraseIf(Text<Char>& text, std::size_t pos, std::size_t count, IsUnwanted isUnwanted) {
    const auto [first, last] = rangeOf(text, pos, count);
    text.erase(std::remove_if(first, last, isUnwanted), last);
    return text;
}

template <class Char>
Text<Char>& eraseSet(Text<Char>& text, View<Char> set, std::size_t pos, std::size_t count,
                     bool ifInSet) {
    return eraseIf(text, pos, count, [=](Char c) { return (set.find(c) != npos) == ifInSet; });
}

template <class Char>
Text<Char>& eraseChar(Text<Char>& text, Char unwanted, std::size_t pos, std::size_t count) {
    return eraseIf(text, pos, count, [unwanted](Char c) { return c == unwanted; });
}

enum class Side { Left, Right, Both };

template <class Char>
Text<Char>& padTo(Text<Char>& text, std::size_t width, Char c, Side side) {
    if (text.size() >= width) return text;
    const std::size_t missing = width - text.size();
    const std::size_t left = side == Side::Left ? missing : side == Side::Both ? missing / 2 : 0;
    text.insert(0, left, c);
    return text.append(missing - left, c);
}

}  // namespace

std::string& trimLeft(std::string& text, bool whitespaceOnly) {
    return trimFront(text, whitespaceOnly);
}

std::wstring& trimLeft(std::wstring& text, bool whitespaceOnly) {
    return trimFront(text, whitespaceOnly);
}

std::string& trimRight(std::string& text, bool whitespaceOnly) {
    return trimBack(text, whitespaceOnly);
}

std::wstring& trimRight(std::wstring& text, bool whitespaceOnly) {
    return trimBack(text, whitespaceOnly);
}

std::string& upper(std::string& text) {
    return raiseAll(text);
}

std::wstring& upper(std::wstring& text) {
    return raiseAll(text);
}

wchar_t& upper(wchar_t& c) {
    return c = raised(c);
}

std::string& lower(std::string& text) {
    return lowerAll(text);
}

std::wstring& lower(std::wstring& text) {
    return lowerAll(text);
}

wchar_t& lower(wchar_t& c) {
    return c = lowered(c);
}

std::string& capitalize(std::string& text) {
    return capitalizeWords(text);
}

std::wstring& capitalize(std::wstring& text) {
    return capitalizeWords(text);
}

std::string& capitalizeSentence(std::string& text) {
    return capitalizeSentences(text);
}

std::wstring& capitalizeSentence(std::wstring& text) {
    return capitalizeSentences(text);
}

std::string& substitute(std::string& text, char from, char to) {
    return replaceChars(text, from, to);
}

std::wstring& substitute(std::wstring& text, wchar_t from, wchar_t to) {
    return replaceChars(text, from, to);
}

std::string& substitute(std::string& text, std::string_view from, std::string_view to) {
    return replaceParts<char>(text, from, to);
}

std::wstring& substitute(std::wstring& text, std::wstring_view from, std::wstring_view to) {
    return replaceParts<wchar_t>(text, from, to);
}

std::string& unQuote(std::string& text) {
    return dropQuotes(text);
}

std::wstring& unQuote(std::wstring& text) {
    return dropQuotes(text);
}

std::string& reverse(std::string& text, std::size_t pos, std::size_t count) {
    return reverseRange(text, pos, count);
}

std::wstring& reverse(std::wstring& text, std::size_t pos, std::size_t count) {
    return reverseRange(text, pos, count);
}

std::string& erase(std::string& text, char unwanted, std::size_t pos, std::size_t count) {
    return eraseChar(text, unwanted, pos, count);
}

std::wstring& erase(std::wstring& text, wchar_t unwanted, std::size_t pos, std::size_t count) {
    return eraseChar(text, unwanted, pos, count);
}

std::string& erase(std::string& text, std::string_view set, std::size_t pos, std::size_t count) {
    return eraseSet<char>(text, set, pos, count, true);
}

std::wstring& erase(std::wstring& text, std::wstring_view set, std::size_t pos, std::size_t count) {
    return eraseSet<wchar_t>(text, set, pos, count, true);
}

std::string& eraseAllExcept(std::string& text, std::string_view set, std::size_t pos,
                            std::size_t count) {
    return eraseSet<char>(text, set, pos, count, false);
}

std::wstring& eraseAllExcept(std::wstring& text, std::wstring_view set, std::size_t pos,
                             std::size_t count) {
    return eraseSet<wchar_t>(text, set, pos, count, false);
}

std::string& pad(std::string& text, std::size_t width, char c) {
    return padTo(text, width, c, Side::Both);
}

std::wstring& pad(std::wstring& text, std::size_t width, wchar_t c) {
    return padTo(text, width, c, Side::Both);
}

std::string& padLeft(std::string& text, std::size_t width, char c) {
    return padTo(text, width, c, Side::Left);
}

std::wstring& padLeft(std::wstring& text, std::size_t width, wchar_t c) {
    return padTo(text, width, c, Side::Left);
}

std::string& padRight(std::string& text, std::size_t width, char c) {
    return padTo(text, width, c, Side::Right);
}

std::wstring& padRight(std::wstring& text, std::size_t width, wchar_t c) {
    return padTo(text, width, c, Side::Right);
}

}  // namespace TarvikCorelib::StringTools
