/// Message templates of failures that no class owns.
#pragma once

#include <string_view>

namespace TarvikCorelib::messages {

inline constexpr std::string_view outOfMemory = "@out-of-memory{Out of memory};";
/// For something thrown that is of no known type.
inline constexpr std::string_view unknownException = "@unknown-exception{Unknown exception};";

}  // namespace TarvikCorelib::messages
