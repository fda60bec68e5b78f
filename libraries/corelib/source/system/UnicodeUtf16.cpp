#include "libraries/corelib/source/system/SystemTools.h"
#include "libraries/corelib/source/system/Unicode.h"
#include "libraries/corelib/source/system/UnicodeCodec.h"
#include "libraries/corelib/source/system/UnicodeMessages.h"

#include <cstring>

namespace TarvikCorelib {

namespace {

constexpr std::size_t unitBytes = 2;

enum class Order { LowFirst, HighFirst };

template <Order order>
constexpr const messages::Utf16Words& words =
    order == Order::LowFirst ? messages::utf16LeWords : messages::utf16BeWords;

bool isSurrogate(unsigned int unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

// Byte by byte: a text need not lie as a unit must, and the host's order does not matter.
template <Order order>
unsigned int unitAt(const char* at) {
    const unsigned int first = static_cast<unsigned char>(at[0]);
    const unsigned int second = static_cast<unsigned char>(at[1]);
    return order == Order::LowFirst ? first | second << 8U : first << 8U | second;
}

template <Order order>
unsigned int decode(const char** p, std::size_t n) {
    if (p == nullptr || *p == nullptr || n == 0)
        throw unicode::invalid(messages::unicodeInvalid, words<order>.nothing, here());
    if (n % unitBytes != 0)
        throw unicode::invalid(messages::unicodeInvalid, words<order>.uneven, here());

    const unsigned int high = unitAt<order>(*p);
    *p += unitBytes;
    if (!isSurrogate(high)) return high;
    if (high > 0xDBFF)
        throw unicode::invalid(messages::unicodeInvalidUnit, words<order>.illegal, here());
    if (n < 2 * unitBytes)
        throw unicode::invalid(messages::unicodeInvalidUnit, words<order>.tooShort, here());

    const unsigned int low = unitAt<order>(*p);
    *p += unitBytes;
    return ((low & 0x3FF) | (high & 0x3FF) << 10) + 0x10000;
}

template <Order order>
unsigned int decodeFirst(std::string_view text) {
    const char* at = text.data();
    return decode<order>(&at, text.size());
}

template <Order order>
void addUnit(unsigned int unit, auto& bytes) {
    bytes.add(order == Order::LowFirst ? unit & 0xFF : unit >> 8 & 0xFF);
    bytes.add(order == Order::LowFirst ? unit >> 8 & 0xFF : unit & 0xFF);
}

template <Order order>
constexpr auto encode = [](unsigned int c, auto& bytes) {
    // Quirk: neither reduced by 0x10000 nor shifted, so it is not the standard's unit.
    if (c > 0xFFFF) addUnit<order>((c & 0xFC00) + 0xD800, bytes);
    addUnit<order>(c > 0xFFFF ? (c & 0x3FF) + 0xDC00 : c, bytes);
};

template <Order order>
std::string encodeOne(unsigned int c) {
    unicode::Bytes<unicode::mostBytes> bytes;
    encode<order>(c, bytes);
    return std::string(bytes.view());
}

template <Order order>
std::size_t lengthFrom(std::string_view text, std::size_t pos) {
    std::size_t length = 0;
    for (; pos < text.size() && text.size() - pos >= unitBytes; ++length)
        pos += isSurrogate(unitAt<order>(text.data() + pos)) ? 2 * unitBytes : unitBytes;
    return length;
}

// Process-wide. Asked for once, so that no character waits for the lock of the details.
bool isLittleEndian() {
    static const bool isLittle = SystemTools::obtain(SystemTools::DetailByteOrder) == "little";
    return isLittle;
}

}  // namespace

std::string Unicode::getUTF16LE() const {
    return unicode::encodeAll(codes, encode<Order::LowFirst>);
}

std::string Unicode::getUTF16BE() const {
    return unicode::encodeAll(codes, encode<Order::HighFirst>);
}

void Unicode::setUTF16LE(std::string_view text) {
    unicode::decodeAll<unitBytes>(text, codes, decode<Order::LowFirst>);
}

void Unicode::setUTF16BE(std::string_view text) {
    unicode::decodeAll<unitBytes>(text, codes, decode<Order::HighFirst>);
}

std::string Unicode::toUTF16LE(unsigned int c) {
    return encodeOne<Order::LowFirst>(c);
}

std::string Unicode::toUTF16BE(unsigned int c) {
    return encodeOne<Order::HighFirst>(c);
}

unsigned int Unicode::fromUTF16LE(const char** p, std::size_t n) {
    return decode<Order::LowFirst>(p, n);
}

unsigned int Unicode::fromUTF16BE(const char** p, std::size_t n) {
    return decode<Order::HighFirst>(p, n);
}

unsigned int Unicode::fromUTF16LE(std::string_view text) {
    return decodeFirst<Order::LowFirst>(text);
}

unsigned int Unicode::fromUTF16BE(std::string_view text) {
    return decodeFirst<Order::HighFirst>(text);
}

std::size_t Unicode::getNumUTF16LEBytes(std::uint16_t unit) {
    return isSurrogate(unit) ? 2 * unitBytes : unitBytes;
}

std::size_t Unicode::getNumUTF16BEBytes(std::uint16_t unit) {
    return getNumUTF16LEBytes(unit);
}

std::size_t Unicode::getUTF16LELength(std::string_view text, std::size_t pos) {
    return lengthFrom<Order::LowFirst>(text, pos);
}

std::size_t Unicode::getUTF16BELength(std::string_view text, std::size_t pos) {
    return lengthFrom<Order::HighFirst>(text, pos);
}

std::uint16_t Unicode::getBytePairFromLE(std::uint16_t unit) {
    return isLittleEndian() ? unit : swapBytes(unit);
}

std::uint16_t Unicode::getBytePairFromBE(std::uint16_t unit) {
    return isLittleEndian() ? swapBytes(unit) : unit;
}

std::uint16_t Unicode::swapBytes(std::uint16_t unit) {
    return static_cast<std::uint16_t>(unit << 8 | unit >> 8);
}

std::string Unicode::toBytes(std::uint16_t unit) {
    std::string bytes(unitBytes, '\0');
    std::memcpy(bytes.data(), &unit, unitBytes);
    return bytes;
}

}  // namespace TarvikCorelib
