#include "shared/library/common/StringTools.h"

#include <algorithm>
#include <utility>

namespace Tarvik {

namespace {

// Signed: bytes from 0x80 up count as blanks.
constexpr bool isBlank(char byte) {
    return static_cast<signed char>(byte) <= 32;
}

std::size_t blanksAhead(std::string_view text) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isBlank) -
                                    text.begin());
}

std::size_t blanksBehind(std::string_view text) {
    return static_cast<std::size_t>(std::find_if_not(text.rbegin(), text.rend(), isBlank) -
                                    text.rbegin());
}

}  // namespace

std::size_t StringTools::trim(std::string& text) {
    const std::size_t behind = trimRight(text);
    return behind + trimLeft(text);
}

std::size_t StringTools::trimLeft(std::string& text) {
    const std::size_t count = blanksAhead(text);
    text.erase(0, count);
    return count;
}

std::size_t StringTools::trimRight(std::string& text) {
    const std::size_t count = blanksBehind(text);
    text.resize(text.size() - count);
    return count;
}

std::string_view StringTools::trimmed(std::string_view text) {
    text.remove_suffix(blanksBehind(text));
    text.remove_prefix(blanksAhead(text));
    return text;
}

std::string StringTools::split(std::string& text, char separator) {
    const std::size_t at = text.find(separator);
    if (at == std::string::npos) return std::exchange(text, std::string());
    std::string field = text.substr(0, at);
    text.erase(0, at + 1);
    return field;
}

}  // namespace Tarvik
