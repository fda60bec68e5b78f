// Any text split by any delimiters, flags and limits, joined again, narrow and wide.

#include "libraries/corelib/source/text/StringSplitter.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/source/text/StringToolsSplit.h"

#include "fuzz/Feed.h"

namespace {

using fuzz::check;
using TarvikCorelib::StringSplitter;
using TarvikCorelib::StringTools::widen;

using Items = std::vector<std::string>;

std::vector<std::wstring> widened(const Items& items) {
    std::vector<std::wstring> result;
    for (const std::string& item : items)
        result.push_back(widen(item));
    return result;
}

// Whether the text is made of these items, and at most one more delimiter at its end.
bool isMadeOf(const std::string& text, const Items& items, const std::string& delimiter) {
    std::string joined;
    for (std::size_t i = 0; i < items.size(); ++i)
        joined.append(i == 0 ? "" : delimiter).append(items[i]);
    return text == joined || text == joined + delimiter;
}

void checkItems(const std::string& text, const std::string& delimiter, int flags,
                std::size_t limit) {
    const Items items = StringSplitter::toVector(text, delimiter, flags, limit);
    const std::wstring wide = widen(delimiter);
    check(StringSplitter::toVector(widen(text), wide, flags, limit) == widened(items));
    check(StringSplitter::toSet(text, delimiter, flags, limit) ==
          std::set<std::string>(items.begin(), items.end()));
    check(items.size() <= limit || limit == 0);
    constexpr int dropping = StringSplitter::SplitTrim | StringSplitter::SplitSkipEmpty;
    if ((flags & dropping) == 0) check(isMadeOf(text, items, delimiter));

    const Items ofSet = StringSplitter::toVectorFirstOf(text, delimiter, flags, limit);
    check(StringSplitter::toVectorFirstOf(widen(text), wide, flags, limit) == widened(ofSet));
}

void checkPairs(const std::string& text, const std::string& delimiter, const std::string& equals,
                int flags) {
    using TarvikCorelib::StringTools::convert;
    const auto pairs = StringSplitter::toMultiMap(text, delimiter, equals, flags);
    const auto wide =
        StringSplitter::toMultiMap(widen(text), widen(delimiter), widen(equals), flags);
    check(convert(wide) == pairs);
    const auto unique = StringSplitter::toMap(text, delimiter, equals, flags);
    for (const auto& [key, value] : unique)
        check(pairs.lower_bound(key)->second == value);
    check(StringSplitter::verifyMap(unique, text).size() <= text.size());
    check(StringSplitter::toMapFirstOf(text, delimiter, equals, flags).size() <= text.size() + 1);
}

// What is joined in quotes is found again, and each item as it was once its quotes are off. That
// holds for a delimiter of one character, and for items that are not empty and have no quotes or
// backslashes of their own: a quote takes over from an open one of the other kind.
void checkRoundTrip(const Items& items, char delimiter) {
    constexpr std::string_view quoting = "'\"\\";
    if (quoting.find(delimiter) != std::string_view::npos) return;
    Items plain;
    for (const std::string& item : items) {
        if (!item.empty() && item.find_first_of(quoting) == std::string::npos)
            plain.push_back(item);
    }
    const std::string joined =
        StringSplitter::join(plain, std::string(1, delimiter), StringSplitter::SplitQuoted);
    Items again = StringSplitter::toVector(joined, delimiter, StringSplitter::SplitQuoted);
    for (std::string& item : again)
        TarvikCorelib::StringTools::unQuote(item);
    check(again == plain);
}

void checkPlain(const std::string& text, const std::string& delimiter, std::size_t limit) {
    namespace StringTools = TarvikCorelib::StringTools;
    const auto items = StringTools::splitSubstrVector(text, delimiter, limit, false);
    check(isMadeOf(text, items, delimiter));
    check(StringTools::splitSubstrVector(widen(text), widen(delimiter), limit, false) ==
          widened(items));
    check(StringTools::splitVector(text, delimiter, limit, true).size() <= text.size());
    check(StringTools::splitMap(text, delimiter, delimiter, false, true).size() <= text.size());
}

}  // namespace

// Flags and limit, a byte each; then two delimiters and the text, with zero bytes between them.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Feed feed(data, size);
    const int flags = feed.byte();
    const std::size_t limit = feed.byte();
    const std::string delimiter = feed.text();
    const std::string equals = feed.text();
    const std::string text = feed.text();

    checkItems(text, delimiter, flags, limit);
    checkItems(text, delimiter, flags, StringSplitter::NoLimit);
    checkPairs(text, delimiter, equals, flags);
    checkPlain(text, delimiter, limit);
    if (!delimiter.empty()) checkRoundTrip(StringSplitter::toVector(text, equals), delimiter[0]);
    StringSplitter::internalEncode(text, delimiter, equals);
    return 0;
}
