/// What the conversions of Unicode texts throw.
#pragma once

#include "libraries/corelib/source/diagnostics/Template.h"

#include <string_view>

namespace TarvikCorelib::messages {

inline constexpr Template<1> unicodeInvalid = "@unicode.invalid{Invalid unicode (%)};";
// Quirk: without its end.
inline constexpr Template<1> unicodeInvalidUnit = "@unicode.invalid{Invalid unicode (%);";

// --- the values of the first

inline constexpr std::string_view voidUtf8 = "void utf8";
inline constexpr std::string_view tooLongUtf8 = "> 4 bytes";
inline constexpr std::string_view invalidUtf8 = "invalid utf8";

/// The values of one order of bytes: two of the first template and two of the second.
struct Utf16Words {
    std::string_view nothing;
    std::string_view uneven;
    std::string_view illegal;
    std::string_view tooShort;
};
// Quirk: "uft".
inline constexpr Utf16Words utf16LeWords = {"void utf16le", "uneven utf16le",
                                            "illegal value uft16le", "too short uft16le"};
inline constexpr Utf16Words utf16BeWords = {"void utf16be", "uneven utf16be",
                                            "illegal value uft16be", "too short uft16be"};

}  // namespace TarvikCorelib::messages
