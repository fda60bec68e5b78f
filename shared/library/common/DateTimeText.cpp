// How a DateTime is read from a text.
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

std::int32_t decimal(std::string_view digits) {
    return static_cast<std::int32_t>(std::strtol(std::string(digits).c_str(), nullptr, 10));
}

bool isDigits(std::string_view text) {
    return text.find_first_not_of("0123456789") == std::string_view::npos;
}

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
    if (text.empty() || !isDigits(text)) return;
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
    if (text.empty() || !isDigits(text)) return;
    const std::string_view digits = text;
    hour = decimal(digits.substr(0, 2));
    if (digits.size() > 2) minute = decimal(digits.substr(2, 2));
    // From position 6, not 4. This is what throws for five digits. On purpose.
    if (digits.size() > 4) second = decimal(digits.substr(6, 2));
}

void DateTimeT::fromString(const std::string& text) {
    *this = {};
    zone = DateTime::currentTz();

    // A "T" goes before a blank wherever it stands, and neither counts at the start.
    std::size_t separator = text.find('T');
    if (separator == std::string::npos) separator = text.find(' ');
    if (separator == std::string::npos || separator == 0) {
        date.fromString(text);
        return;
    }
    date.fromString(text.substr(0, separator));

    const std::size_t sign = std::min(text.find_first_of("+-", separator), text.size());
    time.fromString(text.substr(separator + 1, sign - separator - 1));
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
