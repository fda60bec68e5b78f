#include "libraries/corelib/source/text/StringToolsEscape.h"

#include "libraries/corelib/source/text/StringToolsCharacters.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace TarvikCorelib::StringTools {

namespace {

// What is written behind the escape character for each character, or, to undo that, read.
//
// Escaping and its reverse differ in the direction of the table alone: `from` and `to` change
// places. In both directions the escape character stands for itself, unless an entry says
// otherwise. A lookup is a search in `from`: tables are a few characters long.
template <class Char>
struct EscapeTable {
    View<Char> from;
    View<Char> to;
    Char escapeChar;

    // Null for a character without a counterpart. Entries take precedence over the escape
    // character.
    [[nodiscard]] const Char* find(Char c) const {
        if (const auto index = from.find(c); index < to.size()) return &to[index];
        return c == escapeChar ? &escapeChar : nullptr;
    }
};

// A fifth more than the text: few characters need an escape.
template <class Char>
Text<Char> roomFor(View<Char> text) {
    Text<Char> result;
    result.reserve(text.size() + 1 + text.size() / 5);
    return result;
}

// Looks first whether there is anything to escape: most texts are copied as they are.
template <class Char>
Text<Char> escaped(View<Char> text, const EscapeTable<Char>& table) {
    const auto isPlain = [&table](Char c) { return table.find(c) == nullptr; };
    if (std::all_of(text.begin(), text.end(), isPlain)) return Text<Char>(text);

    Text<Char> result = roomFor(text);
    for (const Char c : text) {
        const Char* const code = table.find(c);
        if (code != nullptr) result += table.escapeChar;
        result += code != nullptr ? *code : c;
    }
    return result;
}

// Behind an escape character: an unknown code stays as both characters.
template <class Char>
void appendUnescaped(Text<Char>& out, Char code, const EscapeTable<Char>& table) {
    const Char* const plain = table.find(code);
    if (plain == nullptr) out += table.escapeChar;
    out += plain != nullptr ? *plain : code;
}

//   text = { run | escapeChar character } [ escapeChar ]
// Copies each run of other characters as a whole. A last escape character escapes nothing and is
// dropped.
template <class Char>
Text<Char> unescaped(View<Char> text, const EscapeTable<Char>& table) {
    auto found = text.find(table.escapeChar);
    if (found == npos) return Text<Char>(text);

    Text<Char> result = roomFor(text);
    std::size_t pos = 0;
    for (; found != npos; found = text.find(table.escapeChar, pos)) {
        result.append(text, pos, found - pos);
        if (found + 1 == text.size()) return result;
        appendUnescaped(result, text[found + 1], table);
        pos = found + 2;
    }
    return result.append(text, pos);
}

// Printable ASCII. The "#" is not plain, since it begins a reference.
bool isPlain(wchar_t c) {
    return c >= L' ' && c <= L'~' && c != L'#';
}

//   reference = "#" digit { digit } ";"
// Reads a reference at the front of `text` and removes it. Anything less is copied as it is, up to
// the end of the digits, so that each byte is looked at once.
void readReference(std::string_view& text, std::wstring& out) {
    const std::string_view tail = text.substr(1);
    const auto* const stop = std::find_if_not(tail.begin(), tail.end(), isDigit<char>);
    const auto digits = static_cast<std::size_t>(stop - tail.begin());
    text.remove_prefix(1 + digits);
    if (digits == 0 || !text.starts_with(';')) {
        out += L'#';
        out += convert(tail.substr(0, digits));
        return;
    }
    // The ";" ends the number for the C library, so the view needs no terminated copy.
    out += static_cast<wchar_t>(std::strtol(tail.data(), nullptr, 10));
    text.remove_prefix(1);
}

}  // namespace

std::string escape(std::string_view text, char c, char replacement, char escapeChar) {
    return escaped<char>(text, {{&c, 1}, {&replacement, 1}, escapeChar});
}

std::wstring escape(std::wstring_view text, wchar_t c, wchar_t replacement, wchar_t escapeChar) {
    return escaped<wchar_t>(text, {{&c, 1}, {&replacement, 1}, escapeChar});
}

std::string escape(std::string_view text, std::string_view chars, std::string_view replacements,
                   char escapeChar) {
    return escaped<char>(text, {chars, replacements, escapeChar});
}

std::wstring escape(std::wstring_view text, std::wstring_view chars, std::wstring_view replacements,
                    wchar_t escapeChar) {
    return escaped<wchar_t>(text, {chars, replacements, escapeChar});
}

std::string unescape(std::string_view text, char c, char replacement, char escapeChar) {
    return unescaped<char>(text, {{&replacement, 1}, {&c, 1}, escapeChar});
}

std::wstring unescape(std::wstring_view text, wchar_t c, wchar_t replacement, wchar_t escapeChar) {
    return unescaped<wchar_t>(text, {{&replacement, 1}, {&c, 1}, escapeChar});
}

std::string unescape(std::string_view text, std::string_view encoded, std::string_view plain,
                     char escapeChar) {
    return unescaped<char>(text, {encoded, plain, escapeChar});
}

std::wstring unescape(std::wstring_view text, std::wstring_view encoded, std::wstring_view plain,
                      wchar_t escapeChar) {
    return unescaped<wchar_t>(text, {encoded, plain, escapeChar});
}

std::string pconvert(std::wstring_view text, std::wstring_view keep) {
    std::string result;
    result.reserve(text.size());
    for (const wchar_t c : text) {
        if (isPlain(c) || keep.find(c) != npos) {
            result += convert(std::wstring_view(&c, 1));
        } else {
            // Unsigned: a "-" could not be read back.
            result.append(1, '#').append(toString(static_cast<std::uint32_t>(c))).append(1, ';');
        }
    }
    return result;
}

std::wstring pconvert(std::string_view text) {
    std::wstring result;
    result.reserve(text.size());
    while (!text.empty()) {
        if (text.front() == '#') {
            readReference(text, result);
            continue;
        }
        const std::string_view plain = text.substr(0, text.find('#'));
        result += convert(plain);
        text.remove_prefix(plain.size());
    }
    return result;
}

}  // namespace TarvikCorelib::StringTools
