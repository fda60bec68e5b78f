/// Hashes of texts.
#pragma once

#include <cstdint>
#include <string_view>

namespace TarvikCorelib::StringTools {

/// A hash: each unsigned character counts as a digit to the base 37, wrapping in the width of the
/// result; an empty text has 0. Stable: it may be stored.
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
