#include "libraries/corelib/source/text/StringSplitter.h"

namespace TarvikCorelib {

namespace {

// The characters of a text that need quotes. Behind a backslash they need none, but for "!". Which
// marks there are decides on the quotes around the text: double ones, unless it holds double quotes
// itself, then single ones, and with both kinds each mark gets quotes of its own.
struct Marks {
    bool hasOther = false;  // A space or "!".
    bool hasDouble = false;
    bool hasSingle = false;

    [[nodiscard]] bool any() const { return hasOther || hasDouble || hasSingle; }
};

Marks findMarks(std::string_view text) {
    Marks marks;
    bool isEscaped = false;
    for (const char c : text) {
        const bool isSkipped = isEscaped && c != '!';
        isEscaped = c == '\\' && !isSkipped;
        if (isSkipped) continue;
        marks.hasOther |= c == ' ' || c == '!';
        marks.hasDouble |= c == '"';
        marks.hasSingle |= c == '\'';
    }
    return marks;
}

// Unlike for a string, an empty delimiter is in no text.

bool contains(std::string_view text, std::string_view delimiter) {
    return !delimiter.empty() && text.find(delimiter) != std::string_view::npos;
}

bool startsWith(std::string_view text, std::string_view delimiter) {
    return !delimiter.empty() && text.starts_with(delimiter);
}

void appendQuoted(std::string& out, std::string_view text, char quote) {
    out += quote;
    out += text;
    out += quote;
}

// Each kind of quote is put between quotes of the other kind.
void appendQuoted(std::string& out, char c) {
    switch (c) {
    case '"':
    case ' ': appendQuoted(out, {&c, 1}, '\''); break;
    case '\'': appendQuoted(out, {&c, 1}, '"'); break;
    default: out += c; break;
    }
}

// For a text with both kinds of quotes: characters that are no marks stay without quotes.
std::string encodePieces(std::string_view text, std::string_view itemDelimiter,
                         std::string_view keyValueDelimiter) {
    // Quirk: so many characters behind a delimiter get lost.
    constexpr std::size_t dropped = 2;
    std::string encoded;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::string_view rest = text.substr(pos);
        const bool isItem = startsWith(rest, itemDelimiter);
        if (!isItem && !startsWith(rest, keyValueDelimiter)) {
            appendQuoted(encoded, text[pos++]);
            continue;
        }
        const std::string_view delimiter = isItem ? itemDelimiter : keyValueDelimiter;
        appendQuoted(encoded, delimiter, '"');
        pos += delimiter.size() + dropped;
    }
    return encoded;
}

void append(std::string& joined, std::string_view text, std::string_view itemDelimiter,
            std::string_view keyValueDelimiter, int flags) {
    if ((flags & StringSplitter::SplitQuoted) != 0) {
        joined += StringSplitter::internalEncode(text, itemDelimiter, keyValueDelimiter);
    } else {
        joined += text;
    }
}

}  // namespace

// The delimiters that a text holds only decide whether it needs quotes; which quotes it gets
// depends on its marks. An empty delimiter, as for items without keys, is in no text.
std::string StringSplitter::internalEncode(std::string_view text, std::string_view itemDelimiter,
                                           std::string_view keyValueDelimiter) {
    const Marks marks = findMarks(text);
    const bool hasDelimiter = contains(text, itemDelimiter) || contains(text, keyValueDelimiter);
    if (!marks.any() && !hasDelimiter) return std::string(text);
    if (marks.hasDouble && marks.hasSingle)
        return encodePieces(text, itemDelimiter, keyValueDelimiter);

    std::string encoded;
    encoded.reserve(text.size() + 2);
    appendQuoted(encoded, text, marks.hasDouble ? '\'' : '"');
    return encoded;
}

void StringSplitter::internalJoin(std::string& joined, std::string_view text,
                                  std::string_view delimiter, int flags) {
    if (!joined.empty()) joined += delimiter;
    append(joined, text, delimiter, {}, flags);
}

void StringSplitter::internalJoin(std::string& joined, std::string_view key, std::string_view value,
                                  std::string_view itemDelimiter,
                                  std::string_view keyValueDelimiter, int flags) {
    if (!joined.empty()) joined += itemDelimiter;
    append(joined, key, itemDelimiter, keyValueDelimiter, flags);
    joined += keyValueDelimiter;
    append(joined, value, itemDelimiter, keyValueDelimiter, flags);
}

}  // namespace TarvikCorelib
