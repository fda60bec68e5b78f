#include "shared/library/common/StringTools.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace Tarvik {

namespace {

// Signed: bytes from 0x80 up count as blanks.
// Drops each "*" and "?" that follows a "*".
// Quirk: a "*" behind a "?" is kept but not remembered, so another "*" behind it is kept, too.
std::string withoutRepeatedStars(const std::string& pattern) {
    std::string result;
    char remembered = 0;
    for (const char byte : pattern) {
        if (remembered == '*' && (byte == '*' || byte == '?')) continue;
        result += byte;
        if (byte != '*' || remembered != '?') remembered = byte;
    }
    return result;
}

// Walks along a pattern and a text with one position in each.
//
// A star lets the pattern start again just behind it whenever a byte does not match. Where a full
// matcher would also go back in the text, to one byte after its last try, this one tries each byte
// of the text twice and then goes on to the next. So it needs no recursion and at most a few steps
// for each byte of the text, but misses matches that overlap a failed try. That limit is part of
// the handle format.
class PatternWalk {
public:
    PatternWalk(std::string normalisedPattern, std::string_view wholeText)
        : pattern(std::move(normalisedPattern)), text(wholeText) {}

    bool matches() {
        while (compare()) {
            if (patternPos < pattern.size()) {
                return patternPos + 1 == pattern.size() && pattern.back() == '*';
            }
            if (textPos == text.size()) return true;
            if (pattern.ends_with('*')) return true;
            if (!starSeen) return false;
            patternPos = behindStar;
        }
        return false;
    }

private:
    // Walks to the end of the pattern or of the text. Returns false for a mismatch without a star
    // before it.
    bool compare() {
        while (patternPos < pattern.size() && textPos < text.size()) {
            const char expected = pattern[patternPos];
            if (expected == '*') {
                starSeen = true;
                behindStar = ++patternPos;
            } else if (expected == '?' || expected == text[textPos]) {
                ++patternPos;
                ++textPos;
            } else if (starSeen) {
                goBackToStar();
            } else {
                return false;
            }
        }
        return true;
    }

    // Goes on to the next byte of the text, but only at the second mismatch at the same byte.
    void goBackToStar() {
        patternPos = behindStar;
        if (textPos + 1 == mark) {
            textPos = mark;
        } else {
            mark = textPos + 1;
        }
    }

    std::string pattern;
    std::string_view text;
    std::size_t patternPos = 0;
    std::size_t textPos = 0;
    std::size_t behindStar = 0;  // Of the last star.
    std::size_t mark = 0;        // One behind the byte of the last mismatch.
    bool starSeen = false;
};

}  // namespace

std::size_t StringTools::trim(std::string& text) {
    const std::size_t behind = trimRight(text);
    return behind + trimLeft(text);
}

std::size_t StringTools::trimLeft(std::string& text) {
    const std::size_t count = text.size() - trimmedLeft(text).size();
    if (count > 0) text.erase(0, count);
    return count;
}

std::size_t StringTools::trimRight(std::string& text) {
    const std::size_t count = text.size() - trimmedRight(text).size();
    text.resize(text.size() - count);
    return count;
}

std::string StringTools::split(std::string& text, char separator) {
    const std::size_t at = text.find(separator);
    if (at == std::string::npos) return std::exchange(text, std::string());
    std::string field = text.substr(0, at);
    text.erase(0, at + 1);
    return field;
}

void StringTools::split(const std::string& text, char separator, std::vector<std::string>& out,
                        int maxParts, bool keepEmpty) {
    out.clear();
    std::string_view rest = text;
    // Not "less than": with a `maxParts` of 0 there is no limit.
    while (out.size() + 1 != static_cast<std::size_t>(maxParts)) {
        const std::size_t at = rest.find(separator);
        if (at == std::string_view::npos) break;
        if (at > 0 || keepEmpty) out.emplace_back(rest.substr(0, at));
        rest.remove_prefix(at + 1);
    }
    if (!rest.empty()) out.emplace_back(rest);
}

void StringTools::makeLower(std::string& text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char byte) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(byte)));
    });
}

void StringTools::removeChar(std::string& text, char unwanted) {
    std::erase(text, unwanted);
}

bool StringTools::patternMatch(const std::string& pattern, const std::string& text) {
    // Compared before stars are dropped: "**" does not match an empty text.
    if (pattern == "*") return true;
    if (pattern == "?") return text.size() == 1;
    if (text.empty()) return false;
    if (pattern == "?*") return true;
    return PatternWalk(withoutRepeatedStars(pattern), text).matches();
}

std::uint64_t StringTools::hashLarge(const std::string& bytes, std::uint64_t before) {
    constexpr std::uint64_t factor = 37;
    std::uint64_t hash = before;
    for (const char byte : bytes) {
        // NOLINTNEXTLINE(bugprone-signed-char-misuse): a byte from 0x80 up has to subtract.
        const std::int64_t summand = static_cast<signed char>(byte);
        hash = hash * factor + static_cast<std::uint64_t>(summand);
    }
    return hash;
}

std::string StringTools::toString(long number) {
    return std::to_string(number);
}

bool StringTools::holdsOnlyDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), isDigit);
}

}  // namespace Tarvik
