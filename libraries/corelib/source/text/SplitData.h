/// Scans a text item by item: the scanner behind `StringSplitter`.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace TarvikCorelib {

/// How a text is to be split. The numbers are settled: callers store them.
///
/// With the text `a, ,"b, c"`:
///
///     StringSplitter::toList(text, ',');                              // "a", " ", "\"b", " c\""
///     StringSplitter::toList(text, ',', SplitTrim | SplitSkipEmpty);  // "a", "\"b", "c\""
///     StringSplitter::toList(text, ',', SplitQuoted);                 // "a", " ", "\"b, c\""
///     StringSplitter::toList(text, ',', 0, 2);                        // "a", " ,\"b, c\""
struct SplitTerms {
    /// What a delimiter is.
    enum SplitType : std::int32_t {
        SplitChar = 0,     ///< One character.
        SplitFirstOf = 1,  ///< Any character of a set.
        SplitSubstr = 2,   ///< A whole substring. An empty one is never found.
    };
    /// Bits of the flags. The bit 2 has no meaning and is ignored.
    enum SplitFlag : std::int32_t {
        SplitTrim = 1,            ///< Remove white space around items and behind keys.
        SplitSkipEmpty = 4,       ///< Leave out empty items, or pairs with an empty key.
        SplitSkipEmptyValue = 8,  ///< Leave out pairs with an empty value.
        SplitQuoted = 16,         ///< Ignore delimiters between quotes. The quotes stay.
    };
    /// As many items as there are.
    static constexpr auto NoLimit = static_cast<std::size_t>(-1);
};

/// One scan of a text, from its beginning to its end.
///
/// `advance` moves from item to item and keeps nothing but positions: where the current item begins
/// and ends and where the next one begins. Items are views into the text, so a scan copies no
/// characters; the container that is built from it copies each item once. Kinds of delimiters,
/// flags and both widths share this one scanner, and all containers are filled by the same few
/// loops.
///
/// The text is the caller's and must live as long as the scan. Made for one call and passed by
/// value: a copy is a scan of its own that continues from the same place.
template <class Char>
class BasicSplitData : public SplitTerms {
public:
    using View = StringTools::View<Char>;

    /// For items, of which the caller wants at most `limit`. The scan itself does not count them.
    BasicSplitData(View text, SplitType type, Char delimiter, int flags, std::size_t limit);
    BasicSplitData(View text, SplitType type, View delimiter, int flags, std::size_t limit);
    /// For pairs, which have no limit. Both delimiters are of the same type.
    BasicSplitData(View text, SplitType type, Char delimiter, Char keyValueDelimiter, int flags);
    BasicSplitData(View text, SplitType type, View delimiter, View keyValueDelimiter, int flags);

    /// Moves to the next item, the first one at first. False at the end of the text, and from then
    /// on.
    bool advance();
    /// Extends the current item to the end of the text, untrimmed there. It is then the last one.
    void widenToEnd();

    [[nodiscard]] View item() const { return text.substr(itemStart, itemEnd - itemStart); }
    /// The key and the value of the current item, as `findKV` finds them.
    [[nodiscard]] std::pair<View, View> keyAndValue();

    [[nodiscard]] View getText() const { return text; }
    [[nodiscard]] std::size_t getLimit() const { return limit; }
    [[nodiscard]] bool has(SplitFlag flag) const { return (flags & flag) != 0; }

    /// The index of the first delimiter outside quotes from `pos` on, or the size of the text. The
    /// walk begins outside quotes.
    /// Quirk: unlike in `StringIterator` a quote inside quotes of the other kind takes over from
    /// it. A backslash takes the power of a quote, but hides no delimiter.
    [[nodiscard]] std::size_t findEndEscaping(SplitType type, View delimiter,
                                              std::size_t pos) const;

    /// Cuts the current item into key and value, as indices into the text. Without a key-value
    /// delimiter all of the item is key.
    /// Quirk: a delimiter behind the item is used, too. The key then reaches up to it, beyond the
    /// item, and the value begins behind its own end, which makes it empty. So many items before a
    /// single delimiter have long keys, whose sum grows with the square of their number.
    /// Quirk: with `SplitTrim` a value with white space in front keeps it and gains the character
    /// before it: "k= v" has the value "= v".
    ///
    /// All items together take one pass over the text. Only with `SplitQuoted` and an item
    /// delimiter that holds a quote or a backslash, each item takes a pass of its own.
    void findKV(std::size_t& keyStart, std::size_t& keyEnd, std::size_t& valueStart,
                std::size_t& valueEnd);

private:
    // The last key-value delimiter found. It serves all items that begin before it.
    struct KeyValueDelimiter {
        bool isKnown = false;
        std::size_t at = 0;      // The end of the text if there is none.
        std::size_t keyEnd = 0;  // The beginning of the white space in front of it.
    };

    [[nodiscard]] std::size_t find(View wanted, std::size_t pos) const;
    [[nodiscard]] std::size_t lengthOf(View wanted) const;
    void findKeyValueDelimiter();
    void trimItem();

    View text;
    SplitType type = SplitChar;
    std::basic_string<Char> delimiter;          // Of items: a character, a set or a substring.
    std::basic_string<Char> keyValueDelimiter;  // Empty if there are no pairs.
    int flags = 0;
    std::size_t limit = 0;
    std::size_t nextStart = 0;     // Behind the delimiter of the current item.
    std::size_t currentStart = 0;  // Of the current item, untrimmed.
    std::size_t foundAt = 0;       // The delimiter that ends the current item.
    std::size_t itemStart = 0;     // Of the current item, trimmed if `SplitTrim` is set.
    std::size_t itemEnd = 0;
    KeyValueDelimiter keyValue;
};

extern template class BasicSplitData<char>;
extern template class BasicSplitData<wchar_t>;

}  // namespace TarvikCorelib
