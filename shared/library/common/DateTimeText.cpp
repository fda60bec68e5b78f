// How a DateTime is read from a text.
//
//     text := date [ ("T" | " ") time [ zone ] ]
//     date := year [ "-" month [ "-" day ] ]  |  digits "YYYY[MM[DD]]"
//     time := hour [ ":" minute [ ":" second ] ]  |  digits "HH[MM[..SS]]"
//     zone := ("+" | "-") ..., as TzDef reads it
//
// Each part is read on its own and keeps its first values where it cannot be read. So no text is
// refused, and a bad date is a date in 1970.

#include "shared/library/common/DateTime.h"
#include "shared/library/common/StringTools.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace Tarvik {

namespace {

using Fields = std::array<std::int32_t*, 3>;

// The low 32 bits of the number at the start of the text; 0 if there is none.
std::int32_t decimal(std::string_view digits) {
    return static_cast<std::int32_t>(std::strtol(std::string(digits).c_str(), nullptr, 10));
}

// Fields that are missing at the end are left as they are; an empty one in the middle is 0.
void readSeparated(std::string text, char separator, const Fields& fields) {
    for (std::int32_t* const field : fields) {
        if (text.empty()) return;
        *field = decimal(StringTools::split(text, separator));
    }
}

}  // namespace

void DateT::fromString(std::string text) {
    if (text.find('-') != std::string::npos) {
        readSeparated(std::move(text), '-', {&year, &month, &day});
        return;
    }
    if (text.empty() || !StringTools::holdsOnlyDigits(text)) return;
    const std::string_view digits = text;
    year = decimal(digits.substr(0, 4));
    if (digits.size() > 4) month = decimal(digits.substr(4, 2));
    if (digits.size() > 6) day = decimal(digits.substr(6, 2));
}

void TimeT::fromString(std::string text) {
    if (text.find(':') != std::string::npos) {
        readSeparated(std::move(text), ':', {&hour, &minute, &second});
        return;
    }
    if (text.empty() || !StringTools::holdsOnlyDigits(text)) return;
    const std::string_view digits = text;
    hour = decimal(digits.substr(0, 2));
    if (digits.size() > 2) minute = decimal(digits.substr(2, 2));
    // Quirk: from position 6, not 4, which throws for five digits.
    if (digits.size() > 4) second = decimal(digits.substr(6, 2));
}

void DateTimeT::fromString(const std::string& text) {
    *this = {};
    zone = DateTime::currentTz();

    // A "T" anywhere takes precedence over a blank. Neither is a separator at the very start.
    std::size_t separator = text.find('T');
    if (separator == std::string::npos) separator = text.find(' ');
    if (separator == std::string::npos || separator == 0) {
        date.fromString(text);
        return;
    }
    date.fromString(text.substr(0, separator));

    const std::size_t sign = std::min(text.find_first_of("+-", separator), text.size());
    time.fromString(text.substr(separator + 1, sign - separator - 1));
    // A zone needs an instant to know whether that is in daylight time: the one in the zone so far.
    if (sign < text.size()) zone.fromString(text.substr(sign), DateTime(*this));
}

void DateTime::set(const std::string& text) {
    if (StringTools::trimmed(text).empty()) {
        *this = {};
        return;
    }
    DateTimeT fields;
    fields.fromString(text);
    set(fields);
}

}  // namespace Tarvik
