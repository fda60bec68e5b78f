#include "libraries/corelib/source/text/StringToolsSplit.h"

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <algorithm>
#include <utility>

namespace TarvikCorelib::StringTools {

namespace {

// The three kinds of delimiters: a single character, any of a set, or a whole substring. Each finds
// its next place in a text, or returns all ones, and knows the length of what it finds there. The
// algorithms below are written once for all kinds and both widths; the public functions choose.

template <class Char>
struct OneChar {
    Char c;
    [[nodiscard]] static std::size_t length() { return 1; }
    [[nodiscard]] std::size_t find(View<Char> text, std::size_t pos) const {
        return text.find(c, pos);
    }
};

template <class Char>
struct AnyOf {
    View<Char> set;
    [[nodiscard]] static std::size_t length() { return 1; }
    [[nodiscard]] std::size_t find(View<Char> text, std::size_t pos) const {
        return text.find_first_of(set, pos);
    }
};

// Quirk: an empty one is never found, while the string itself finds it everywhere.
template <class Char>
struct Substring {
    View<Char> part;
    [[nodiscard]] std::size_t length() const { return part.size(); }
    [[nodiscard]] std::size_t find(View<Char> text, std::size_t pos) const {
        return part.empty() ? npos : text.find(part, pos);
    }
};

// Takes the head off, with the delimiter at `at`; all of the text if that is all ones.
template <class Char>
Text<Char> takeHead(Text<Char>& text, std::size_t at, std::size_t length) {
    Text<Char> head = text.substr(0, at);
    text.erase(0, at == npos ? npos : at + length);
    return head;
}

// The same for a tail. All its delimiters are single characters.
template <class Char>
Text<Char> takeTail(Text<Char>& text, std::size_t at) {
    Text<Char> tail = text.substr(at == npos ? 0 : at + 1);
    text.erase(at == npos ? 0 : at);
    return tail;
}

// An empty delimiter takes nothing, wherever the string found it.
template <class Char>
Text<Char> takeHeadAt(Text<Char>& text, View<Char> delimiter, std::size_t at) {
    return delimiter.empty() ? Text<Char>() : takeHead(text, at, delimiter.size());
}

// Gives each item of a text to `take`, in order. The limit counts delimiters, those of skipped
// items too; a limit of 0 is never reached, and neither is one of all ones. Since the loop ends
// with the text, a delimiter at its end makes no empty item.
template <class Char, class Delimiter, class Take>
void forEachItem(View<Char> text, const Delimiter& delimiter, std::size_t limit, bool skipEmpty,
                 Take take) {
    std::size_t pos = 0;
    for (std::size_t seen = 1; pos < text.size(); ++seen) {
        const std::size_t found = seen == limit ? npos : delimiter.find(text, pos);
        const View<Char> item = text.substr(pos, found == npos ? npos : found - pos);
        if (!skipEmpty || !item.empty()) take(item);
        if (found == npos) return;
        pos = found + delimiter.length();
    }
}

template <class Container, class Char, class Delimiter>
Container items(View<Char> text, const Delimiter& delimiter, std::size_t limit, bool skipEmpty) {
    Container result;
    forEachItem(text, delimiter, limit, skipEmpty,
                [&result](View<Char> item) { result.emplace_back(item); });
    return result;
}

// The set is asked before an item is added: a multiset takes everything.
template <class Char, class Delimiter>
std::multiset<Text<Char>> itemSet(View<Char> text, const Delimiter& delimiter, std::size_t limit,
                                  bool skipEmpty, bool unique) {
    std::multiset<Text<Char>> result;
    forEachItem(text, delimiter, limit, skipEmpty, [&result, unique](View<Char> view) {
        Text<Char> item(view);
        if (!unique || result.find(item) == result.end()) result.insert(std::move(item));
    });
    return result;
}

//   text = { key keyValueDelimiter value itemDelimiter } [ rest ]
// A key may hold item delimiters, and a value may hold key-value delimiters.
template <class Char, class Delimiter>
std::multimap<Text<Char>, Text<Char>> pairs(View<Char> text, const Delimiter& itemDelimiter,
                                            const Delimiter& keyValueDelimiter, bool skipEmptyKey,
                                            bool unique) {
    std::multimap<Text<Char>, Text<Char>> result;
    std::size_t pos = 0;
    for (auto at = keyValueDelimiter.find(text, pos); at != npos;
         at = keyValueDelimiter.find(text, pos)) {
        Text<Char> key(text.substr(pos, at - pos));
        const std::size_t valueAt = at + keyValueDelimiter.length();
        const std::size_t end = std::min(itemDelimiter.find(text, valueAt), text.size());
        const bool isKnown = unique && result.find(key) != result.end();
        if (!isKnown && (!skipEmptyKey || !key.empty()))
            result.emplace(std::move(key), text.substr(valueAt, end - valueAt));
        pos = end + itemDelimiter.length();
    }
    return result;
}

}  // namespace

std::string split(std::string& text, char delimiter) {
    return takeHead(text, text.find(delimiter), 1);
}

std::wstring split(std::wstring& text, wchar_t delimiter) {
    return takeHead(text, text.find(delimiter), 1);
}

std::string split(std::string& text, std::string_view set) {
    return takeHead(text, text.find_first_of(set), 1);
}

std::wstring split(std::wstring& text, std::wstring_view set) {
    return takeHead(text, text.find_first_of(set), 1);
}

std::string splitSubstr(std::string& text, std::string_view delimiter) {
    return takeHeadAt<char>(text, delimiter, text.find(delimiter));
}

std::wstring splitSubstr(std::wstring& text, std::wstring_view delimiter) {
    return takeHeadAt<wchar_t>(text, delimiter, text.find(delimiter));
}

std::string rsplit(std::string& text, char delimiter) {
    return takeTail(text, text.rfind(delimiter));
}

std::wstring rsplit(std::wstring& text, wchar_t delimiter) {
    return takeTail(text, text.rfind(delimiter));
}

std::string rsplit(std::string& text, std::string_view set) {
    return takeTail(text, text.find_last_of(set));
}

std::wstring rsplit(std::wstring& text, std::wstring_view set) {
    return takeTail(text, text.find_last_of(set));
}

std::string rsplitSubstr(std::string& text, std::string_view delimiter) {
    return takeHeadAt<char>(text, delimiter, text.rfind(delimiter));
}

std::wstring rsplitSubstr(std::wstring& text, std::wstring_view delimiter) {
    return takeHeadAt<wchar_t>(text, delimiter, text.rfind(delimiter));
}

std::list<std::string> splitList(std::string_view text, char delimiter, std::size_t limit,
                                 bool skipEmpty) {
    return items<std::list<std::string>>(text, OneChar<char>{delimiter}, limit, skipEmpty);
}

std::list<std::wstring> splitList(std::wstring_view text, wchar_t delimiter, std::size_t limit,
                                  bool skipEmpty) {
    return items<std::list<std::wstring>>(text, OneChar<wchar_t>{delimiter}, limit, skipEmpty);
}

std::list<std::string> splitList(std::string_view text, std::string_view set, std::size_t limit,
                                 bool skipEmpty) {
    return items<std::list<std::string>>(text, AnyOf<char>{set}, limit, skipEmpty);
}

std::list<std::wstring> splitList(std::wstring_view text, std::wstring_view set, std::size_t limit,
                                  bool skipEmpty) {
    return items<std::list<std::wstring>>(text, AnyOf<wchar_t>{set}, limit, skipEmpty);
}

std::vector<std::string> splitVector(std::string_view text, char delimiter, std::size_t limit,
                                     bool skipEmpty) {
    return items<std::vector<std::string>>(text, OneChar<char>{delimiter}, limit, skipEmpty);
}

std::vector<std::wstring> splitVector(std::wstring_view text, wchar_t delimiter, std::size_t limit,
                                      bool skipEmpty) {
    return items<std::vector<std::wstring>>(text, OneChar<wchar_t>{delimiter}, limit, skipEmpty);
}

std::vector<std::string> splitVector(std::string_view text, std::string_view set, std::size_t limit,
                                     bool skipEmpty) {
    return items<std::vector<std::string>>(text, AnyOf<char>{set}, limit, skipEmpty);
}

std::vector<std::wstring> splitVector(std::wstring_view text, std::wstring_view set,
                                      std::size_t limit, bool skipEmpty) {
    return items<std::vector<std::wstring>>(text, AnyOf<wchar_t>{set}, limit, skipEmpty);
}

std::multiset<std::string> splitSet(std::string_view text, char delimiter, std::size_t limit,
                                    bool skipEmpty, bool unique) {
    return itemSet<char>(text, OneChar<char>{delimiter}, limit, skipEmpty, unique);
}

std::multiset<std::wstring> splitSet(std::wstring_view text, wchar_t delimiter, std::size_t limit,
                                     bool skipEmpty, bool unique) {
    return itemSet<wchar_t>(text, OneChar<wchar_t>{delimiter}, limit, skipEmpty, unique);
}

std::multiset<std::string> splitSet(std::string_view text, std::string_view set, std::size_t limit,
                                    bool skipEmpty, bool unique) {
    return itemSet<char>(text, AnyOf<char>{set}, limit, skipEmpty, unique);
}

std::multiset<std::wstring> splitSet(std::wstring_view text, std::wstring_view set,
                                     std::size_t limit, bool skipEmpty, bool unique) {
    return itemSet<wchar_t>(text, AnyOf<wchar_t>{set}, limit, skipEmpty, unique);
}

std::list<std::string> splitSubstrList(std::string_view text, std::string_view delimiter,
                                       std::size_t limit, bool skipEmpty) {
    return items<std::list<std::string>>(text, Substring<char>{delimiter}, limit, skipEmpty);
}

std::list<std::wstring> splitSubstrList(std::wstring_view text, std::wstring_view delimiter,
                                        std::size_t limit, bool skipEmpty) {
    return items<std::list<std::wstring>>(text, Substring<wchar_t>{delimiter}, limit, skipEmpty);
}

std::vector<std::string> splitSubstrVector(std::string_view text, std::string_view delimiter,
                                           std::size_t limit, bool skipEmpty) {
    return items<std::vector<std::string>>(text, Substring<char>{delimiter}, limit, skipEmpty);
}

std::vector<std::wstring> splitSubstrVector(std::wstring_view text, std::wstring_view delimiter,
                                            std::size_t limit, bool skipEmpty) {
    return items<std::vector<std::wstring>>(text, Substring<wchar_t>{delimiter}, limit, skipEmpty);
}

std::multiset<std::string> splitSubstrSet(std::string_view text, std::string_view delimiter,
                                          std::size_t limit, bool skipEmpty, bool unique) {
    return itemSet<char>(text, Substring<char>{delimiter}, limit, skipEmpty, unique);
}

std::multiset<std::wstring> splitSubstrSet(std::wstring_view text, std::wstring_view delimiter,
                                           std::size_t limit, bool skipEmpty, bool unique) {
    return itemSet<wchar_t>(text, Substring<wchar_t>{delimiter}, limit, skipEmpty, unique);
}

std::multimap<std::string, std::string> splitMap(std::string_view text, char itemDelimiter,
                                                 char keyValueDelimiter, bool skipEmptyKey,
                                                 bool unique) {
    return pairs<char>(text, OneChar<char>{itemDelimiter}, OneChar<char>{keyValueDelimiter},
                       skipEmptyKey, unique);
}

std::multimap<std::wstring, std::wstring> splitMap(std::wstring_view text, wchar_t itemDelimiter,
                                                   wchar_t keyValueDelimiter, bool skipEmptyKey,
                                                   bool unique) {
    return pairs<wchar_t>(text, OneChar<wchar_t>{itemDelimiter},
                          OneChar<wchar_t>{keyValueDelimiter}, skipEmptyKey, unique);
}

std::multimap<std::string, std::string> splitMap(std::string_view text, std::string_view itemSet,
                                                 std::string_view keyValueSet, bool skipEmptyKey,
                                                 bool unique) {
    return pairs<char>(text, AnyOf<char>{itemSet}, AnyOf<char>{keyValueSet}, skipEmptyKey, unique);
}

std::multimap<std::wstring, std::wstring> splitMap(std::wstring_view text,
                                                   std::wstring_view itemSet,
                                                   std::wstring_view keyValueSet, bool skipEmptyKey,
                                                   bool unique) {
    return pairs<wchar_t>(text, AnyOf<wchar_t>{itemSet}, AnyOf<wchar_t>{keyValueSet}, skipEmptyKey,
                          unique);
}

std::multimap<std::string, std::string> splitSubstrMap(std::string_view text,
                                                       std::string_view itemDelimiter,
                                                       std::string_view keyValueDelimiter,
                                                       bool skipEmptyKey, bool unique) {
    return pairs<char>(text, Substring<char>{itemDelimiter}, Substring<char>{keyValueDelimiter},
                       skipEmptyKey, unique);
}

std::multimap<std::wstring, std::wstring> splitSubstrMap(std::wstring_view text,
                                                         std::wstring_view itemDelimiter,
                                                         std::wstring_view keyValueDelimiter,
                                                         bool skipEmptyKey, bool unique) {
    return pairs<wchar_t>(text, Substring<wchar_t>{itemDelimiter},
                          Substring<wchar_t>{keyValueDelimiter}, skipEmptyKey, unique);
}

}  // namespace TarvikCorelib::StringTools
