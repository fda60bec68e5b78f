/// Hashes of texts.
#pragma once

#include <cstdint>
#include <string_view>

namespace TarvikCorelib::StringTools {

/// Each unsigned character is a digit to the base 37; the number wraps around in the width of the
/// result, and an empty text has 0. The result is the same on every machine and in every release,
/// so it may be stored. It is no defence against keys made to collide.
std::int16_t hashInt16(std::string_view text);
std::uint16_t hashUInt16(std::string_view text);
std::int32_t hashInt32(std::string_view text);
std::int32_t hashInt32(std::wstring_view text);
std::uint32_t hashUInt32(std::string_view text);
std::uint32_t hashUInt32(std::wstring_view text);
std::int64_t hashInt64(std::string_view text);
std::int64_t hashInt64(std::wstring_view text);
std::uint64_t hashUInt64(std::string_view text);
std::uint64_t hashUInt64(std::wstring_view text);

}  // namespace TarvikCorelib::StringTools
