// Texts that are asked about, not converted: is it a date, which month is it.

#include "libraries/corelib/source/text/StringToolsCharacters.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"

#include <algorithm>
#include <array>

namespace TarvikCorelib {

namespace {

struct MonthName {
    const char* name;
    int month;
};

constexpr auto monthNames = std::to_array<MonthName>({
    {"jan", 1},
    {"feb", 2},
    {"mar", 3},
    {"apr", 4},
    {"may", 5},
    {"jun", 6},
    {"jul", 7},
    {"aug", 8},
    {"sep", 9},
    {"oct", 10},
    {"nov", 11},
    {"dec", 12},
    {"janv", 1},
    {"f\xE9vr", 2},
    {"mars", 3},
    // Quirk: the capital letter keeps it from ever being found.
    {"Avri", 4},
    {"mai", 5},
    {"juin", 6},
    {"juil", 7},
    {"ao\xFBt", 8},
    {"sept", 9},
    {"d\xE9"
     "c",
     12},
    {"gen", 1},
    {"mag", 5},
    {"giu", 6},
    {"lug", 7},
    {"ago", 8},
    {"set", 9},
    {"ott", 10},
    {"dic", 12},
});

// Quirk: the centuries are no exception here.
long long daysInMonth(long long year, long long month) {
    return month == 2 && year % 4 == 0 ? 29 : DateTimeDetails::getDaysInMonth(year, month);
}

}  // namespace

bool DateTime::isDate(std::string_view text) {
    constexpr std::string_view form = "0000-00-00";
    const auto fits = [](char c, char place) {
        return place == '-' ? c == '-' : StringTools::isDigit(c);
    };
    if (!std::equal(text.begin(), text.end(), form.begin(), form.end(), fits)) return false;

    const long long year = StringTools::toInt64(text.substr(0, 4));
    const long long month = StringTools::toInt64(text.substr(5, 2));
    const long long day = StringTools::toInt64(text.substr(8, 2));
    return year >= 1000 && day >= 1 && day <= daysInMonth(year, month);
}

int DateTime::mapMonth(std::string_view text) {
    std::string name(text);
    const auto found = MonthMap().find(StringTools::lower(name));
    return found != MonthMap().end() ? found->second : 0;
}

const std::map<std::string, int, std::less<>>& DateTime::MonthMap() {
    static const auto months = [] {
        std::map<std::string, int, std::less<>> names;
        for (const MonthName& row : monthNames)
            names.emplace(row.name, row.month);
        return names;
    }();
    return months;
}

}  // namespace TarvikCorelib
