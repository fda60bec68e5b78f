#include "libraries/corelib/source/system/Unicode.h"
#include "libraries/corelib/source/system/UnicodeCodec.h"
#include "libraries/corelib/source/system/UnicodeMessages.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace TarvikCorelib {

namespace {

// The second bytes that may follow a first one; the bytes behind them are any from 0x80 to 0xBF. So
// what is longer than needed, surrogates and all above 0x10FFFF are refused. A first byte without a
// row has no second one.
struct SecondBytes {
    unsigned int firstByte = 0;
    unsigned int lastFirstByte = 0;
    unsigned int from = 1;
    unsigned int to = 0;
};

constexpr auto secondBytes = std::to_array<SecondBytes>({
    {0xC2, 0xDF, 0x80, 0xBF},
    {0xE0, 0xE0, 0xA0, 0xBF},
    {0xE1, 0xEC, 0x80, 0xBF},
    {0xED, 0xED, 0x80, 0x9F},
    {0xEE, 0xEF, 0x80, 0xBF},
    {0xF0, 0xF0, 0x90, 0xBF},
    {0xF1, 0xF3, 0x80, 0xBF},
    {0xF4, 0xF4, 0x80, 0x8F},
});

consteval std::array<SecondBytes, 256> rowOfEachByte() {
    std::array<SecondBytes, 256> table{};
    for (const SecondBytes& row : secondBytes) {
        for (unsigned int byte = row.firstByte; byte <= row.lastFirstByte; ++byte)
            table[byte] = row;
    }
    return table;
}

constexpr std::array<SecondBytes, 256> secondBytesOf = rowOfEachByte();

[[noreturn]] void refuse(const char** p, std::size_t n) {
    const std::size_t expected = Unicode::getNumUTF8Bytes(static_cast<unsigned char>(**p));
    if (expected > unicode::mostBytes)
        throw unicode::invalid(messages::unicodeInvalid, messages::tooLongUtf8, here());
    // Past all that belong to it: as many as expected, as there are, or up to a zero byte.
    const std::string_view seen(*p, std::min(expected, n));
    *p += std::min(seen.find('\0'), seen.size());
    throw unicode::invalid(messages::unicodeInvalid, messages::invalidUtf8, here());
}

// The length is a constant, not a column of the table: the next character need not wait for it.
template <std::size_t length>
unsigned int decodeLong(const char** p, std::size_t n) {
    const auto byteAt = [at = *p](std::size_t i) -> unsigned int {
        return static_cast<unsigned char>(at[i]);
    };
    if (length > n) refuse(p, n);
    const SecondBytes& second = secondBytesOf[byteAt(0)];
    if (byteAt(1) < second.from || byteAt(1) > second.to) refuse(p, n);

    unsigned int c = (byteAt(0) & (0x7FU >> length)) << 6 | (byteAt(1) & 0x3F);
    for (std::size_t i = 2; i < length; ++i) {
        if ((byteAt(i) & 0xC0) != 0x80) refuse(p, n);
        c = c << 6 | (byteAt(i) & 0x3F);
    }
    *p += length;
    return c;
}

constexpr auto decode = [](const char** p, std::size_t n) {
    const unsigned int first = static_cast<unsigned char>(**p);
    if (first >= 0xF0) return decodeLong<4>(p, n);
    if (first >= 0xE0) return decodeLong<3>(p, n);
    if (first >= 0x80) return decodeLong<2>(p, n);
    ++*p;
    return first;
};

constexpr auto encode = [](unsigned int c, auto& bytes) {
    // Quirk: the last surrogate, 0xDFFF, passes.
    const bool isRefused = (c >= 0xD800 && c <= 0xDFFE) || c >= 0x200000;
    if (isRefused) return;
    if (c < 0x80) {
        bytes.add(c);
    } else if (c < 0x800) {
        bytes.add(0xC0 | c >> 6);
        bytes.add(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        bytes.add(0xE0 | c >> 12);
        bytes.add(0x80 | (c >> 6 & 0x3F));
        bytes.add(0x80 | (c & 0x3F));
    } else {
        bytes.add(0xF0 | c >> 18);
        bytes.add(0x80 | (c >> 12 & 0x3F));
        bytes.add(0x80 | (c >> 6 & 0x3F));
        bytes.add(0x80 | (c & 0x3F));
    }
};

}  // namespace

std::string Unicode::getUTF8() const {
    return unicode::encodeAll(codes, encode);
}

void Unicode::setUTF8(std::string_view text) {
    unicode::decodeAll<1>(text, codes, decode);
}

std::string Unicode::toUTF8(unsigned int c) {
    unicode::Bytes<unicode::mostBytes> bytes;
    encode(c, bytes);
    return std::string(bytes.view());
}

unsigned int Unicode::fromUTF8(const char** p, std::size_t n) {
    if (p == nullptr || *p == nullptr || n == 0)
        throw unicode::invalid(messages::unicodeInvalid, messages::voidUtf8, here());
    return decode(p, n);
}

unsigned int Unicode::fromUTF8(std::string_view text) {
    const char* at = text.data();
    return fromUTF8(&at, text.size());
}

std::size_t Unicode::getNumUTF8Bytes(unsigned char byte) {
    return byte < 0xC0 ? 1 : static_cast<std::size_t>(std::countl_one(byte));
}

std::size_t Unicode::getUTF8Length(std::string_view text, std::size_t pos) {
    std::size_t length = 0;
    for (; pos < text.size(); ++length)
        pos += getNumUTF8Bytes(static_cast<unsigned char>(text[pos]));
    return length;
}

}  // namespace TarvikCorelib
