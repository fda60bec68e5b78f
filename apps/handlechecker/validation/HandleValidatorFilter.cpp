// The section `filter`: for whom and when the handle holds.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Tarvik {

bool HandleValidator::filterRule(std::string& value) {
    // "licenses-use%" passes here and has no reader below: refused all the same. On purpose.
    static constexpr auto parameters = std::to_array<std::string_view>(
        {"type", "os", "n-os", "host", "n-host", "user", "n-user", "wday", "n-wday", "date",
         "n-date", "time", "n-time", "count", "licenses-use%", "licenses"});
    // The one section that says "element" of an expression.
    static constexpr RuleForm form = {
        .failure = messages::invalidElement, .allowed = parameters, .lists = true};
    if (!readParameters(form, value)) return false;

    FilterDef rule;
    // In the order of the names: that decides which of several faults is told.
    for (const auto& [name, text] : expression.parameters()) {
        if (!readFilterParameter(name, text, rule)) return false;
    }
    filters.insert_or_assign(currentKey, std::move(rule));
    return true;
}

bool HandleValidator::readFilterParameter(std::string_view name, std::string_view value,
                                          FilterDef& rule) {
    struct Parameter {
        std::string_view name;
        bool (HandleValidator::*read)(std::string_view value, FilterDef& rule);
    };
    using Self = HandleValidator;
    static constexpr auto parameters = std::to_array<Parameter>({
        {"type", &Self::readFilterType},
        {"os", &Self::addText<&FilterDef::os>},
        {"n-os", &Self::addText<&FilterDef::notOs>},
        {"host", &Self::addText<&FilterDef::host>},
        {"n-host", &Self::addText<&FilterDef::notHost>},
        {"user", &Self::addText<&FilterDef::user>},
        {"n-user", &Self::addText<&FilterDef::notUser>},
        {"wday", &Self::addWeekDay<&FilterDef::wday>},
        {"n-wday", &Self::addWeekDay<&FilterDef::notWday>},
        {"date", &Self::addRange<&FilterDef::date, &Self::getDateRange>},
        {"n-date", &Self::addRange<&FilterDef::notDate, &Self::getDateRange>},
        {"time", &Self::addRange<&FilterDef::time, &Self::getTimeRange>},
        {"n-time", &Self::addRange<&FilterDef::notTime, &Self::getTimeRange>},
        {"count", &Self::readLimit<&FilterDef::countHigh>},
        {"licenses", &Self::readLimit<&FilterDef::licenseUseHigh>},
    });

    const auto* const known =
        std::find_if(parameters.begin(), parameters.end(),
                     [name](const Parameter& row) { return row.name == name; });
    if (known != parameters.end()) return (this->*known->read)(value, rule);
    return report(messages::fill(messages::parameterNotSupported, {name}));
}

bool HandleValidator::readFilterType(std::string_view value, FilterDef& rule) {
    if (value != "include" && value != "exclude") {
        return report(messages::fill(messages::unknownFilterType, {value}));
    }
    rule.type = value == "exclude" ? 1 : 0;
    return true;
}

template <auto List>
bool HandleValidator::addText(std::string_view value, FilterDef& rule) {
    (rule.*List).emplace_back(value);
    return true;
}

template <auto List>
bool HandleValidator::addWeekDay(std::string_view value, FilterDef& rule) {
    const int code = mapWeekDay(std::string(value));
    if (code == UnknownWeekDay) return report(messages::fill(messages::illegalWeekDay, {value}));
    (rule.*List).push_back({code});
    return true;
}

template <auto List, auto Reader>
bool HandleValidator::addRange(std::string_view value, FilterDef& rule) {
    RangeDef range;
    if (!(this->*Reader)(std::string(value), range)) {
        return report(messages::fill(messages::illegalDateRange, {value}));
    }
    (rule.*List).push_back(range);
    return true;
}

// "5-", which would mean at least five, is refused for its dash: only the upper limits can be set.
// A bad number is reported and the rule goes on. On purpose, both.
template <auto Limit>
bool HandleValidator::readLimit(std::string_view value, FilterDef& rule) {
    strToIntValidator(std::string(value), rule.*Limit);
    return true;
}

}  // namespace Tarvik
