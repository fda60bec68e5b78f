// Values: booleans, numbers, durations and ranges, by themselves and as the values of plain keys.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"
#include "shared/library/common/DateTime.h"
#include "shared/library/common/StringTools.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <system_error>
#include <utility>

namespace Tarvik {

namespace {

constexpr long secondsOfDay = 86400;

// Seconds in one unit of each field of a duration, from the right.
constexpr std::array<long, 4> resolution = {1, 60, 3600, secondsOfDay};

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

bool holdsOnlyDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), isDigit);
}

// The low bytes of the number; one beyond a long counts as the largest long.
template <typename T>
T cutNumber(std::string_view digits) {
    long number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (read.ec == std::errc::result_out_of_range) number = std::numeric_limits<long>::max();
    return static_cast<T>(number);
}

// Removes the last non-empty field from the text and returns it; empty if there is none.
std::string_view takeLastField(std::string_view& text, char separator) {
    const std::size_t last = text.find_last_not_of(separator);
    text = text.substr(0, last + 1);
    const std::size_t start = text.rfind(separator) + 1;
    const std::string_view field = text.substr(start);
    text = text.substr(0, start);
    return field;
}

}  // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): a settled signature.
bool HandleValidator::trueOrFalse(std::string value, bool& out) {
    return readFlag(value, out);
}

bool HandleValidator::readFlag(std::string_view value, bool& out) {
    if (value.empty()) return true;
    if (value == "true" || value == "yes") {
        out = true;
        return true;
    }
    if (value == "false" || value == "no") {
        out = false;
        return true;
    }
    return report(messages::fill(messages::invalidValueFor, {value, currentKey}));
}

template <typename T>
bool HandleValidator::strToIntValidator(std::string value, T& out) {
    if (value.empty()) return true;
    if (!holdsOnlyDigits(value)) return report(messages::fill(messages::invalidValueOf, {value}));
    out = cutNumber<T>(value);
    return true;
}

template bool HandleValidator::strToIntValidator(std::string value, short& out);
template bool HandleValidator::strToIntValidator(std::string value, int& out);
template bool HandleValidator::strToIntValidator(std::string value, unsigned int& out);

template <typename T>
bool HandleValidator::strToFloatValidator(std::string value, T& out) {
    if (value.empty()) return true;
    const auto isPart = [](char byte) { return isDigit(byte) || byte == '.'; };
    if (!std::all_of(value.begin(), value.end(), isPart) ||
        std::count(value.begin(), value.end(), '.') > 1) {
        return report(messages::fill(messages::invalidValueOf, {value}));
    }
    out = std::strtod(value.c_str(), nullptr);
    return true;
}

template bool HandleValidator::strToFloatValidator(std::string value, double& out);

// duration = [[[days ":"] hours ":"] minutes ":"] seconds
//
// Read from the right, so that the number of fields need not be known. Empty fields drop out.
long HandleValidator::getHMS(const std::string& value) {
    long sum = 0;
    std::string_view rest = value;
    // The value of a text without any field.
    scratchValue.assign(1, '0');
    for (std::size_t i = 0;; ++i) {
        const std::string_view field = takeLastField(rest, ':');
        if (field.empty()) return sum;
        scratchValue = field;
        // There is no unit above days.
        if (i == resolution.size() || !holdsOnlyDigits(field)) {
            report(messages::fill(messages::invalidValueOf, {field}));
            return 0;
        }
        sum += cutNumber<std::int32_t>(field) * resolution[i];
    }
}

bool HandleValidator::getTimeRange(const std::string& value, RangeDef& out) {
    const std::size_t dash = value.find('-');
    if (dash == std::string::npos) return false;
    out.start = getHMS(value.substr(0, dash));
    out.end = getHMS(value.substr(dash + 1));
    // Quirk: done before the sides are compared, so "24:00:00-0" is a fault.
    if (out.end < out.start) out.end += secondsOfDay;
    return out.start != out.end;
}

bool HandleValidator::getDateRange(const std::string& value, RangeDef& out) {
    // Dashes in the date of the start are ignored; the first one after its "T" ends it.
    const std::size_t dash = value.find('-', value.find('T'));
    if (dash == std::string::npos) return false;
    RangeDef range;
    if (!strToDate(value.substr(0, dash), range.start)) return false;
    if (!strToDate(value.substr(dash + 1), range.end)) return false;
    out = range;
    return out.end > out.start;
}

bool HandleValidator::strToDate(const std::string& value, long& out) {
    try {
        out = DateTime(value).getInternalTime();
        return true;
    } catch (...) {
        return false;
    }
}

std::vector<std::string> HandleValidator::namesIn(const std::string& value) {
    std::vector<std::string> names;
    splitAtCommas(value, names);
    std::erase_if(names, [](const std::string& name) { return name.empty(); });
    return names;
}

void HandleValidator::splitAtCommas(const std::string& value, std::vector<std::string>& out) {
    StringTools::split(value, ',', out, std::numeric_limits<int>::max(), false);
    for (std::string& part : out) {
        StringTools::trim(part);
    }
}

bool HandleValidator::readNumber(const std::string& value, double& out) {
    scratchValue = value;
    return strToFloatValidator<double>(scratchValue, out);
}

}  // namespace Tarvik
