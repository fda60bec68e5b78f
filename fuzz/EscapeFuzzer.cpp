// Any text escaped and read back, by any table; and narrowed and widened.

#include "libraries/corelib/source/text/StringToolsConvert.h"
#include "libraries/corelib/source/text/StringToolsEscape.h"

#include <algorithm>

#include "fuzz/Feed.h"

namespace {

namespace StringTools = TarvikCorelib::StringTools;
using fuzz::check;
using StringTools::widen;

std::string withoutRepetition(std::string text) {
    std::sort(text.begin(), text.end());
    text.erase(std::unique(text.begin(), text.end()), text.end());
    return text;
}

// What is escaped is read back if no two characters share a code, and none has the escape character
// for one.
void checkEscapes(const std::string& text, const std::string& table, char escapeChar) {
    std::string codes = withoutRepetition(table);
    std::erase(codes, escapeChar);
    const std::string chars(codes.rbegin(), codes.rend());
    const std::string escaped = StringTools::escape(text, chars, codes, escapeChar);
    check(StringTools::unescape(escaped, codes, chars, escapeChar) == text);
    check(StringTools::unescape(text, codes, chars, escapeChar).size() <= text.size());

    const std::wstring wideCodes = widen(codes);
    const std::wstring wideChars = widen(chars);
    const wchar_t wideEscape = widen({&escapeChar, 1}).front();
    check(StringTools::escape(widen(text), wideChars, wideCodes, wideEscape) == widen(escaped));
    check(StringTools::unescape(widen(escaped), wideCodes, wideChars, wideEscape) == widen(text));
}

void checkOneEscape(const std::string& text, char c, char replacement, char escapeChar) {
    if (replacement == escapeChar) return;
    const std::string escaped = StringTools::escape(text, c, replacement, escapeChar);
    check(StringTools::unescape(escaped, c, replacement, escapeChar) == text);
}

void checkNarrowing(const std::string& bytes) {
    check(StringTools::convert(widen(bytes)) == bytes);
    const std::wstring wide = StringTools::decode(bytes, 4);
    check(StringTools::encode(wide, 4) == bytes.substr(0, bytes.size() / 4 * 4));
    check(StringTools::decode(StringTools::encode(wide, 7), 7) == wide);
    check(StringTools::pconvert(StringTools::pconvert(wide)) == wide);
    check(StringTools::pconvert(StringTools::pconvert(widen(bytes))) == widen(bytes));
    // Only a byte beyond 7 bits is refused.
    const bool isSevenBit = std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= 0; });
    try {
        StringTools::pconvert(bytes);
        check(isSevenBit);
    } catch (const std::exception&) {
        check(!isSevenBit);
    }
}

}  // namespace

// The escape character, the characters of a table, a zero byte, and the text.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    fuzz::Feed feed(data, size);
    const char escapeChar = static_cast<char>(feed.byte());
    const std::string table = feed.text();
    const std::string text = feed.text();
    checkEscapes(text, table, escapeChar);
    if (table.size() > 1) checkOneEscape(text, table[0], table[1], escapeChar);
    checkNarrowing(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
