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

/// The half of `StringSplitter` for one kind of character.
///
/// A delimiter is a character, a whole substring or, in the `FirstOf` forms, any character of a
/// set. An empty substring is in no text: a split makes one item of it all, while `left` and
/// `right` return an empty text and change nothing. All splits are one scan by `BasicSplitData`;
/// the public functions only choose its delimiter and the container that is filled. Flags are the
/// bits of `SplitFlag`; `SplitTerms` has examples.
template <class Char>
class BasicStringSplitter : public SplitTerms {
    using Text = std::basic_string<Char>;
    using View = StringTools::View<Char>;
    using Map = std::map<Text, Text>;
    using MultiMap = std::multimap<Text, Text>;
    using Data = BasicSplitData<Char>;

public:
    /// Take the head: return the text before the first delimiter and remove it from `text` together
    /// with the delimiter. Without a delimiter all is returned and `text` is left empty.
    static Text left(Text& text, Char delimiter);
    static Text left(Text& text, View delimiter);
    static Text leftFirstOf(Text& text, View set);
    /// Take the tail: return the text behind the last delimiter and cut `text` back to the text
    /// before it.
    /// Quirk: unlike `left` these throw `std::out_of_range` without a delimiter. `text` stays as it
    /// is then.
    static Text right(Text& text, Char delimiter);
    static Text right(Text& text, View delimiter);
    static Text rightFirstOf(Text& text, View set);

    /// The text before and behind the first delimiter. Without one, all of it and an empty text.
    static std::pair<Text, Text> tLeft(View text, Char delimiter);
    static std::pair<Text, Text> tLeft(View text, View delimiter);
    static std::pair<Text, Text> tLeftFirstOf(View text, View set);
    /// The text before and behind the last delimiter.
    /// Quirk: without a delimiter they throw as `right` does.
    static std::pair<Text, Text> tRight(View text, Char delimiter);
    static std::pair<Text, Text> tRight(View text, View delimiter);
    static std::pair<Text, Text> tRightFirstOf(View text, View set);

    /// The items between the delimiters, `limit` of them at most: the last one then holds the rest
    /// of the text, delimiters included, untrimmed at its end. Items left out do not count for the
    /// limit, equal items of a set do. A text that ends in a delimiter has no empty last item, an
    /// empty text no item at all.
    /// Quirk: a limit of 0 makes one item of the whole text, untrimmed.
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
    /// A set keeps one of equal items, a multiset all of them.
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

    /// The items as pairs; `BasicSplitData::findKV` says where each is cut, and with which quirks.
    /// An item without a key-value delimiter is a key with an empty value. A map keeps the first
    /// pair of a key, a multimap all of them in the order of the text. Pairs have no limit.
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

    /// The required keys that the map lacks. In a single text they are separated by commas outside
    /// quotes, trimmed, and left out if empty; quotes stay part of the key.
    static std::set<Text> verifyMap(const Map& map, const std::list<Text>& required);
    static std::set<Text> verifyMap(const Map& map, std::initializer_list<View> required);
    static std::set<Text> verifyMap(const Map& map, View required);
    static std::set<Text> verifyMap(const MultiMap& map, const std::list<Text>& required);
    static std::set<Text> verifyMap(const MultiMap& map, std::initializer_list<View> required);
    static std::set<Text> verifyMap(const MultiMap& map, View required);

private:
    // One for each container, so that the loop over the scan is compiled once, in the source.
    static std::list<Text> internalSplitList(Data data);
    static std::vector<Text> internalSplitVector(Data data);
    static std::set<Text> internalSplitSet(Data data);
    static std::multiset<Text> internalSplitMultiSet(Data data);
    static Map internalSplitMap(Data data);
    static MultiMap internalSplitMultiMap(Data data);
};

extern template class BasicStringSplitter<char>;
extern template class BasicStringSplitter<wchar_t>;

/// Splits narrow and wide texts; joins narrow texts and reads command lines, which are narrow.
///
/// Both halves are bases, and their functions are overloads here, so a caller writes one name for
/// both widths. Nothing has state: all functions are static and any thread may call them.
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

    /// The items of a container, strings or views, in its order, with the delimiter between them.
    /// With `SplitQuoted` each item goes through `internalEncode`; other flags change nothing.
    /// Quirk: an item gets no delimiter before it as long as the result is empty, so leading empty
    /// items vanish.
    template <class Container>
    [[nodiscard]] static std::string join(const Container& items, std::string_view delimiter,
                                          int flags = 0);
    /// The same for the pairs of a map or multimap, each as its key, `keyValueDelimiter` and its
    /// value.
    template <class Pairs>
    [[nodiscard]] static std::string join(const Pairs& pairs, std::string_view itemDelimiter,
                                          std::string_view keyValueDelimiter, int flags = 0);

    /// Puts a text in quotes, if it needs them, so that a split with `SplitQuoted` returns it as
    /// one item. Quirk: this is sure only for texts without quotes and backslashes. A quote inside
    /// takes over from the one around it, and a backslash at the end takes the power of the closing
    /// one. Quirk: in a text with both kinds of quotes the two characters behind a delimiter get
    /// lost.
    static std::string internalEncode(std::string_view text, std::string_view itemDelimiter,
                                      std::string_view keyValueDelimiter);

    /// Splits a command line into its arguments, at spaces outside quotes. With `decode` the
    /// escapes inside quotes are replaced by the characters they stand for. An argument that begins
    /// with a quote loses its outer quotes, others keep theirs. Quirk: a line feed ends the command
    /// line, inside quotes, too, and a tab separates nothing. Quirk: a quote that is never closed
    /// stays, unless it is the whole argument.
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
