#include "libraries/corelib/source/text/StringSplitter.h"

#include "libraries/corelib/source/text/StringToolsCharacters.h"
#include "libraries/corelib/source/text/StringToolsSplit.h"

namespace TarvikCorelib {

namespace {

using StringTools::npos;
using StringTools::Text;
using StringTools::View;

// In the functions below the delimiter is at `found`, or there is none. A substring's length may be
// 0.

// Without a delimiter the failure of the string itself leaves the call.
template <class Char>
Text<Char> behind(View<Char> text, std::size_t found, std::size_t length) {
    if (found == npos) return Text<Char>(text).substr(npos);
    return Text<Char>(text.substr(found + length));
}

// Changes the text only when nothing can fail any more.
template <class Char>
Text<Char> takeRight(Text<Char>& text, std::size_t found, std::size_t length) {
    Text<Char> tail = behind<Char>(text, found, length);
    text.resize(found);
    return tail;
}

template <class Char>
using Halves = std::pair<Text<Char>, Text<Char>>;

template <class Char>
Halves<Char> leftHalves(View<Char> text, std::size_t found, std::size_t length) {
    if (found == npos) return {Text<Char>(text), {}};
    return {Text<Char>(text.substr(0, found)), Text<Char>(text.substr(found + length))};
}

// Without a delimiter the second half fails.
template <class Char>
Halves<Char> rightHalves(View<Char> text, std::size_t found, std::size_t length) {
    return {Text<Char>(text.substr(0, found)), behind(text, found, length)};
}

// Counts the items that are added. The one that reaches the limit is extended to the end of the
// text, which ends the scan.
template <class Container, class Char>
Container splitItems(BasicSplitData<Char> data) {
    Container items;
    const auto add = [&items](View<Char> item) { items.insert(items.end(), Text<Char>(item)); };
    // Quirk: a limit of 0 makes one item, not none.
    if (data.getLimit() == 0 && !data.getText().empty()) add(data.getText());

    std::size_t count = 0;
    while (count < data.getLimit() && data.advance()) {
        if (data.has(SplitTerms::SplitSkipEmpty) && data.item().empty()) continue;
        if (++count == data.getLimit()) data.widenToEnd();
        add(data.item());
    }
    return items;
}

// A map ignores a key that it holds already, a multimap adds the pair behind its like.
template <class Pairs, class Char>
Pairs splitPairs(BasicSplitData<Char> data) {
    Pairs pairs;
    while (data.advance()) {
        const auto [key, value] = data.keyAndValue();
        if (data.has(SplitTerms::SplitSkipEmpty) && key.empty()) continue;
        if (data.has(SplitTerms::SplitSkipEmptyValue) && value.empty()) continue;
        pairs.emplace(key, value);
    }
    return pairs;
}

// The required keys are strings or views.
template <class Pairs, class Keys>
auto missingKeys(const Pairs& pairs, const Keys& required) {
    std::set<typename Pairs::key_type> missing;
    for (const auto& item : required) {
        typename Pairs::key_type key(item);
        if (!pairs.contains(key)) missing.insert(std::move(key));
    }
    return missing;
}

// A comma between quotes is part of a key.
template <class Char>
std::list<Text<Char>> requiredKeys(View<Char> required) {
    constexpr int flags =
        SplitTerms::SplitTrim | SplitTerms::SplitSkipEmpty | SplitTerms::SplitQuoted;
    return BasicStringSplitter<Char>::toList(required, Char{','}, flags);
}

}  // namespace

template <class Char>
auto BasicStringSplitter<Char>::left(Text& text, Char delimiter) -> Text {
    return StringTools::split(text, delimiter);
}

template <class Char>
auto BasicStringSplitter<Char>::left(Text& text, View delimiter) -> Text {
    return StringTools::splitSubstr(text, delimiter);
}

template <class Char>
auto BasicStringSplitter<Char>::leftFirstOf(Text& text, View set) -> Text {
    return StringTools::split(text, set);
}

template <class Char>
auto BasicStringSplitter<Char>::right(Text& text, Char delimiter) -> Text {
    return takeRight(text, text.rfind(delimiter), 1);
}

template <class Char>
auto BasicStringSplitter<Char>::right(Text& text, View delimiter) -> Text {
    return takeRight(text, text.rfind(delimiter), delimiter.size());
}

template <class Char>
auto BasicStringSplitter<Char>::rightFirstOf(Text& text, View set) -> Text {
    return takeRight(text, text.find_last_of(set), 1);
}

template <class Char>
auto BasicStringSplitter<Char>::tLeft(View text, Char delimiter) -> std::pair<Text, Text> {
    return leftHalves(text, text.find(delimiter), 1);
}

template <class Char>
auto BasicStringSplitter<Char>::tLeft(View text, View delimiter) -> std::pair<Text, Text> {
    return leftHalves(text, text.find(delimiter), delimiter.size());
}

template <class Char>
auto BasicStringSplitter<Char>::tLeftFirstOf(View text, View set) -> std::pair<Text, Text> {
    return leftHalves(text, text.find_first_of(set), 1);
}

template <class Char>
auto BasicStringSplitter<Char>::tRight(View text, Char delimiter) -> std::pair<Text, Text> {
    return rightHalves(text, text.rfind(delimiter), 1);
}

template <class Char>
auto BasicStringSplitter<Char>::tRight(View text, View delimiter) -> std::pair<Text, Text> {
    return rightHalves(text, text.rfind(delimiter), delimiter.size());
}

template <class Char>
auto BasicStringSplitter<Char>::tRightFirstOf(View text, View set) -> std::pair<Text, Text> {
    return rightHalves(text, text.find_last_of(set), 1);
}

template <class Char>
auto BasicStringSplitter<Char>::verifyMap(const Map& map, const std::list<Text>& required)
    -> std::set<Text> {
    return missingKeys(map, required);
}

template <class Char>
auto BasicStringSplitter<Char>::verifyMap(const Map& map, std::initializer_list<View> required)
    -> std::set<Text> {
    return missingKeys(map, required);
}

template <class Char>
auto BasicStringSplitter<Char>::verifyMap(const Map& map, View required) -> std::set<Text> {
    return missingKeys(map, requiredKeys(required));
}

template <class Char>
auto BasicStringSplitter<Char>::verifyMap(const MultiMap& map, const std::list<Text>& required)
    -> std::set<Text> {
    return missingKeys(map, required);
}

template <class Char>
auto BasicStringSplitter<Char>::verifyMap(const MultiMap& map, std::initializer_list<View> required)
    -> std::set<Text> {
    return missingKeys(map, required);
}

template <class Char>
auto BasicStringSplitter<Char>::verifyMap(const MultiMap& map, View required) -> std::set<Text> {
    return missingKeys(map, requiredKeys(required));
}

template <class Char>
auto BasicStringSplitter<Char>::internalSplitList(Data data) -> std::list<Text> {
    return splitItems<std::list<Text>>(std::move(data));
}

template <class Char>
auto BasicStringSplitter<Char>::internalSplitVector(Data data) -> std::vector<Text> {
    return splitItems<std::vector<Text>>(std::move(data));
}

template <class Char>
auto BasicStringSplitter<Char>::internalSplitSet(Data data) -> std::set<Text> {
    return splitItems<std::set<Text>>(std::move(data));
}

template <class Char>
auto BasicStringSplitter<Char>::internalSplitMultiSet(Data data) -> std::multiset<Text> {
    return splitItems<std::multiset<Text>>(std::move(data));
}

template <class Char>
auto BasicStringSplitter<Char>::internalSplitMap(Data data) -> Map {
    return splitPairs<Map>(std::move(data));
}

template <class Char>
auto BasicStringSplitter<Char>::internalSplitMultiMap(Data data) -> MultiMap {
    return splitPairs<MultiMap>(std::move(data));
}

template class BasicStringSplitter<char>;
template class BasicStringSplitter<wchar_t>;

}  // namespace TarvikCorelib
