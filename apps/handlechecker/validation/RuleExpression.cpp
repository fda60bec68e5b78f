#include "apps/handlechecker/validation/RuleExpression.h"

#include "shared/library/common/StringTools.h"

#include <algorithm>

namespace Tarvik {

namespace {

// Where the first of the bytes stands, or the end.
template <typename... Bytes>
std::size_t findAny(std::string_view text, std::size_t from, Bytes... bytes) {
    while (from < text.size() && !((text[from] == bytes) || ...)) {
        ++from;
    }
    return from;
}

// What the byte behind a backslash stands for; 0 for nothing but itself.
constexpr char escaped(char byte) {
    switch (byte) {
    case '"': return '"';
    case '\\': return '\\';
    case 'a': return '\a';
    case 'b': return '\b';
    case 'f': return '\f';
    case 'n': return '\n';
    case 'r': return '\r';
    case 't': return '\t';
    case 'v': return '\v';
    default: return 0;
    }
}

// Takes the backslash at `at` and the byte behind it, if there is one.
void appendEscape(std::string_view text, std::size_t& at, std::string& value) {
    const char meant = at + 1 < text.size() ? escaped(text[at + 1]) : '\0';
    if (meant != 0) {
        value += meant;
    } else {
        value.append(text.substr(at, 2));
    }
    at = std::min(at + 2, text.size());
}

}  // namespace

bool RuleExpression::read(std::string_view text) {
    found.clear();
    valueless.clear();
    unquoted.clear();
    opened = text.empty() || text.front() == '[';
    closed = text.empty() || text.back() == ']';
    if (text.empty()) return true;
    if (opened != closed) return false;
    if (opened) text = text.substr(1, text.size() - 2);
    const bool good = readPairs(text);
    sortByName();
    return good && opened;
}

const std::string_view* RuleExpression::valueOf(std::string_view name) const {
    // Faster than halving: whoever asks has refused rules with more than a few parameters.
    const auto first = std::find_if(found.begin(), found.end(), [name](const Parameter& parameter) {
        return parameter.first == name;
    });
    return first != found.end() ? &first->second : nullptr;
}

bool RuleExpression::readPairs(std::string_view text) {
    // One pass more when the text ends in a comma or is blank: a name is missing there.
    for (std::size_t at = 0; at <= text.size(); ++at) {
        const std::size_t nameEnd = findAny(text, at, '=', ',', '"');
        const std::string_view name = text.substr(at, nameEnd - at);
        at = nameEnd;
        if (at == text.size() || text[at] == ',') {
            valueless.push_back(name);
            continue;
        }
        if (text[at] == '"') return false;
        ++at;
        std::string_view value;
        if (!takeValue(text, at, value)) break;
        found.emplace_back(StringTools::trimmed(name), StringTools::trimmed(value));
    }
    return valueless.empty();
}

// The value from `at` to the comma or the end behind it, where `at` is left. False when the text
// ends inside quotes.
bool RuleExpression::takeValue(std::string_view text, std::size_t& at, std::string_view& value) {
    const std::size_t start = at;
    at = std::min(text.find(',', start), text.size());
    value = text.substr(start, at - start);
    if (value.find('"') == std::string_view::npos) return true;

    at = start;
    // All values together are no longer than the text: the earlier ones are never moved.
    unquoted.reserve(text.size());
    const std::size_t first = unquoted.size();
    if (!unquote(text, at)) return false;
    value = std::string_view(unquoted).substr(first);
    return true;
}

bool RuleExpression::unquote(std::string_view text, std::size_t& at) {
    bool quoted = false;
    while (at < text.size()) {
        const std::size_t stop =
            quoted ? findAny(text, at, '"', '\\') : findAny(text, at, '"', ',');
        unquoted.append(text.substr(at, stop - at));
        at = stop;
        if (stop == text.size() || text[stop] == ',') break;
        if (text[stop] == '\\') {
            appendEscape(text, at, unquoted);
        } else {
            quoted = !quoted;
            ++at;
        }
    }
    return !quoted;
}

void RuleExpression::sortByName() {
    std::sort(found.begin(), found.end(), [](const Parameter& one, const Parameter& other) {
        const int order = one.first.compare(other.first);
        // Equal names by their places in the text.
        return order != 0 ? order < 0 : one.first.data() < other.first.data();
    });
}

}  // namespace Tarvik
