/// Free functions on strings, for everything else in the suite.
///
/// Nearly all stand twice, for narrow and for wide strings, and do the same for both; where the two
/// differ, the comment says so. A stretch is given by `pos`, from 0, and `count` characters; all
/// ones (`npos`) as a count means all that are left, and a stretch may reach past the end.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace TarvikCorelib::StringTools {

constexpr auto npos = std::string::npos;

/// Space, carriage return, line feed, tab, vertical tab, backspace and form feed, in this order.
/// Backspace belongs to it on purpose. Safe to call from any thread.
const std::string& whitespace();
const std::wstring& whitespaceW();
/// That of either kind, for code that is written once for both.
template <class Char>
const std::basic_string<Char>& whitespaceOf();

// Changing a text in place. Each of these returns its first argument; none of the others may point
// into it.

/// Remove blanks from one end: the characters of `whitespace`, or, if `whitespaceOnly` is false,
/// all whose unsigned value is at most 32.
std::string& trimLeft(std::string& text, bool whitespaceOnly);
std::wstring& trimLeft(std::wstring& text, bool whitespaceOnly);
std::string& trimRight(std::string& text, bool whitespaceOnly);
std::wstring& trimRight(std::wstring& text, bool whitespaceOnly);

/// Turn the case, by the process locale.
std::string& upper(std::string& text);
std::wstring& upper(std::wstring& text);
wchar_t& upper(wchar_t& c);
std::string& lower(std::string& text);
std::wstring& lower(std::wstring& text);
wchar_t& lower(wchar_t& c);

/// Makes the first character of each word a capital and turns all others down. Words end at space,
/// tab, line feed and carriage return, and nowhere else.
std::string& capitalize(std::string& text);
std::wstring& capitalize(std::wstring& text);
/// The same for sentences: only a full stop ends one. The text's first character begins one.
std::string& capitalizeSentence(std::string& text);
std::wstring& capitalizeSentence(std::wstring& text);

/// Replaces each occurrence.
std::string& substitute(std::string& text, char from, char to);
std::wstring& substitute(std::wstring& text, wchar_t from, wchar_t to);
/// Replaces each occurrence, left to right; what was inserted is not looked at again. An empty
/// `from` changes nothing.
std::string& substitute(std::string& text, std::string_view from, std::string_view to);
std::wstring& substitute(std::wstring& text, std::wstring_view from, std::wstring_view to);

/// Removes one pair of outer quotes: the first and the last character, if they are the same quote,
/// single or double.
std::string& unQuote(std::string& text);
std::wstring& unQuote(std::wstring& text);

/// Turns a stretch around.
std::string& reverse(std::string& text, std::size_t pos = 0, std::size_t count = npos);
std::wstring& reverse(std::wstring& text, std::size_t pos = 0, std::size_t count = npos);

/// Remove from a stretch the characters that are in the set, or those that are not.
std::string& erase(std::string& text, char unwanted, std::size_t pos = 0, std::size_t count = npos);
std::wstring& erase(std::wstring& text, wchar_t unwanted, std::size_t pos = 0,
                    std::size_t count = npos);
std::string& erase(std::string& text, std::string_view set, std::size_t pos = 0,
                   std::size_t count = npos);
std::wstring& erase(std::wstring& text, std::wstring_view set, std::size_t pos = 0,
                    std::size_t count = npos);
std::string& eraseAllExcept(std::string& text, std::string_view set, std::size_t pos = 0,
                            std::size_t count = npos);
std::wstring& eraseAllExcept(std::wstring& text, std::wstring_view set, std::size_t pos = 0,
                             std::size_t count = npos);

/// Widen to `width` characters, on both sides, on the left or on the right. Of an odd number of
/// characters to add, `pad` puts the smaller half on the left. A longer text stays as it is.
std::string& pad(std::string& text, std::size_t width, char c);
std::wstring& pad(std::wstring& text, std::size_t width, wchar_t c);
std::string& padLeft(std::string& text, std::size_t width, char c);
std::wstring& padLeft(std::wstring& text, std::size_t width, wchar_t c);
std::string& padRight(std::string& text, std::size_t width, char c);
std::wstring& padRight(std::wstring& text, std::size_t width, wchar_t c);

/// Takes the zeros off a decimal number that do not count: "007.50" becomes "7.5". On purpose "0.5"
/// becomes ".5", and "000" stays. A text with anything but digits, "-" and "." stays as it is.
std::string& trimNumber(std::string& text);
std::wstring& trimNumber(std::wstring& text);

