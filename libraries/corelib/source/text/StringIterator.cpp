#include "libraries/corelib/source/text/StringIterator.h"

namespace TarvikCorelib {

template <class Char>
bool BasicStringIterator<Char>::next(std::basic_string_view<Char> text) {
    if (pos >= text.size()) {
        clear();
        return false;
    }
    currentIndex = pos++;
    currentChar = text[currentIndex];

    // A backslash serves one character only, whether that can be escaped or not.
    const bool isPlain = escaped && isEscapable();
    escaped = false;
    if (!isPlain) read();
    return true;
}

template <class Char>
unsigned BasicStringIterator<Char>::getOpenParenthesis(Char opening) const {
    const auto found = openParentheses.find(opening);
    return found != openParentheses.end() ? found->second : 0;
}

template <class Char>
void BasicStringIterator<Char>::decParenthesis(Char opening) {
    const auto found = openParentheses.find(opening);
    if (found != openParentheses.end() && --found->second == 0) openParentheses.erase(found);
}

// Whether a backslash in front takes the power of the current character.
template <class Char>
bool BasicStringIterator<Char>::isEscapable() const {
    if (noEscapes) return false;
    return !onlyQuotesEscapable || currentChar == '"' || currentChar == '\'' || currentChar == '\\';
}

// The effect of a character that is not escaped.
template <class Char>
void BasicStringIterator<Char>::read() {
    switch (currentChar) {
    case '"': doubleQuotes = !doubleQuotes; break;
    case '\'': singleQuotes = !singleQuotes; break;
    case '(':
    case '<':
    case '[':
    case '{': incParenthesis(currentChar); break;
    case ')': decParenthesis('('); break;
    case '>': decParenthesis('<'); break;
    case ']': decParenthesis('['); break;
    case '}': decParenthesis('{'); break;
    case '\\': escaped = !noEscapes; break;
    default: break;
    }
}

template class BasicStringIterator<char>;
template class BasicStringIterator<wchar_t>;

}  // namespace TarvikCorelib
