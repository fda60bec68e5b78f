/// A walk through a text that knows quotes, escapes and brackets.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>

namespace TarvikCorelib {

/// Goes through a text one character at a time and keeps the state behind each: the quotes and
/// brackets that are open, and whether a backslash waits for the next character. Each call of
/// `next` is given the text anew, so nothing of it is kept and there is nothing to outlive; the
/// cost is constant, but for brackets a lookup among those that are open.
///
/// The two kinds of quotes toggle independently, so neither hides the other, and brackets count
/// inside quotes, too. A search outside quotes skips a character if `isQuoted` holds behind it: an
/// opening quote is skipped, a closing one is not. A backslash only takes a quote's power away, or
/// a bracket's; it hides no character from a search.
///
/// Finds the commas outside quotes, 1 and 7 in `a,"b,c",d`:
///
///     StringIterator walk;
///     while (walk.next(text))
///         if (walk.current() == ',' && !walk.isQuoted()) commas.push_back(walk.index());
template <class Char>
class BasicStringIterator {
public:
    static constexpr auto NoIndex = static_cast<std::size_t>(-1);

    BasicStringIterator() = default;
    /// The first `next` moves to the character at `pos`. The text before it is ignored.
    explicit BasicStringIterator(std::uint64_t pos) : pos(pos) {}

    /// Moves to the next character. False at the end of the text: everything is then reset, the
    /// options and the position of the constructor too, so that another walk can begin.
    bool next(std::basic_string_view<Char> text);
    void clear() { *this = {}; }

    /// The index of the current character; `NoIndex` before the first `next`.
    [[nodiscard]] std::size_t index() const { return currentIndex; }
    /// The character there; 0 before the first `next`.
    [[nodiscard]] Char current() const { return currentChar; }
    [[nodiscard]] bool inDoubleQuotes() const { return doubleQuotes; }
    [[nodiscard]] bool inSingleQuotes() const { return singleQuotes; }
    [[nodiscard]] bool isQuoted() const { return doubleQuotes || singleQuotes; }

    /// Limits escapes to quotes and backslashes: other characters behind a backslash, such as
    /// brackets, have their usual effect.
    void setOnlyQuotesEscapable(bool on) { onlyQuotesEscapable = on; }
    /// Makes a backslash a character like any other.
    void setNoEscapes(bool on) { noEscapes = on; }

    /// How many brackets are open, by their opening character. `next` counts (), <>, [] and {}. A
    /// closing bracket without an opening one is ignored.
    [[nodiscard]] unsigned getOpenParenthesis(Char opening) const;
    /// Open and close a bracket by hand, also of a kind that `next` does not count.
    void incParenthesis(Char opening) { ++openParentheses[opening]; }
    void decParenthesis(Char opening);

private:
    [[nodiscard]] bool isEscapable() const;
    void read();

    std::uint64_t pos = 0;                     // The index of the next character.
    std::map<Char, unsigned> openParentheses;  // Without entries of 0.
    bool doubleQuotes = false;
    bool singleQuotes = false;
    bool escaped = false;  // The current character is a backslash that escapes the next one.
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
