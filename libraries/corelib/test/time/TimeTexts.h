/// Zones and fields as texts, for the tests of the time classes.
#pragma once

#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"

#include <array>
#include <sstream>
#include <string>
#include <string_view>

namespace TarvikCorelib {

inline constexpr auto europe = "+01:00 (+01:00 3M5W6D2H-10M5W6D3H)";
inline constexpr auto australia = "+10:00 (+01:00 10M1W6D2H-4M1W6D3H)";

/// The name of a row, a text to read, and what is printed then.
using TextCase = std::array<const char*, 3>;

/// In a zone that is given, so that the system's is not asked.
inline DateTimeDetails read(std::string_view text, std::string_view zone = europe) {
    DateTimeDetails details;
    details.setTimeZone(TimeZone(zone));
    details.set(text);
    return details;
}

inline std::string shown(const DateTimeDetails& details) {
    return details.getString(true, false, false);
}

/// The words of an equation such as "1 + 2 = 3".
inline std::array<std::string, 5> wordsOf(const char* equation) {
    std::istringstream stream(equation);
    std::array<std::string, 5> words;
    for (std::string& word : words)
        stream >> word;
    return words;
}

}  // namespace TarvikCorelib
