#include "libraries/corelib/source/text/StringSplitter.h"

#include "libraries/corelib/source/text/StringTools.h"

#include <algorithm>
#include <string_view>

namespace TarvikCorelib {

namespace {

// Scans a text item by item.
class SplitData {
public:
    SplitData(std::string_view text, char delimiter, int flags)
        : text(text), delimiter(delimiter), flags(flags) {}

    // Moves to the next item. False at the end.
    bool advance();
    // The item takes in all that is left, untrimmed at its end, and is the last one.
    void widenToEnd() { nextStart = itemEnd = text.size(); }
    [[nodiscard]] std::string_view item() const {
        return text.substr(itemStart, itemEnd - itemStart);
    }

private:
    [[nodiscard]] std::size_t findEnd(std::size_t pos) const;
    void trimItem();

    std::string_view text;
    char delimiter;
    int flags;
    std::size_t nextStart = 0;
    std::size_t itemStart = 0;
    std::size_t itemEnd = 0;
};

bool SplitData::advance() {
    if (nextStart >= text.size()) return false;
    itemStart = nextStart;
    itemEnd = findEnd(itemStart);
    nextStart = itemEnd + 1;
    if ((flags & StringSplitter::SplitTrim) != 0) trimItem();
    return true;
}

std::size_t SplitData::findEnd(std::size_t pos) const {
    return std::min(text.find(delimiter, pos), text.size());
}

void SplitData::trimItem() {
    const std::string& blanks = StringTools::whitespace();
    const std::string_view current = item();
    const auto first = current.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        itemStart = itemEnd;
        return;
    }
    itemEnd = itemStart + current.find_last_not_of(blanks) + 1;
    itemStart += first;
}

// Reads one command line, a character a call of `take`.
class ArgumentReader {
public:
    explicit ArgumentReader(bool decode) : decode(decode) {}

    void take(char c);
    std::vector<std::string> finish();

private:
    void takeOutsideQuotes(char c);
    void takeInsideQuotes(char c);
    void takeEscaped(char c);
    void endToken();

    bool decode;
    char quote = 0;
    bool escaped = false;
    std::string token;
    std::vector<std::string> arguments;
};

void ArgumentReader::take(char c) {
    if (quote == 0) {
        takeOutsideQuotes(c);
    } else if (escaped) {
        escaped = false;
        takeEscaped(c);
    } else {
        takeInsideQuotes(c);
    }
}

// Only spaces separate: a tab is a character like any other. On purpose.
void ArgumentReader::takeOutsideQuotes(char c) {
    if (c == ' ') {
        if (!token.empty()) endToken();
        return;
    }
    if (c == '"' || c == '\'') quote = c;
    token += c;
}

void ArgumentReader::takeInsideQuotes(char c) {
    escaped = c == '\\';
    if (c == quote) quote = 0;
    if (!escaped || !decode) token += c;
}

// An escaped 0 gives nothing at all. On purpose.
void ArgumentReader::takeEscaped(char c) {
    constexpr std::string_view codes = "\"'abfnrtv";
    constexpr std::string_view characters = "\"'\a\b\f\n\r\t\v";
    if (!decode) {
        token += c;
        return;
    }
    if (c == '0') return;
    const auto index = codes.find(c);
    if (index == std::string_view::npos) {
        token.append({'\\', c});
    } else {
        token += characters[index];
    }
}

// A token that begins with a double quote loses its last character whatever it is. On purpose.
void ArgumentReader::endToken() {
    const bool isQuoted = token.front() == '"' || (token.front() == '\'' && token.back() == '\'');
    if (isQuoted && token.size() > 1) token = token.substr(1, token.size() - 2);
    arguments.push_back(token);
    token.clear();
}

// A token whose quote is still open loses a last character that equals it, and no more.
std::vector<std::string> ArgumentReader::finish() {
    if (quote != 0) {
        if (token.back() == quote) token.pop_back();
        arguments.push_back(token);
    } else if (!token.empty()) {
        endToken();
    }
    return arguments;
}

}  // namespace

std::list<std::string> StringSplitter::toList(const std::string& text, char delimiter, int flags,
                                              std::size_t limit) {
    if (text.empty()) return {};
    if (limit == 0) return {text};  // One untrimmed item, on purpose.
    std::list<std::string> items;
    SplitData data(text, delimiter, flags);
    while (items.size() < limit && data.advance()) {
        if ((flags & SplitSkipEmpty) != 0 && data.item().empty()) continue;
        if (items.size() + 1 == limit) data.widenToEnd();
        items.emplace_back(data.item());
    }
    return items;
}

std::vector<std::string> StringSplitter::splitArgString(const std::string& text, bool decode) {
    ArgumentReader reader(decode);
    // A line feed ends the command line, even between quotes. On purpose.
    for (const char c : std::string_view(text).substr(0, text.find('\n')))
        reader.take(c);
    return reader.finish();
}

}  // namespace TarvikCorelib
