#include "libraries/corelib/source/diagnostics/TemplateReader.h"

#include <utility>

namespace TarvikCorelib {

namespace {

//   message = { ";" | ( "@" key "{" | first ) text ( "}" | "@" ) }
//
// A state machine that takes one character at a time and never looks ahead:
//
//   Outside  at the beginning, after a "}" and after an "@": drops ";", opens a key at "@"; any
//            other character, even "}" or a backslash, is the first of a text
//   InKey    drops everything up to and including "{"
//   InText   copies; "}" and "@" end the text
//
// Two characters are held back, since it depends on the next ones whether they are written. A "}"
// is written in front of the next text that has no key, and dropped if there is none. A backslash
// is dropped in front of a "}", which then is part of the text, and else written with what follows.
template <class Char>
class TemplateReader {
public:
    explicit TemplateReader(std::size_t size) { result.reserve(size); }

    void take(Char c) {
        switch (state) {
        case State::Outside: takeOutside(c); break;
        case State::InKey:
            if (c == '{') state = State::InText;
            break;
        case State::InText: takeInText(c); break;
        }
    }
    std::basic_string<Char> finish() { return std::move(result); }

private:
    enum class State { Outside, InKey, InText };

    void takeOutside(Char c) {
        if (c == ';') return;
        if (c == '@') {
            state = State::InKey;
            return;
        }
        // Quirk: a ";" keeps the held-back "}", so the text after a closed tag begins with it.
        if (pending) result += Char{'}'};
        result += c;
        pending = false;
        state = State::InText;
    }

    void takeInText(Char c) {
        switch (c) {
        case '\\': escaped = true; break;
        case '}': takeBrace(); break;
        // Quirk: `escaped` is kept, so the backslash is written later, in a text that follows.
        case '@': state = State::Outside; break;
        default:
            if (escaped) result += Char{'\\'};
            result += c;
            escaped = false;
        }
    }

    void takeBrace() {
        if (escaped) {
            result += Char{'}'};
        } else {
            pending = true;
            state = State::Outside;
        }
        escaped = false;
    }

    State state = State::Outside;
    bool pending = false;  // A "}" is held back.
    bool escaped = false;  // A backslash is held back; a second one in a row changes nothing.
    std::basic_string<Char> result;
};

template <class Char>
std::basic_string<Char> read(std::basic_string_view<Char> text) {
    TemplateReader<Char> reader(text.size());
    for (const Char c : text)
        reader.take(c);
    return reader.finish();
}

}  // namespace

std::string readTemplate(std::string_view text) {
    return read(text);
}

std::wstring readTemplate(std::wstring_view text) {
    return read(text);
}

}  // namespace TarvikCorelib