/// Rounds a decimal number half up, away from zero, to `decimals` places; with none the "." stays
/// at the end. Fewer places are filled up with zeros if `padWithZeros`. All that begins with "."
/// stays as it is, on purpose, and so does what begins with "-" and is no number, or has two ".";
/// any other text is taken for one unchecked.
std::string& roundNumber(std::string& text, std::size_t decimals, bool padWithZeros);
std::wstring& roundNumber(std::wstring& text, std::size_t decimals, bool padWithZeros);

// Taking a piece off a text.

/// Take the head: return what stands before the first delimiter, a character or any of a set, and
/// remove it, with the delimiter, from `text`. Without a delimiter all is returned and `text` is
/// left empty.
std::string split(std::string& text, char delimiter);
std::wstring split(std::wstring& text, wchar_t delimiter);
std::string split(std::string& text, std::string_view set);
std::wstring split(std::wstring& text, std::wstring_view set);
/// The same with a whole substring as delimiter. An empty one returns an empty string and leaves
/// `text` as it is.
std::string splitSubstr(std::string& text, std::string_view delimiter);
std::wstring splitSubstr(std::wstring& text, std::wstring_view delimiter);

/// Take the tail: return what stands behind the last delimiter and remove it, with the delimiter,
/// from `text`. Without a delimiter all is returned and `text` is left empty.
std::string rsplit(std::string& text, char delimiter);
std::wstring rsplit(std::wstring& text, wchar_t delimiter);
std::string rsplit(std::string& text, std::string_view set);
std::wstring rsplit(std::wstring& text, std::wstring_view set);
/// Unlike `rsplit` on purpose: returns what stands before the last delimiter and leaves in `text`
/// what follows it. Without a delimiter all is returned and `text` is left empty; an empty
/// delimiter returns an empty string and leaves `text` as it is.
std::string rsplitSubstr(std::string& text, std::string_view delimiter);
std::wstring rsplitSubstr(std::wstring& text, std::wstring_view delimiter);

// Counting, comparing, searching.

/// The number of occurrences in a stretch; those of a substring do not overlap, and an empty one
/// has none.
std::size_t count(std::string_view text, char c, std::size_t pos = 0, std::size_t count = npos);
std::size_t count(std::wstring_view text, wchar_t c, std::size_t pos = 0, std::size_t count = npos);
std::size_t count(std::string_view text, std::string_view part, std::size_t pos = 0,
                  std::size_t count = npos);
std::size_t count(std::wstring_view text, std::wstring_view part, std::size_t pos = 0,
                  std::size_t count = npos);

/// The number of occurrences from `pos` on, or from `pos` backward, this side of the first `stop`.
/// Backward, a `pos` past the end means the last character.
std::size_t countUpTo(std::string_view text, char c, std::size_t pos, char stop);
std::size_t countUpTo(std::wstring_view text, wchar_t c, std::size_t pos, wchar_t stop);
std::size_t countDownTo(std::string_view text, char c, std::size_t pos, char stop);
std::size_t countDownTo(std::wstring_view text, wchar_t c, std::size_t pos, wchar_t stop);

/// The index in `a` of the first difference, with `a` from `posA` laid on `b` from `posB`. Where
/// one is the shorter it differs at its end; all ones if both end together.
std::size_t findFirstDiff(std::string_view a, std::string_view b, std::size_t posA = 0,
                          std::size_t posB = 0);
std::size_t findFirstDiff(std::wstring_view a, std::wstring_view b, std::size_t posA = 0,
                          std::size_t posB = 0);

/// 0 if `text` has `part` at `pos`; -1 if it is less there, or ends before `part` does, or before
/// `pos`; 1 if it is greater. Characters are compared as unsigned numbers.
int subCompare(std::string_view text, std::size_t pos, std::string_view part);
int subCompare(std::wstring_view text, std::size_t pos, std::wstring_view part);

/// The index of the first occurrence outside quotes, as `StringIterator` reads them, or all ones.
/// At most `count` characters outside quotes are looked at; 0 means all.
std::size_t findNotQuoted(std::string_view text, char c, std::size_t pos = 0,
                          std::size_t count = 0);
std::size_t findNotQuoted(std::wstring_view text, wchar_t c, std::size_t pos = 0,
                          std::size_t count = 0);
std::size_t findNotQuoted(std::string_view text, std::string_view part, std::size_t pos = 0,
                          std::size_t count = 0);
