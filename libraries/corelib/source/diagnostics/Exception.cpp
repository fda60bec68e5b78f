#include "libraries/corelib/source/diagnostics/Exception.h"

#include <string_view>
#include <utility>

namespace TarvikCorelib {

namespace {

// Takes the text out of a template, a character at a time. Programs of the suite rely on the result
// for every text, so its odd ends are kept on purpose: a "}" comes back in front of what follows
// it, also behind a closed tag; an escape is not forgotten at "@"; a second tag keeps its key.
class TemplateReader {
public:
    std::string read(std::string_view text);

private:
    enum class State { Outside, InKey, InText };

    void readOutside(char c);
    void readInText(char c);
    void closeBrace();

    State state = State::Outside;
    std::string pending;  // Empty, or a "}" that is held back.
    bool escaped = false;
    std::string result;
};

std::string TemplateReader::read(std::string_view text) {
    for (const char c : text) {
        switch (state) {
        case State::Outside: readOutside(c); break;
        case State::InKey:
            if (c == '{') state = State::InText;
            break;
        case State::InText: readInText(c); break;
        }
    }
    return result;
}

void TemplateReader::readOutside(char c) {
    if (c == ';') return;
    if (c == '@') {
        state = State::InKey;
        return;
    }
    result += pending;
    result += c;
    pending.clear();
    state = State::InText;
}

void TemplateReader::readInText(char c) {
    switch (c) {
    case '\\': escaped = true; break;
    case '}': closeBrace(); break;
    case '@': state = State::Outside; break;
    default:
        if (escaped) result += '\\';
        result += c;
        escaped = false;
    }
}

void TemplateReader::closeBrace() {
    if (escaped) {
        result += '}';
    } else {
        pending = "}";
        state = State::Outside;
    }
    escaped = false;
}

}  // namespace

Exception::Exception(std::string text) : message(std::move(text)) {}

Exception::Exception(std::string text, std::string location)
    : message(std::move(text)), locations{std::move(location)} {}

Exception::Exception(std::string text, ParamStream params)
    : message(std::move(text)), params(std::move(params)) {}

Exception::Exception(std::string text, std::string location, ParamStream params)
    : message(std::move(text)), params(std::move(params)), locations{std::move(location)} {}

Exception::Exception(std::string location, const Exception& inner)
    : locations{std::move(location)} {
    contained.push_back(inner);
}

std::string Exception::getLocations() const {
    std::string all;
    for (const std::string& location : locations)
        all += location;
    return all;
}

std::string Exception::getFullMessage(bool withName) const {
    std::string text = withName ? name + ":" : "";
    if (!message.empty()) {
        if (!text.empty()) text += ' ';
        text += params.format(TemplateReader().read(message));
    }
    for (const Exception& inner : contained)
        text += "\n" + inner.getFullMessage(true);
    return text;
}

}  // namespace TarvikCorelib
