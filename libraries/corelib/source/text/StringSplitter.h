/// Splits texts into lists, sets and maps and joins them again; reads command lines.
#pragma once

#include "libraries/corelib/source/text/SplitData.h"

#include <cstddef>
#include <initializer_list>
#include <list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace TarvikCorelib {

/// The half of `StringSplitter` for one kind of character. A delimiter is a character or a whole
/// substring, or, in the `FirstOf` forms, any character of a set. An empty substring divides
/// nothing: a split gives one item, `left` and `right` give an empty piece and leave the text.
template <class Char>
class BasicStringSplitter : public SplitTerms {
    using Text = std::basic_string<Char>;
    using View = StringTools::View<Char>;
    using Map = std::map<Text, Text>;
    using MultiMap = std::multimap<Text, Text>;
    using Data = BasicSplitData<Char>;

public:
    /// Take the head: return what stands before the first delimiter and remove it, with the
    /// delimiter, from `text`. Without a delimiter that is all of it.
    static Text left(Text& text, Char delimiter);
    static Text left(Text& text, View delimiter);
    static Text leftFirstOf(Text& text, View set);
    /// Take the tail: return what stands behind the last delimiter and cut `text` back to what
    /// stands before it. Unlike `left`, on purpose, these throw `std::out_of_range` without a
    /// delimiter and leave `text` as it is.
    static Text right(Text& text, Char delimiter);
    static Text right(Text& text, View delimiter);
    static Text rightFirstOf(Text& text, View set);

    /// The text before and behind the first delimiter. Without one, all of `text` and an empty text.
    static std::pair<Text, Text> tLeft(View text, Char delimiter);
    static std::pair<Text, Text> tLeft(View text, View delimiter);
    static std::pair<Text, Text> tLeftFirstOf(View text, View set);
    /// What stands before and behind the last delimiter. Without one they throw as `right` does.
    static std::pair<Text, Text> tRight(View text, Char delimiter);
    static std::pair<Text, Text> tRight(View text, View delimiter);
    static std::pair<Text, Text> tRightFirstOf(View text, View set);

    /// The items between the delimiters, of which at most `limit`: the last one then holds all that
    /// is left, delimiters included, untrimmed at its end; 0 gives the whole text as it is. Items
    /// left out do not count, equal items of a set do. A text that ends in a delimiter has no empty
    /// last item, an empty text no item at all.
    static std::list<Text> toList(View text, Char delimiter, int flags = 0,
                                  std::size_t limit = NoLimit) {
        return internalSplitList({text, SplitChar, delimiter, flags, limit});
    }
    static std::list<Text> toList(View text, View delimiter, int flags = 0,
                                  std::size_t limit = NoLimit) {
        return internalSplitList({text, SplitSubstr, delimiter, flags, limit});
    }
    static std::list<Text> toListFirstOf(View text, View set, int flags = 0,
                                         std::size_t limit = NoLimit) {
        return internalSplitList({text, SplitFirstOf, set, flags, limit});
    }
    static std::vector<Text> toVector(View text, Char delimiter, int flags = 0,
                                      std::size_t limit = NoLimit) {
        return internalSplitVector({text, SplitChar, delimiter, flags, limit});
    }
    static std::vector<Text> toVector(View text, View delimiter, int flags = 0,
                                      std::size_t limit = NoLimit) {
        return internalSplitVector({text, SplitSubstr, delimiter, flags, limit});
    }
    static std::vector<Text> toVectorFirstOf(View text, View set, int flags = 0,
                                             std::size_t limit = NoLimit) {
        return internalSplitVector({text, SplitFirstOf, set, flags, limit});
    }
    static std::set<Text> toSet(View text, Char delimiter, int flags = 0,
                                std::size_t limit = NoLimit) {
        return internalSplitSet({text, SplitChar, delimiter, flags, limit});
    }
    static std::set<Text> toSet(View text, View delimiter, int flags = 0,
                                std::size_t limit = NoLimit) {
        return internalSplitSet({text, SplitSubstr, delimiter, flags, limit});
    }
    static std::set<Text> toSetFirstOf(View text, View set, int flags = 0,
                                       std::size_t limit = NoLimit) {
        return internalSplitSet({text, SplitFirstOf, set, flags, limit});
    }
    static std::multiset<Text> toMultiSet(View text, Char delimiter, int flags = 0,
                                          std::size_t limit = NoLimit) {
        return internalSplitMultiSet({text, SplitChar, delimiter, flags, limit});
    }
    static std::multiset<Text> toMultiSet(View text, View delimiter, int flags = 0,
                                          std::size_t limit = NoLimit) {
        return internalSplitMultiSet({text, SplitSubstr, delimiter, flags, limit});
    }
    static std::multiset<Text> toMultiSetFirstOf(View text, View set, int flags = 0,
                                                 std::size_t limit = NoLimit) {
        return internalSplitMultiSet({text, SplitFirstOf, set, flags, limit});
    }