std::size_t findNotQuoted(std::wstring_view text, std::wstring_view part, std::size_t pos = 0,
                          std::size_t count = 0);

/// A hash: each unsigned character counts as a digit to the base 37, wrapping in the width of the
/// result; an empty text has 0. Stable: it may be stored.
std::int16_t hashInt16(std::string_view text);
std::uint16_t hashUInt16(std::string_view text);
std::int32_t hashInt32(std::string_view text);
std::int32_t hashInt32(std::wstring_view text);
std::uint32_t hashUInt32(std::string_view text);
std::uint32_t hashUInt32(std::wstring_view text);
std::int64_t hashInt64(std::string_view text);
std::int64_t hashInt64(std::wstring_view text);
std::uint64_t hashUInt64(std::string_view text);
std::uint64_t hashUInt64(std::wstring_view text);

// Splitting into containers, and joining. `StringSplitter` can do more.

/// Split at a character, or at any of a set. With a limit of n all that is left behind n - 1
/// delimiters is the last item; 0 and all ones mean no limit. Empty items stay unless `skipEmpty`,
/// but never behind a delimiter that ends the text; those left out count for the limit, too.
std::list<std::string> splitList(std::string_view text, char delimiter, std::size_t limit,
                                 bool skipEmpty);
std::list<std::wstring> splitList(std::wstring_view text, wchar_t delimiter, std::size_t limit,
                                  bool skipEmpty);
std::list<std::string> splitList(std::string_view text, std::string_view set, std::size_t limit,
                                 bool skipEmpty);
std::list<std::wstring> splitList(std::wstring_view text, std::wstring_view set, std::size_t limit,
                                  bool skipEmpty);
std::vector<std::string> splitVector(std::string_view text, char delimiter, std::size_t limit,
                                     bool skipEmpty);
std::vector<std::wstring> splitVector(std::wstring_view text, wchar_t delimiter, std::size_t limit,
                                      bool skipEmpty);
std::vector<std::string> splitVector(std::string_view text, std::string_view set, std::size_t limit,
                                     bool skipEmpty);
std::vector<std::wstring> splitVector(std::wstring_view text, std::wstring_view set,
                                      std::size_t limit, bool skipEmpty);
/// With `unique` an item that is there already is left out.
std::multiset<std::string> splitSet(std::string_view text, char delimiter, std::size_t limit,
                                    bool skipEmpty, bool unique);
std::multiset<std::wstring> splitSet(std::wstring_view text, wchar_t delimiter, std::size_t limit,
                                     bool skipEmpty, bool unique);
std::multiset<std::string> splitSet(std::string_view text, std::string_view set, std::size_t limit,
                                    bool skipEmpty, bool unique);
std::multiset<std::wstring> splitSet(std::wstring_view text, std::wstring_view set,
                                     std::size_t limit, bool skipEmpty, bool unique);

/// The same with a whole substring as delimiter. An empty one is never found.
std::list<std::string> splitSubstrList(std::string_view text, std::string_view delimiter,
                                       std::size_t limit, bool skipEmpty);
std::list<std::wstring> splitSubstrList(std::wstring_view text, std::wstring_view delimiter,
                                        std::size_t limit, bool skipEmpty);
std::vector<std::string> splitSubstrVector(std::string_view text, std::string_view delimiter,
                                           std::size_t limit, bool skipEmpty);
std::vector<std::wstring> splitSubstrVector(std::wstring_view text, std::wstring_view delimiter,
                                            std::size_t limit, bool skipEmpty);
std::multiset<std::string> splitSubstrSet(std::string_view text, std::string_view delimiter,
                                          std::size_t limit, bool skipEmpty, bool unique);
std::multiset<std::wstring> splitSubstrSet(std::wstring_view text, std::wstring_view delimiter,
                                           std::size_t limit, bool skipEmpty, bool unique);

/// Pairs of key and value. A key is all before the next key-value delimiter, item delimiters
/// included, on purpose: "a,b=1" has the key "a,b". What follows the last pair without a key-value
/// delimiter of its own is dropped. With `skipEmptyKey` a pair with an empty key is left out, with
/// `unique` one whose key is there already.
std::multimap<std::string, std::string> splitMap(std::string_view text, char itemDelimiter,
                                                 char keyValueDelimiter, bool skipEmptyKey,
                                                 bool unique);
