#include "libraries/corelib/source/text/StringSplitter.h"

namespace TarvikCorelib {

namespace {

// Reads one command line, one character a call of `take`.
//
//   line     = { " " } { argument " " { " " } }
//   argument = { plain | quoted }
//   quoted   = quote { character | "\\" character } quote      with the same quote at both ends
//
// Three states decide what a character does: outside quotes, inside quotes, and behind a backslash
// inside quotes. The token keeps its quotes until it is complete, since only its first character
// decides whether they go.
class ArgumentReader {
public:
    explicit ArgumentReader(bool decode) : decode(decode) {}

    void take(char c);
    // Ends the last argument. The reader is spent afterwards.
    std::vector<std::string> finish();

private:
    void takeOutsideQuotes(char c);
    void takeInsideQuotes(char c);
    void takeEscaped(char c);
    void endToken();

    bool decode;
    char quote = 0;        // The open one, or 0 outside quotes.
    bool escaped = false;  // Behind a backslash, which only counts inside quotes.
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

// Quirk: only spaces separate. A tab is a character like any other.
void ArgumentReader::takeOutsideQuotes(char c) {
    if (c == ' ') {
        if (!token.empty()) endToken();
        return;
    }
    if (c == '"' || c == '\'') quote = c;
    token += c;
}

// The closing quote is kept until the token ends. A backslash is kept if nothing is decoded.
void ArgumentReader::takeInsideQuotes(char c) {
    escaped = c == '\\';
    if (c == quote) quote = 0;
    if (!escaped || !decode) token += c;
}

// A character without a meaning of its own keeps its backslash.
// Quirk: an escaped 0 gives nothing at all.
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

// Quirk: a token that begins with a double quote loses its last character, whatever that is.
void ArgumentReader::endToken() {
    const bool isQuoted = token.front() == '"' || (token.front() == '\'' && token.back() == '\'');
    if (isQuoted && token.size() > 1) token = token.substr(1, token.size() - 2);
    arguments.push_back(token);
    token.clear();
}

// A token whose quote is still open loses its last character if that is such a quote.
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

std::vector<std::string> StringSplitter::splitArgString(std::string_view text, bool decode) {
    ArgumentReader reader(decode);
    // Quirk: a line feed ends the command line, inside quotes, too.
    for (const char c : text.substr(0, text.find('\n')))
        reader.take(c);
    return reader.finish();
}

}  // namespace TarvikCorelib
