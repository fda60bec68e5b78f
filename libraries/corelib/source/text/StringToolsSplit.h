/// Takes texts apart and joins them again.
///
/// These are the plain forms: no trimming and no quotes. `StringSplitter` has both, and a different
/// rule for limits and for keys.
///
///     std::string path = "a.b.c";
///     split(path, '.');                               // "a"
///     rsplit(path, '.');                              // "c"
///     path;                                           // "b"
///     splitVector("a,,b,c,", ',', 3, true);           // "a", "b,c,"
///     splitMap("a=1,b,c=2", ',', '=', false, false);  // "a", "1", "b,c", "2"
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <cstddef>
#include <list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace TarvikCorelib::StringTools {

/// Take the head: return the text before the first delimiter, a character or any of a set, and
/// remove it from `text` together with the delimiter. Without a delimiter all is returned and
/// `text` is left empty.
std::string split(std::string& text, char delimiter);
std::wstring split(std::wstring& text, wchar_t delimiter);
std::string split(std::string& text, std::string_view set);
std::wstring split(std::wstring& text, std::wstring_view set);
/// The same with a whole substring as delimiter. An empty one returns an empty string and leaves
/// `text` as it is.
std::string splitSubstr(std::string& text, std::string_view delimiter);
std::wstring splitSubstr(std::wstring& text, std::wstring_view delimiter);

/// Take the tail: return the text behind the last delimiter and remove it from `text` together with
/// the delimiter. Without a delimiter all is returned and `text` is left empty.
std::string rsplit(std::string& text, char delimiter);
std::wstring rsplit(std::wstring& text, wchar_t delimiter);
std::string rsplit(std::string& text, std::string_view set);
std::wstring rsplit(std::wstring& text, std::wstring_view set);
/// Quirk: unlike `rsplit` this returns the text before the last delimiter, and leaves in `text`
/// what follows it. Without a delimiter all is returned and `text` is left empty; an empty
/// delimiter returns an empty string and leaves `text` as it is.
std::string rsplitSubstr(std::string& text, std::string_view delimiter);
std::wstring rsplitSubstr(std::wstring& text, std::wstring_view delimiter);

/// Split at a character, or at any of a set. With a limit of n the rest of the text behind n - 1
/// delimiters is the last item, delimiters included; 0 and all ones mean no limit. A delimiter at
/// the end of the text makes no empty last item. Other empty items are left out if `skipEmpty` is
/// set, but their delimiters count for the limit all the same.
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
/// A multiset; with `unique` an item that it holds already is left out.
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

/// Pairs of key and value. A value reaches to the next item delimiter. Text behind the last pair
/// that has no key-value delimiter of its own is dropped. With `skipEmptyKey` a pair with an empty
/// key is left out, with `unique` one whose key the result holds already.
/// Quirk: a key reaches to the next key-value delimiter, across item delimiters: "a,b=1" has the
/// key "a,b".
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

/// Joins the items of a container, strings or views, in its order, with the delimiter between them.
/// Quirk: an item gets no delimiter before it as long as the result is empty, so leading empty
/// items vanish.
template <class Container, class Char = typename Container::value_type::value_type>
[[nodiscard]] std::basic_string<Char> join(const Container& items,
                                           std::type_identity_t<View<Char>> delimiter);
/// The same for the pairs of a map or multimap, each as its key, `keyValueDelimiter` and its value.
template <class Map, class Char = typename Map::mapped_type::value_type>
[[nodiscard]] std::basic_string<Char> join(const Map& pairs,
                                           std::type_identity_t<View<Char>> itemDelimiter,
                                           std::type_identity_t<View<Char>> keyValueDelimiter);

template <class Container, class Char>
std::basic_string<Char> join(const Container& items, std::type_identity_t<View<Char>> delimiter) {
    std::basic_string<Char> result;
    for (const auto& item : items) {
        if (!result.empty()) result += delimiter;
        result += item;
    }
    return result;
}

template <class Map, class Char>
std::basic_string<Char> join(const Map& pairs, std::type_identity_t<View<Char>> itemDelimiter,
                             std::type_identity_t<View<Char>> keyValueDelimiter) {
    std::basic_string<Char> result;
    for (const auto& [key, value] : pairs) {
        if (!result.empty()) result += itemDelimiter;
        result.append(key).append(keyValueDelimiter).append(value);
    }
    return result;
}

}  // namespace TarvikCorelib::StringTools