std::multimap<std::wstring, std::wstring> splitMap(std::wstring_view text, wchar_t itemDelimiter,
                                                   wchar_t keyValueDelimiter, bool skipEmptyKey,
                                                   bool unique);
std::multimap<std::string, std::string> splitMap(std::string_view text, std::string_view itemSet,
                                                 std::string_view keyValueSet, bool skipEmptyKey,
                                                 bool unique);
std::multimap<std::wstring, std::wstring> splitMap(std::wstring_view text,
                                                   std::wstring_view itemSet,
                                                   std::wstring_view keyValueSet, bool skipEmptyKey,
                                                   bool unique);
std::multimap<std::string, std::string> splitSubstrMap(std::string_view text,
                                                       std::string_view itemDelimiter,
                                                       std::string_view keyValueDelimiter,
                                                       bool skipEmptyKey, bool unique);
std::multimap<std::wstring, std::wstring> splitSubstrMap(std::wstring_view text,
                                                         std::wstring_view itemDelimiter,
                                                         std::wstring_view keyValueDelimiter,
                                                         bool skipEmptyKey, bool unique);

/// The items of a list, vector, set or multiset in its order, with the delimiter between them. An
/// item gets none before it as long as the result is empty, so leading empty items vanish.
template <class Container, class Text = typename Container::value_type>
[[nodiscard]] Text join(const Container& items, const std::type_identity_t<Text>& delimiter);
/// The same for the pairs of a map or multimap, each as its key, `keyValueDelimiter` and its value.
template <class Map, class Text = typename Map::mapped_type>
[[nodiscard]] Text join(const Map& pairs, const std::type_identity_t<Text>& itemDelimiter,
                        const std::type_identity_t<Text>& keyValueDelimiter);

// Escaping.

/// Writes each `c` as `escapeChar` and `replacement`, and each `escapeChar` twice.
std::string escape(std::string_view text, char c, char replacement, char escapeChar);
std::wstring escape(std::wstring_view text, wchar_t c, wchar_t replacement, wchar_t escapeChar);
/// The same for a table: the character at an index of `chars` is written as `escapeChar` and the
/// one at that index of `replacements`; without one there it is copied as it is.
std::string escape(std::string_view text, std::string_view chars, std::string_view replacements,
                   char escapeChar);
std::wstring escape(std::wstring_view text, std::wstring_view chars, std::wstring_view replacements,
                    wchar_t escapeChar);

/// Undoes `escape`: `escapeChar` and `replacement` give `c`, `escapeChar` twice gives one; before
/// any other character it stays, with that character; at the very end it is dropped.
std::string unescape(std::string_view text, char c, char replacement, char escapeChar);
std::wstring unescape(std::wstring_view text, wchar_t c, wchar_t replacement, wchar_t escapeChar);
/// The same for a table, the escaped characters first: `escapeChar` and the character at an index
/// of `encoded` give the one at that index of `plain`.
std::string unescape(std::string_view text, std::string_view encoded, std::string_view plain,
                     char escapeChar);
std::wstring unescape(std::wstring_view text, std::wstring_view encoded, std::wstring_view plain,
                      wchar_t escapeChar);

// Numbers.

std::string toString(bool value);  ///< "1" or "0".
std::wstring toWString(bool value);
std::string toString(const void* value) = delete;  ///< A text is no truth value.
std::wstring toWString(const void* value) = delete;
std::string toString(long long number);
std::wstring toWString(long long number);
std::string toString(unsigned long long number);
std::wstring toWString(unsigned long long number);
/// Any integer, a character too, as plain decimal digits.
template <std::integral Integer>
std::string toString(Integer number);
template <std::integral Integer>
std::wstring toWString(Integer number);
/// With 14 decimals, 15 in the wide form; beyond 1e15 and below 1e-15 in scientific notation with
/// 15. Zeros at the very end go, on purpose those of an exponent too, and then a "." that is last.
std::string toString(double number);
std::wstring toWString(double number);

/// False for an empty text and for "0", true for all else: for "false" too.
bool toBool(std::string_view text);
bool toBool(std::wstring_view text);

