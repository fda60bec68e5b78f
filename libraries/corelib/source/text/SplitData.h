/// Scans a text item by item: what stands beneath `StringSplitter`.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace TarvikCorelib {

/// How a text is to be split.
struct SplitTerms {
    /// What a delimiter is.
    enum SplitType : std::int32_t {
        SplitChar = 0,     ///< One character.
        SplitFirstOf = 1,  ///< Any character of a set.
        SplitSubstr = 2,   ///< A whole substring. An empty one is never found.
    };
    /// Bits of the flags; 2 means nothing.
    enum SplitFlag : std::int32_t {
        SplitTrim = 1,            ///< Remove white space around items and behind keys.
        SplitSkipEmpty = 4,       ///< Leave out empty items, or pairs with an empty key.
        SplitSkipEmptyValue = 8,  ///< Leave out pairs with an empty value.
        SplitQuoted = 16,         ///< No delimiter between quotes is one. The quotes stay.
    };
    static constexpr auto NoLimit = static_cast<std::size_t>(-1);
};

/// One scan. The text is the caller's and must live as long as the scan does.
template <class Char>
class BasicSplitData : public SplitTerms {
public:
    using View = StringTools::View<Char>;

    /// For items, of which the caller wants at most `limit`.
    BasicSplitData(View text, SplitType type, Char delimiter, int flags, std::size_t limit);
    BasicSplitData(View text, SplitType type, View delimiter, int flags, std::size_t limit);
    /// For pairs: these have no limit and ignore it.
    BasicSplitData(View text, SplitType type, Char delimiter, Char keyValueDelimiter, int flags);
    BasicSplitData(View text, SplitType type, View delimiter, View keyValueDelimiter, int flags);

    /// Moves to the next item. False at the end of the text.
    bool advance();
    /// The current item takes in all that is left, untrimmed at its end, and is the last one.
    void widenToEnd();

    [[nodiscard]] View item() const { return text.substr(itemStart, itemEnd - itemStart); }
    /// The current item as `findKV` cuts it.
    [[nodiscard]] std::pair<View, View> keyAndValue();

    [[nodiscard]] View getText() const { return text; }
    [[nodiscard]] std::size_t getLimit() const { return limit; }
    [[nodiscard]] bool has(SplitFlag flag) const { return (flags & flag) != 0; }

    /// The place of the first delimiter outside quotes from `pos` on, or the end of the text. A
    /// quote inside quotes of the other kind takes over from it, and a backslash protects a quote
    /// but no delimiter: unlike in `StringIterator`, on purpose.
    [[nodiscard]] std::size_t findEndEscaping(SplitType type, View delimiter,
                                              std::size_t pos) const;

    /// Cuts the current item into key and value, as places in the text. Without a key-value
    /// delimiter all is key. Two things are odd on purpose:
    /// - A delimiter behind the item counts. The key then reaches up to it, beyond the item, and
    ///   the value starts behind its own end, which means that it is empty. So many items before
    ///   a single delimiter make long keys, whose sum grows with the square of their number.
    /// - With `SplitTrim` a value with white space in front keeps it and gains what stands before
    ///   it: "k= v" has the value "= v".
    ///
    /// All items together take one pass over the text. Only with `SplitQuoted` and an item
    /// delimiter that holds a quote or a backslash does each take one.
    void findKV(std::size_t& keyStart, std::size_t& keyEnd, std::size_t& valueStart,
                std::size_t& valueEnd);

private:
    // The last key-value delimiter found: valid for all items up to it.
    struct KeyValueDelimiter {
        bool isKnown = false;
        std::size_t at = 0;      // The end of the text if there is none.
        std::size_t keyEnd = 0;  // Where the white space in front of it begins.
    };

    [[nodiscard]] std::size_t find(View wanted, std::size_t pos) const;
    [[nodiscard]] std::size_t lengthOf(View wanted) const;
    void findKeyValueDelimiter();
    void trimItem();

    View text;
    SplitType type = SplitChar;
    std::basic_string<Char> delimiter;
    std::basic_string<Char> keyValueDelimiter;  // Empty if there are no pairs.
    int flags = 0;
    std::size_t limit = 0;
    std::size_t nextStart = 0;
    std::size_t currentStart = 0;
    std::size_t foundAt = 0;
    std::size_t itemStart = 0;
    std::size_t itemEnd = 0;
    KeyValueDelimiter keyValue;
};

extern template class BasicSplitData<char>;
extern template class BasicSplitData<wchar_t>;

}  // namespace TarvikCorelib
