#include "libraries/corelib/source/values/ParamStream.h"

#include <cstddef>
#include <utility>

namespace TarvikCorelib {

namespace {

// A backslash shields the character after it, which may be another backslash. So a character is
// shielded if an odd number of backslashes precedes it.
template <class Char>
bool isShielded(std::basic_string_view<Char> text, std::size_t at) {
    const auto other = text.substr(0, at).find_last_not_of(Char{'\\'});
    const auto firstBackslash = other == text.npos ? 0 : other + 1;
    return (at - firstBackslash) % 2 != 0;
}

}  // namespace

ParamStream::ParamStream(const ParamStream& other)
    : StreamBase(other), elements(other.elements), cursor(elements.begin()) {}

// Swapping moves the elements but not the end of the list, so the cursor is set anew.
ParamStream::ParamStream(ParamStream&& other) noexcept {
    *this = std::move(other);
}

ParamStream& ParamStream::operator=(const ParamStream& other) {
    elements = other.elements;
    cursor = elements.begin();
    return *this;
}

ParamStream& ParamStream::operator=(ParamStream&& other) noexcept {
    if (this == &other) return *this;
    elements.swap(other.elements);
    cursor = elements.begin();
    other.elements.clear();
    other.cursor = other.elements.end();
    return *this;
}

bool ParamStream::read(ElementDef& element) {
    if (cursor == elements.end()) return false;
    element = *cursor++;
    return true;
}

bool ParamStream::write(ElementDef& element) {
    const bool isText = element.type == StringElement || element.type == WStringElement;
    if (element.type > WCharElement || (element.value.empty() && !isText)) return false;
    elements.push_back(element);
    if (elements.size() == 1) cursor = elements.begin();
    return true;
}

void ParamStream::concatenate(const ParamStream& other) {
    std::list<ElementDef> copies(other.elements);
    elements.splice(elements.end(), copies);
}

std::string ParamStream::getNext() {
    return cursor == elements.end() ? std::string() : (cursor++)->getAsString();
}

std::wstring ParamStream::getNextW() {
    return cursor == elements.end() ? std::wstring() : (cursor++)->getAsWString();
}

std::string ParamStream::format(std::string_view text) {
    return fill(text, &ParamStream::getNext);
}

std::wstring ParamStream::format(std::wstring_view text) {
    return fill(text, &ParamStream::getNextW);
}

ParamStream& ParamStream::put(ElementDef element) {
    write(element);
    return *this;
}

// Looks only at the `%`: the text between two of them is copied in one piece, backslashes included.
// Each `%` looks back over the backslashes right before it, so the whole stays linear.
template <class Char>
std::basic_string<Char> ParamStream::fill(std::basic_string_view<Char> text,
                                          std::basic_string<Char> (ParamStream::*next)()) {
    constexpr Char placeholder{'%'};
    if (elements.empty()) return std::basic_string<Char>(text);
    cursor = elements.begin();
    std::basic_string<Char> result;
    result.reserve(text.size());
    std::size_t done = 0;
    for (auto at = text.find(placeholder); at < text.size(); at = text.find(placeholder, at + 1)) {
        if (isShielded(text, at)) continue;
        result.append(text, done, at - done);
        result += (this->*next)();
        done = at + 1;
    }
    return result.append(text, done);
}

}  // namespace TarvikCorelib