/// As the C library reads the beginning of the text, cut to the width without a check: 0 where
/// there is no number.
std::int8_t toInt8(const std::string& text);
std::int8_t toInt8(const std::wstring& text);
std::uint8_t toUInt8(const std::string& text);
std::uint8_t toUInt8(const std::wstring& text);
std::int16_t toInt16(const std::string& text);
std::int16_t toInt16(const std::wstring& text);
std::uint16_t toUInt16(const std::string& text);
std::uint16_t toUInt16(const std::wstring& text);
std::int32_t toInt32(const std::string& text);
std::int32_t toInt32(const std::wstring& text);
std::uint32_t toUInt32(const std::string& text);
std::uint32_t toUInt32(const std::wstring& text);
/// The digits at the very beginning, behind a "-" if the type is signed; wraps around. Unlike the
/// narrower forms these take no leading blank and no "+", on purpose.
long long toInt64(std::string_view text);
long long toInt64(std::wstring_view text);
unsigned long long toUInt64(std::string_view text);
unsigned long long toUInt64(std::wstring_view text);
/// As the C library reads it. The narrow form gives the largest finite number for infinity, but not
/// the smallest for its negative; the wide form gives both as they are. On purpose.
double toDouble(const std::string& text);
double toDouble(const std::wstring& text);

// Narrow and wide.

/// Widen by the process locale, a byte at a time. Throws a bare `std::exception` for a byte with
/// the top bit set.
wchar_t convert(char c);
std::wstring convert(std::string_view text);
/// Narrow by the process locale. A character that the locale lacks, or that takes more than the one
/// `char` there is to return, is cut to its low byte.
char convert(wchar_t c);
std::string convert(std::wstring_view text);
/// Whole containers, item by item.
std::set<std::wstring> convert(const std::set<std::string>& items);
std::set<std::string> convert(const std::set<std::wstring>& items);
std::multiset<std::wstring> convert(const std::multiset<std::string>& items);
std::multiset<std::string> convert(const std::multiset<std::wstring>& items);
std::map<std::wstring, std::wstring> convert(const std::map<std::string, std::string>& pairs);
std::map<std::string, std::string> convert(const std::map<std::wstring, std::wstring>& pairs);
std::multimap<std::wstring, std::wstring> convert(
    const std::multimap<std::string, std::string>& pairs);
std::multimap<std::string, std::string> convert(
    const std::multimap<std::wstring, std::wstring>& pairs);

/// Widens for display: never fails, a byte with the top bit set becomes the character of its
/// number.
std::wstring widen(std::string_view text);

/// Narrows so that nothing is lost: a character that is not printable 7-bit, and "#", becomes "#",
/// its number and ";". Those in `keep` are narrowed as by `convert`.
std::string pconvert(std::wstring_view text, std::wstring_view keep = {});
/// Reads that back. A "#" without digits and ";" behind it stays as it is. Throws as `convert`
/// does.
std::wstring pconvert(std::string_view text);

/// Write and read a character as its four bytes, the lowest first, in a buffer of `size` bytes.
/// What is left of the buffer is cleared. False below a size of 4: nothing is changed.
bool encode(wchar_t c, char* buffer, unsigned short size);
bool decode(wchar_t& c, const char* buffer, unsigned short size);
/// The same for each character of a text, at `width` bytes each. Empty below a width of 4. Bytes at
/// the end that are less than a width are dropped.
std::string encode(std::wstring_view text, unsigned short width);
std::wstring decode(std::string_view bytes, unsigned short width);

template <class Char>
const std::basic_string<Char>& whitespaceOf() {
    if constexpr (std::is_same_v<Char, wchar_t>)
        return whitespaceW();
    else
        return whitespace();
}

template <class Container, class Text>
Text join(const Container& items, const std::type_identity_t<Text>& delimiter) {
    Text result;
    for (const Text& item : items) {
        if (!result.empty()) result += delimiter;
        result += item;
    }
    return result;
}

template <class Map, class Text>
Text join(const Map& pairs, const std::type_identity_t<Text>& itemDelimiter,
          const std::type_identity_t<Text>& keyValueDelimiter) {
    Text result;
    for (const auto& [key, value] : pairs) {
        if (!result.empty()) result += itemDelimiter;
        result.append(key).append(keyValueDelimiter).append(value);
    }
    return result;
}

template <std::integral Integer>
std::string toString(Integer number) {
    if constexpr (std::signed_integral<Integer>) return toString(static_cast<long long>(number));
    return toString(static_cast<unsigned long long>(number));
}

template <std::integral Integer>
std::wstring toWString(Integer number) {
    if constexpr (std::signed_integral<Integer>) return toWString(static_cast<long long>(number));
    return toWString(static_cast<unsigned long long>(number));
}

}  // namespace TarvikCorelib::StringTools
