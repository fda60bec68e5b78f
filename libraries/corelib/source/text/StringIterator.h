/// A walk through a text that knows about quotes, escapes and brackets.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>

namespace TarvikCorelib {

/// Goes through a text a character at a time. Every call of `next` is given the text anew: nothing
/// of it is kept. The two kinds of quotes toggle independently, so that neither hides the other,
/// and brackets count inside quotes too.
///
/// One that looks for something outside quotes skips a character if `isQuoted` holds after it: an
/// opening quote is skipped, a closing one is not. A backslash only takes a quote's power away: it
/// hides no other character.
template <class Char>
class BasicStringIterator {
public:
    static constexpr auto NoIndex = static_cast<std::size_t>(-1);

    BasicStringIterator() = default;
    /// The first `next` gives the character at `pos`.
    explicit BasicStringIterator(std::uint64_t pos) : pos(pos) {}

    /// Moves to the next character. False at the end of the text; all is then as new, the options
    /// too, so that another walk can begin.
    bool next(std::basic_string_view<Char> text);
    void clear() { *this = {}; }

    /// The index of the current character; `NoIndex` before the first.
    [[nodiscard]] std::size_t index() const { return currentIndex; }
    [[nodiscard]] Char current() const { return currentChar; }
    [[nodiscard]] bool inDoubleQuotes() const { return doubleQuotes; }
    [[nodiscard]] bool inSingleQuotes() const { return singleQuotes; }
    [[nodiscard]] bool isQuoted() const { return doubleQuotes || singleQuotes; }

    /// Only quotes and backslashes can be escaped: other characters behind a backslash are read as
    /// if it were not there.
    void setOnlyQuotesEscapable(bool on) { onlyQuotesEscapable = on; }
    /// A backslash is a character like any other.
    void setNoEscapes(bool on) { noEscapes = on; }

    /// How many brackets are open, by their opening character. `next` counts (), <>, [] and {}. A
    /// closing one without an opening one counts for nothing.
    [[nodiscard]] unsigned getOpenParenthesis(Char opening) const;
    void incParenthesis(Char opening) { ++openParentheses[opening]; }
    void decParenthesis(Char opening);

private:
    [[nodiscard]] bool isEscapable() const;
    void read();

    std::uint64_t pos = 0;
    std::map<Char, unsigned> openParentheses;  // Without entries of 0.
    bool doubleQuotes = false;
    bool singleQuotes = false;
    bool escaped = false;  // The character before was an escape.
    bool onlyQuotesEscapable = false;
    bool noEscapes = false;
    Char currentChar = 0;
    std::size_t currentIndex = NoIndex;
};

extern template class BasicStringIterator<char>;
extern template class BasicStringIterator<wchar_t>;

using StringIterator = BasicStringIterator<char>;
using WStringIterator = BasicStringIterator<wchar_t>;

}  // namespace TarvikCorelib
