#include "libraries/corelib/source/text/SplitData.h"

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <algorithm>
#include <array>

namespace TarvikCorelib {

namespace {

template <class Char>
bool isBlank(Char c) {
    return StringTools::whitespaceOf<Char>().find(c) != StringTools::npos;
}

// Whether a delimiter begins the text, which is not empty.
template <class Char>
bool startsWith(std::basic_string_view<Char> text, SplitTerms::SplitType type,
                std::basic_string_view<Char> delimiter) {
    if (type == SplitTerms::SplitFirstOf) return delimiter.find(text.front()) != StringTools::npos;
    return !delimiter.empty() && text.starts_with(delimiter);
}

// Quotes as `findEndEscaping` reads them: the one open quote, if any, and whether the character
// before was a backslash that takes effect.
template <class Char>
class QuoteState {
public:
    [[nodiscard]] bool isOpen() const { return quote != 0; }

    void take(Char c) {
        const bool isQuote = (c == '\'' || c == '"') && !escaped;
        if (isQuote) quote = quote == c ? Char{0} : c;
        escaped = c == '\\' && !escaped;
    }

private:
    Char quote = 0;
    bool escaped = false;
};

}  // namespace

template <class Char>
BasicSplitData<Char>::BasicSplitData(View text, SplitType type, Char delimiter, int flags,
                                     std::size_t limit)
    : BasicSplitData(text, type, View(&delimiter, 1), flags, limit) {}

template <class Char>
BasicSplitData<Char>::BasicSplitData(View text, SplitType type, View delimiter, int flags,
                                     std::size_t limit)
    : text(text), type(type), delimiter(delimiter), flags(flags), limit(limit) {}

template <class Char>
BasicSplitData<Char>::BasicSplitData(View text, SplitType type, Char delimiter,
                                     Char keyValueDelimiter, int flags)
    : BasicSplitData(text, type, View(&delimiter, 1), View(&keyValueDelimiter, 1), flags) {}

template <class Char>
BasicSplitData<Char>::BasicSplitData(View text, SplitType type, View delimiter,
                                     View keyValueDelimiter, int flags)
    : text(text),
      type(type),
      delimiter(delimiter),
      keyValueDelimiter(keyValueDelimiter),
      flags(flags) {}

// A next start at or behind the end of the text ends the scan. So a delimiter at the very end makes
// no empty item, and without a delimiter the current item is the last one.
template <class Char>
bool BasicSplitData<Char>::advance() {
    if (nextStart >= text.size()) return false;
    currentStart = nextStart;
    foundAt = find(delimiter, currentStart);
    nextStart = foundAt + lengthOf(delimiter);
    itemStart = currentStart;
    itemEnd = foundAt;
    if (has(SplitTrim)) trimItem();
    return true;
}

template <class Char>
void BasicSplitData<Char>::widenToEnd() {
    nextStart = text.size();
    itemEnd = text.size();
}

// A value that begins behind its own end is empty.
template <class Char>
auto BasicSplitData<Char>::keyAndValue() -> std::pair<View, View> {
    std::size_t keyStart = 0;
    std::size_t keyEnd = 0;
    std::size_t valueStart = 0;
    std::size_t valueEnd = 0;
    findKV(keyStart, keyEnd, valueStart, valueEnd);
    valueStart = std::min(valueStart, valueEnd);
    return {text.substr(keyStart, keyEnd - keyStart),
            text.substr(valueStart, valueEnd - valueStart)};
}

// A delimiter is looked for before the character is read as a quote. So a delimiter that is a quote
// splits and opens nothing, and one behind a backslash splits as well.
template <class Char>
std::size_t BasicSplitData<Char>::findEndEscaping(SplitType type, View delimiter,
                                                  std::size_t pos) const {
    QuoteState<Char> quotes;
    for (; pos < text.size(); ++pos) {
        if (!quotes.isOpen() && startsWith(text.substr(pos), type, delimiter)) return pos;
        quotes.take(text[pos]);
    }
    return text.size();
}

// The delimiter found may be behind the item. The end of the item limits the value, not the key.
template <class Char>
void BasicSplitData<Char>::findKV(std::size_t& keyStart, std::size_t& keyEnd,
                                  std::size_t& valueStart, std::size_t& valueEnd) {
    findKeyValueDelimiter();
    const bool isFound = keyValue.at < text.size();
    keyStart = itemStart;
    keyEnd = isFound ? keyValue.at : itemEnd;
    valueStart = keyEnd + lengthOf(keyValueDelimiter);
    valueEnd = itemEnd;

    if (!has(SplitTrim)) return;
    if (isFound) keyEnd = std::max(keyStart, keyValue.keyEnd);
    // Quirk: the value grows backward instead of losing its white space.
    while (valueStart > keyStart && valueStart < valueEnd && isBlank(text[valueStart]))
        --valueStart;
}

// The next delimiter, of items or of keys, from `pos` on; the size of the text if there is none.
template <class Char>
std::size_t BasicSplitData<Char>::find(View wanted, std::size_t pos) const {
    if (has(SplitQuoted)) return findEndEscaping(type, wanted, pos);
    if (wanted.empty()) return text.size();
    const auto found =
        type == SplitFirstOf ? text.find_first_of(wanted, pos) : text.find(wanted, pos);
    return std::min(found, text.size());
}

template <class Char>
std::size_t BasicSplitData<Char>::lengthOf(View wanted) const {
    return type == SplitFirstOf ? 1 : wanted.size();
}

// Searches anew only if the item begins behind the last delimiter found, or a text with a single
// one at its end would be searched once an item. With `SplitQuoted` that is right as well, since
// quotes are closed where an item begins; only an item delimiter that holds a quote or a backslash
// could leave them open.
template <class Char>
void BasicSplitData<Char>::findKeyValueDelimiter() {
    constexpr std::array<Char, 3> quoting = {'\'', '"', '\\'};
    const bool isQuoting =
        has(SplitQuoted) &&
        delimiter.find_first_of(quoting.data(), 0, quoting.size()) != StringTools::npos;
    if (keyValue.isKnown && keyValue.at >= itemStart && !isQuoting) return;

    keyValue = {true, find(keyValueDelimiter, itemStart), itemStart};
    const View keys = text.substr(itemStart, keyValue.at - itemStart);
    keyValue.keyEnd += keys.find_last_not_of(StringTools::whitespaceOf<Char>()) + 1;
}

// Nothing but white space leaves an empty item at the end of that space.
template <class Char>
void BasicSplitData<Char>::trimItem() {
    const View untrimmed = item();
    const auto first = untrimmed.find_first_not_of(StringTools::whitespaceOf<Char>());
    if (first == StringTools::npos) {
        itemStart = itemEnd;
        return;
    }
    itemEnd = itemStart + untrimmed.find_last_not_of(StringTools::whitespaceOf<Char>()) + 1;
    itemStart += first;
}

template class BasicSplitData<char>;
template class BasicSplitData<wchar_t>;

}  // namespace TarvikCorelib
