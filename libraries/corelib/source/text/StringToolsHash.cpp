#include "libraries/corelib/source/text/StringToolsHash.h"

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <type_traits>

namespace TarvikCorelib::StringTools {

namespace {

// The number is built in 64 bits and cut at the end. Sums and products wrap around, and their low
// bits depend on low bits only, so this is the hash of each narrower width as well. Characters are
// unsigned: bytes from 0x80 up add, they never subtract.
template <class Number, class Char>
Number hash(View<Char> text) {
    std::uint64_t value = 0;
    for (const Char c : text)
        value = value * 37 + static_cast<std::make_unsigned_t<Char>>(c);
    return static_cast<Number>(value);
}

}  // namespace

std::int16_t hashInt16(std::string_view text) {
    return hash<std::int16_t>(text);
}

std::uint16_t hashUInt16(std::string_view text) {
    return hash<std::uint16_t>(text);
}

std::int32_t hashInt32(std::string_view text) {
    return hash<std::int32_t>(text);
}

std::int32_t hashInt32(std::wstring_view text) {
    return hash<std::int32_t>(text);
}

std::uint32_t hashUInt32(std::string_view text) {
    return hash<std::uint32_t>(text);
}

std::uint32_t hashUInt32(std::wstring_view text) {
    return hash<std::uint32_t>(text);
}

std::int64_t hashInt64(std::string_view text) {
    return hash<std::int64_t>(text);
}

std::int64_t hashInt64(std::wstring_view text) {
    return hash<std::int64_t>(text);
}

std::uint64_t hashUInt64(std::string_view text) {
    return hash<std::uint64_t>(text);
}

std::uint64_t hashUInt64(std::wstring_view text) {
    return hash<std::uint64_t>(text);
}

}  // namespace TarvikCorelib::StringTools
