#include "apps/handlechecker/validation/RuleExpression.h"

#include "shared/library/common/StringTools.h"

#include <algorithm>

namespace Tarvik {

namespace {

// The index of the first of these bytes, or the size of the text.
template <typename... Bytes>
std::size_t findAny(std::string_view text, Bytes... bytes) {
    std::size_t at = 0;
    while (at < text.size() && !((text[at] == bytes) || ...)) {
        ++at;
    }
    return at;
}

// Cuts the first `count` bytes off `rest` and returns them.
std::string_view takeFront(std::string_view& rest, std::size_t count) {
    const std::string_view front = rest.substr(0, count);
    rest.remove_prefix(front.size());
    return front;
}

// The meaning of a byte behind a backslash; 0 if both bytes stand for themselves.
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

// Takes the backslash and, if there is one, the byte behind it.
void takeEscape(std::string_view& rest, std::string& value) {
    const std::string_view escape = takeFront(rest, 2);
    const char meant = escaped(escape.back());
    if (escape.size() == 2 && meant != 0) {
        value += meant;
    } else {
        value.append(escape);
    }
}

}  // namespace

bool RuleExpression::read(std::string_view text) {
    found.clear();
    valueless.clear();
    unquoted.clear();
    seen = repeated = 0;
    opened = text.empty() || text.front() == '[';
    closed = text.empty() || text.back() == ']';
    if (text.empty()) return true;
    if (opened != closed) return false;
    if (opened) text = text.substr(1, text.size() - 2);
    // All unquoted values together fit, so none is moved once a view leads to it.
    unquoted.reserve(text.size());
    return readPairs(text) && opened;
}

bool RuleExpression::number(const ParameterNames& names, ParameterNames::Set mayRepeat) {
    seen = repeated = 0;
    for (std::size_t index = 0; index < found.size(); ++index) {
        const std::size_t number = names.numberOf(found[index].first);
        const ParameterNames::Set mark = ParameterNames::Set{1} << number;
        if (number == ParameterNames::Unknown || (seen & mark & ~mayRepeat) != 0) {
            seen = 0;
            return false;
        }
        if ((seen & mark) == 0) first[number] = static_cast<std::uint32_t>(index);
        repeated |= seen & mark;
        seen |= mark;
    }
    return true;
}

// pairs := pair { "," pair }
// pair  := name "=" value
// name  := { byte but "=" "," or quote }
// value := { plain byte | quote { quoted byte | escape } quote }
//
// A plain byte is any but a comma or a quote, a quoted one any but a quote or a backslash. A pair
// may be missing its "=" and value, even be empty, as behind a comma at the end; that is reported
// and the next pair is read.
bool RuleExpression::readPairs(std::string_view rest) {
    // Each turn takes one pair off `rest`, and then the comma behind it.
    while (true) {
        const std::string_view name = takeFront(rest, findAny(rest, '=', ',', '"'));
        if (rest.starts_with('"')) return false;
        if (rest.starts_with('=')) {
            rest.remove_prefix(1);
            std::string_view value;
            if (!takeValue(rest, value)) break;
            found.emplace_back(StringTools::trimmed(name), StringTools::trimmed(value));
        } else {
            valueless.push_back(name);
        }
        if (rest.empty()) break;
        rest.remove_prefix(1);
    }
    return valueless.empty();
}

bool RuleExpression::takeValue(std::string_view& rest, std::string_view& value) {
    const std::string_view plain = rest.substr(0, rest.find(','));
    if (plain.find('"') == std::string_view::npos) {
        value = takeFront(rest, plain.size());
        return true;
    }
    const std::size_t first = unquoted.size();
    if (!takeQuoted(rest)) return false;
    value = std::string_view(unquoted).substr(first);
    return true;
}

bool RuleExpression::takeQuoted(std::string_view& rest) {
    bool quoted = false;
    while (true) {
        const std::size_t stop = quoted ? findAny(rest, '"', '\\') : findAny(rest, '"', ',');
        unquoted.append(takeFront(rest, stop));
        if (rest.empty() || rest.front() == ',') return !quoted;
        if (rest.front() == '\\') {
            takeEscape(rest, unquoted);
        } else {
            rest.remove_prefix(1);
            quoted = !quoted;
        }
    }
}

void RuleExpression::sortByName() {
    std::sort(found.begin(), found.end(), [](const Parameter& one, const Parameter& other) {
        const int order = one.first.compare(other.first);
        // Both views lead into one text: a lower address is an earlier parameter.
        return order != 0 ? order < 0 : one.first.data() < other.first.data();
    });
}

}  // namespace Tarvik
