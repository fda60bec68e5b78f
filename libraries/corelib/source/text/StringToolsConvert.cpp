#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <cwchar>
#include <exception>

namespace TarvikCorelib::StringTools {

namespace {

// The state of each character is a fresh one: no conversion sees what another left behind, so any
// thread may convert.
wchar_t widened(char byte) {
    std::mbstate_t state{};
    wchar_t c = 0;
    // A result above 1 says that the byte only begins a character, or is none.
    const bool isSevenBit = static_cast<unsigned char>(byte) < 0x80;
    if (!isSevenBit || std::mbrtowc(&c, &byte, 1, &state) > 1) throw std::exception();
    return c;
}

char lowByte(wchar_t c) {
    return static_cast<char>(c);
}

// The bytes of one character in the process locale, or its low byte if the locale has none for it.
// Held here, so that a text is narrowed without a string for each character.
class NarrowCharacter {
public:
    explicit NarrowCharacter(wchar_t c) {
        std::mbstate_t state{};
        const std::size_t count = std::wcrtomb(bytes.data(), c, &state);
        if (count != static_cast<std::size_t>(-1)) {
            size = count;
        } else {
            bytes.front() = lowByte(c);
        }
    }

    [[nodiscard]] std::string_view view() const { return {bytes.data(), size}; }

private:
    std::array<char, MB_LEN_MAX> bytes{};
    std::size_t size = 1;
};

// Characters mostly keep their order, so each item is expected at the end of the result.
template <class To, class From>
To convertedItems(const From& items) {
    To result;
    for (const auto& item : items)
        result.emplace_hint(result.end(), convert(item));
    return result;
}

template <class To, class From>
To convertedPairs(const From& pairs) {
    To result;
    for (const auto& [key, value] : pairs)
        result.emplace_hint(result.end(), convert(key), convert(value));
    return result;
}

constexpr std::size_t bytesPerCharacter = 4;

// The lowest byte comes first, on any machine. What follows the four bytes stays as it is.
void putBytes(wchar_t c, char* bytes) {
    for (std::size_t i = 0; i < bytesPerCharacter; ++i)
        bytes[i] = static_cast<char>(c >> (CHAR_BIT * i));
}

// From unsigned bytes: a signed one would set all the bits above its own.
wchar_t getBytes(const char* bytes) {
    std::uint32_t code = 0;
    for (std::size_t i = bytesPerCharacter; i-- > 0;)
        code = code << CHAR_BIT | static_cast<unsigned char>(bytes[i]);
    return static_cast<wchar_t>(code);
}

}  // namespace

wchar_t convert(char c) {
    return widened(c);
}

std::wstring convert(std::string_view text) {
    std::wstring result(text.size(), L'\0');
    std::transform(text.begin(), text.end(), result.begin(), widened);
    return result;
}

char convert(wchar_t c) {
    const NarrowCharacter narrow(c);
    return narrow.view().size() == 1 ? narrow.view().front() : lowByte(c);
}

std::string convert(std::wstring_view text) {
    std::string result;
    result.reserve(text.size());
    for (const wchar_t c : text)
        result += NarrowCharacter(c).view();
    return result;
}

std::set<std::wstring> convert(const std::set<std::string>& items) {
    return convertedItems<std::set<std::wstring>>(items);
}

std::set<std::string> convert(const std::set<std::wstring>& items) {
    return convertedItems<std::set<std::string>>(items);
}

std::multiset<std::wstring> convert(const std::multiset<std::string>& items) {
    return convertedItems<std::multiset<std::wstring>>(items);
}

std::multiset<std::string> convert(const std::multiset<std::wstring>& items) {
    return convertedItems<std::multiset<std::string>>(items);
}

std::map<std::wstring, std::wstring> convert(const std::map<std::string, std::string>& pairs) {
    return convertedPairs<std::map<std::wstring, std::wstring>>(pairs);
}

std::map<std::string, std::string> convert(const std::map<std::wstring, std::wstring>& pairs) {
    return convertedPairs<std::map<std::string, std::string>>(pairs);
}

std::multimap<std::wstring, std::wstring> convert(
    const std::multimap<std::string, std::string>& pairs) {
    return convertedPairs<std::multimap<std::wstring, std::wstring>>(pairs);
}

std::multimap<std::string, std::string> convert(
    const std::multimap<std::wstring, std::wstring>& pairs) {
    return convertedPairs<std::multimap<std::string, std::string>>(pairs);
}

std::wstring widen(std::string_view text) {
    std::wstring result(text.size(), L'\0');
    std::transform(text.begin(), text.end(), result.begin(),
                   [](char c) { return static_cast<unsigned char>(c); });
    return result;
}

bool encode(wchar_t c, char* buffer, unsigned short size) {
    if (size < bytesPerCharacter) return false;
    putBytes(c, buffer);
    std::fill(buffer + bytesPerCharacter, buffer + size, '\0');
    return true;
}

bool decode(wchar_t& c, const char* buffer, unsigned short size) {
    if (size < bytesPerCharacter) return false;
    c = getBytes(buffer);
    return true;
}

std::string encode(std::wstring_view text, unsigned short width) {
    if (width < bytesPerCharacter) return {};
    std::string result(text.size() * width, '\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        putBytes(text[i], result.data() + i * width);
    return result;
}

std::wstring decode(std::string_view bytes, unsigned short width) {
    if (width < bytesPerCharacter) return {};
    std::wstring result(bytes.size() / width, L'\0');
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] = getBytes(bytes.data() + i * width);
    return result;
}

}  // namespace TarvikCorelib::StringTools
