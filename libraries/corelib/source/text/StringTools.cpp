#include "libraries/corelib/source/text/StringTools.h"

#include <array>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <string_view>

namespace TarvikCorelib::StringTools {

namespace {

void appendUnescaped(std::string& out, char code, std::string_view encoded, std::string_view plain,
                     char escapeChar) {
    if (const auto index = encoded.find(code); index != std::string_view::npos) {
        out += plain[index];
        return;
    }
    out += escapeChar;
    if (code != escapeChar) out += code;
}

}  // namespace

const std::string& whitespace() {
    static const std::string characters = " \r\n\t\v\b\f";
    return characters;
}

std::string& lower(std::string& text) {
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

std::string& unQuote(std::string& text) {
    if (text.size() < 2 || text.front() != text.back()) return text;
    if (text.front() != '\'' && text.front() != '"') return text;
    text.pop_back();
    text.erase(0, 1);
    return text;
}

std::string split(std::string& text, char delimiter) {
    const auto found = text.find(delimiter);
    std::string head = text.substr(0, found);
    text.erase(0, found == std::string::npos ? found : found + 1);
    return head;
}

std::string unescape(const std::string& text, const std::string& encoded, const std::string& plain,
                     char escapeChar) {
    if (text.find(escapeChar) == std::string::npos) return text;
    std::string result;
    result.reserve(text.size() + 1 + text.size() / 5);
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] != escapeChar) {
            result += text[index];
        } else if (++index < text.size()) {
            appendUnescaped(result, text[index], encoded, plain, escapeChar);
        }
    }
    return result;
}

std::string convert(const std::wstring& text) {
    std::string result;
    result.reserve(text.size());
    std::array<char, MB_LEN_MAX> bytes{};
    for (const wchar_t c : text) {
        const int count = std::wctomb(bytes.data(), c);
        if (count > 0) {
            result.append(bytes.data(), static_cast<std::size_t>(count));
        } else {
            result += static_cast<char>(c);
        }
    }
    return result;
}

}  // namespace TarvikCorelib::StringTools
