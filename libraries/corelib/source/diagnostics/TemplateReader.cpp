#include "libraries/corelib/source/diagnostics/TemplateReader.h"

#include <utility>

namespace TarvikCorelib {

namespace {

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
        if (pending) result += Char{'}'};
        result += c;
        pending = false;
        state = State::InText;
    }

    void takeInText(Char c) {
        switch (c) {
        case '\\': escaped = true; break;
        case '}': takeBrace(); break;
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
    bool escaped = false;
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