    /// The items as pairs, cut as told at `BasicSplitData::findKV`. An item without a key-value
    /// delimiter is a key with an empty value. A map keeps the first pair of a key.
    static Map toMap(View text, Char itemDelimiter, Char keyValueDelimiter, int flags = 0) {
        return internalSplitMap({text, SplitChar, itemDelimiter, keyValueDelimiter, flags});
    }
    static Map toMap(View text, View itemDelimiter, View keyValueDelimiter, int flags = 0) {
        return internalSplitMap({text, SplitSubstr, itemDelimiter, keyValueDelimiter, flags});
    }
    static Map toMapFirstOf(View text, View itemSet, View keyValueSet, int flags = 0) {
        return internalSplitMap({text, SplitFirstOf, itemSet, keyValueSet, flags});
    }
    static MultiMap toMultiMap(View text, Char itemDelimiter, Char keyValueDelimiter,
                               int flags = 0) {
        return internalSplitMultiMap({text, SplitChar, itemDelimiter, keyValueDelimiter, flags});
    }
    static MultiMap toMultiMap(View text, View itemDelimiter, View keyValueDelimiter,
                               int flags = 0) {
        return internalSplitMultiMap({text, SplitSubstr, itemDelimiter, keyValueDelimiter, flags});
    }
    static MultiMap toMultiMapFirstOf(View text, View itemSet, View keyValueSet, int flags = 0) {
        return internalSplitMultiMap({text, SplitFirstOf, itemSet, keyValueSet, flags});
    }

    /// The required keys that the map lacks. As a text these are divided by commas, trimmed and
    /// skipped if empty; between quotes a comma is none, and the quotes stay with the key.
    static std::set<Text> verifyMap(const Map& map, const std::list<Text>& required);
    static std::set<Text> verifyMap(const Map& map, std::initializer_list<View> required);
    static std::set<Text> verifyMap(const Map& map, View required);
    static std::set<Text> verifyMap(const MultiMap& map, const std::list<Text>& required);
    static std::set<Text> verifyMap(const MultiMap& map, std::initializer_list<View> required);
    static std::set<Text> verifyMap(const MultiMap& map, View required);

private:
    static std::list<Text> internalSplitList(Data data);
    static std::vector<Text> internalSplitVector(Data data);
    static std::set<Text> internalSplitSet(Data data);
    static std::multiset<Text> internalSplitMultiSet(Data data);
    static Map internalSplitMap(Data data);
    static MultiMap internalSplitMultiMap(Data data);
};

extern template class BasicStringSplitter<char>;
extern template class BasicStringSplitter<wchar_t>;

/// All of it for narrow and for wide texts, joining and command lines for narrow ones only.
class StringSplitter : public BasicStringSplitter<char>, public BasicStringSplitter<wchar_t> {
    using Narrow = BasicStringSplitter<char>;
    using Wide = BasicStringSplitter<wchar_t>;

public:
    using SplitData = BasicSplitData<char>;
    using SplitDataW = BasicSplitData<wchar_t>;

