/// What the conversions share: their failure, and whole texts by way of single characters.
#pragma once

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/diagnostics/Template.h"
#include "libraries/corelib/source/system/Unicode.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace TarvikCorelib::unicode {

/// The longest form of a character in any encoding.
inline constexpr std::size_t mostBytes = 4;

/// `throw invalid(text, word, here())`.
inline Unicode::Unicode_Invalid invalid(const Template<1>& text, std::string_view word,
                                        const std::string& location) {
    return Unicode::Unicode_Invalid(text.view(), location, valuesFor(text, std::string(word)));
}

/// Room for the bytes of some characters.
template <std::size_t Room>
struct Bytes {
    std::array<char, Room> bytes{};
    std::size_t count = 0;

    void add(unsigned int byte) { bytes[count++] = static_cast<char>(byte); }
    [[nodiscard]] std::string_view view() const { return {bytes.data(), count}; }
};

/// `encode(c, bytes)` adds at most `mostBytes` bytes. They are gathered in blocks, which is several
/// times as fast as appending each character to the text.
template <class Encode>
std::string encodeAll(const std::vector<unsigned int>& codes, Encode encode) {
    constexpr std::size_t blockSize = 256;
    std::string text;
    for (std::size_t pos = 0; pos < codes.size(); pos += blockSize) {
        Bytes<blockSize * mostBytes> block;
        const std::size_t end = std::min(pos + blockSize, codes.size());
        for (std::size_t i = pos; i < end; ++i)
            encode(codes[i], block);
        text += block.view();
    }
    return text;
}

/// `decode(p, n)` is one of the conversions that move a pointer. What it throws is passed on;
/// `codes` holds what was decoded before. Room is made at once, for characters of `leastBytes`:
/// growing step by step takes as long as decoding.
template <std::size_t leastBytes, class Decode>
void decodeAll(std::string_view text, std::vector<unsigned int>& codes, Decode decode) {
    codes.clear();
    codes.reserve(text.size() / leastBytes);
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end)
        codes.push_back(decode(&at, static_cast<std::size_t>(end - at)));
}

}  // namespace TarvikCorelib::unicode