    using Narrow::left, Wide::left;
    using Narrow::leftFirstOf, Wide::leftFirstOf;
    using Narrow::right, Wide::right;
    using Narrow::rightFirstOf, Wide::rightFirstOf;
    using Narrow::tLeft, Wide::tLeft;
    using Narrow::tLeftFirstOf, Wide::tLeftFirstOf;
    using Narrow::tRight, Wide::tRight;
    using Narrow::tRightFirstOf, Wide::tRightFirstOf;

    using Narrow::toList, Wide::toList;
    using Narrow::toListFirstOf, Wide::toListFirstOf;
    using Narrow::toMultiSet, Wide::toMultiSet;
    using Narrow::toMultiSetFirstOf, Wide::toMultiSetFirstOf;
    using Narrow::toSet, Wide::toSet;
    using Narrow::toSetFirstOf, Wide::toSetFirstOf;
    using Narrow::toVector, Wide::toVector;
    using Narrow::toVectorFirstOf, Wide::toVectorFirstOf;

    using Narrow::toMap, Wide::toMap;
    using Narrow::toMapFirstOf, Wide::toMapFirstOf;
    using Narrow::toMultiMap, Wide::toMultiMap;
    using Narrow::toMultiMapFirstOf, Wide::toMultiMapFirstOf;
    using Narrow::verifyMap, Wide::verifyMap;

    /// The items of a list, vector, set or multiset in its order, with the delimiter between them.
    /// An item gets none before it as long as the result is empty, so leading empty items vanish.
    /// With `SplitQuoted` each goes through `internalEncode`; other flags change nothing.
    template <class Container>
    [[nodiscard]] static std::string join(const Container& items, std::string_view delimiter,
                                          int flags = 0);
    /// The same for the pairs of a map or multimap, each as its key, `keyValueDelimiter` and its
    /// value.
    template <class Pairs>
    [[nodiscard]] static std::string join(const Pairs& pairs, std::string_view itemDelimiter,
                                          std::string_view keyValueDelimiter, int flags = 0);

    /// Puts a text in quotes, if it needs them, so that a split with `SplitQuoted` gives it back.
    /// On purpose that holds only for texts without quotes and backslashes: a quote inside takes
    /// over from the one around it, and a backslash at the end protects the closing one. In a text
    /// with both kinds of quotes the two characters behind a delimiter get lost, on purpose too.
    static std::string internalEncode(std::string_view text, std::string_view itemDelimiter,
                                      std::string_view keyValueDelimiter);

    /// Splits a command line into its arguments, at spaces outside quotes, up to a line feed. With
    /// `decode` the escapes inside quotes are turned into the characters they stand for. An
    /// argument that begins with a quote loses its outer quotes, others keep theirs. One whose
    /// quote is never closed keeps it, on purpose, unless it is all there is.
    static std::vector<std::string> splitArgString(std::string_view text, bool decode);

private:
    static void internalJoin(std::string& joined, std::string_view text, std::string_view delimiter,
                             int flags);
    static void internalJoin(std::string& joined, std::string_view key, std::string_view value,
                             std::string_view itemDelimiter, std::string_view keyValueDelimiter,
                             int flags);
};

template <class Container>
std::string StringSplitter::join(const Container& items, std::string_view delimiter, int flags) {
    std::string joined;
    for (const std::string_view item : items)
        internalJoin(joined, item, delimiter, flags);
    return joined;
}

template <class Pairs>
std::string StringSplitter::join(const Pairs& pairs, std::string_view itemDelimiter,
                                 std::string_view keyValueDelimiter, int flags) {
    std::string joined;
    for (const auto& [key, value] : pairs)
        internalJoin(joined, key, value, itemDelimiter, keyValueDelimiter, flags);
    return joined;
}

}  // namespace TarvikCorelib
