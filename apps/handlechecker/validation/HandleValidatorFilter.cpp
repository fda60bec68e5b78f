// The section `filter`: for whom, and when, the handle is in force.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Tarvik {

// One reader a parameter: false, with a report, for a value that spoils the whole rule.
struct HandleValidator::FilterParameters {
    struct Row {
        std::string_view name;
        bool isList;
        bool (*read)(HandleValidator& self, std::string_view value, FilterDef& rule);
    };

    static bool readType(HandleValidator& self, std::string_view value, FilterDef& rule) {
        if (value != "include" && value != "exclude") {
            return self.report(messages::fill(messages::unknownFilterType, {value}));
        }
        rule.type = value == "exclude" ? 1 : 0;
        return true;
    }

    template <auto List>
    static bool addText(HandleValidator& /*self*/, std::string_view value, FilterDef& rule) {
        (rule.*List).emplace_back(value);
        return true;
    }

    template <auto List>
    static bool addWeekDay(HandleValidator& self, std::string_view value, FilterDef& rule) {
        const int code = mapWeekDay(std::string(value));
        if (code == UnknownWeekDay) {
            return self.report(messages::fill(messages::illegalWeekDay, {value}));
        }
        (rule.*List).push_back({code});
        return true;
    }

    template <auto List, auto Reader>
    static bool addRange(HandleValidator& self, std::string_view value, FilterDef& rule) {
        RangeDef range;
        if (!(self.*Reader)(std::string(value), range)) {
            return self.report(messages::fill(messages::illegalDateRange, {value}));
        }
        (rule.*List).push_back(range);
        return true;
    }

    // Quirk: "5-" looks like "at least five" and is refused for its dash, so no lower limit can be
    // set.
    // Quirk: a bad number is reported, but the rule is kept.
    template <auto Limit>
    static bool readLimit(HandleValidator& self, std::string_view value, FilterDef& rule) {
        self.strToIntValidator(std::string(value), rule.*Limit);
        return true;
    }

    // Quirk: allowed, but not read: it is reported all the same.
    static bool refuse(HandleValidator& self, std::string_view /*value*/, FilterDef& /*rule*/) {
        return self.report(messages::fill(messages::parameterNotSupported, {"licenses-use%"}));
    }

    // In byte order of the names: that decides which of several faults is reported.
    static constexpr auto Rows = std::to_array<Row>({
        {"count", false, readLimit<&FilterDef::countHigh>},
        {"date", true, addRange<&FilterDef::date, &HandleValidator::getDateRange>},
        {"host", true, addText<&FilterDef::host>},
        {"licenses", false, readLimit<&FilterDef::licenseUseHigh>},
        {"licenses-use%", false, refuse},
        {"n-date", true, addRange<&FilterDef::notDate, &HandleValidator::getDateRange>},
        {"n-host", true, addText<&FilterDef::notHost>},
        {"n-os", true, addText<&FilterDef::notOs>},
        {"n-time", true, addRange<&FilterDef::notTime, &HandleValidator::getTimeRange>},
        {"n-user", true, addText<&FilterDef::notUser>},
        {"n-wday", true, addWeekDay<&FilterDef::notWday>},
        {"os", true, addText<&FilterDef::os>},
        {"time", true, addRange<&FilterDef::time, &HandleValidator::getTimeRange>},
        {"type", false, readType},
        {"user", true, addText<&FilterDef::user>},
        {"wday", true, addWeekDay<&FilterDef::wday>},
    });

    static constexpr auto Names = [] {
        std::array<std::string_view, Rows.size()> names{};
        std::transform(Rows.begin(), Rows.end(), names.begin(),
                       [](const Row& row) { return row.name; });
        return names;
    }();
    static_assert(std::is_sorted(Names.begin(), Names.end()));

    static constexpr ParameterNames::Set Lists = [] {
        ParameterNames::Set lists = 0;
        for (std::size_t number = 0; number < Rows.size(); ++number) {
            if (Rows[number].isList) lists |= ParameterNames::Set{1} << number;
        }
        return lists;
    }();

    // The one section that says "element" of an expression.
    static constexpr RuleForm Form = {
        .failure = messages::invalidElement, .names = ParameterNames(Names), .mayRepeat = Lists};
};

bool HandleValidator::isListParameter(std::string_view name) {
    return (FilterParameters::Lists >> FilterParameters::Form.names.numberOf(name) & 1U) != 0;
}

bool HandleValidator::filterRule(std::string_view value) {
    if (!readParameters(FilterParameters::Form, value)) return false;

    FilterDef rule;
    for (std::size_t number = 0; number < FilterParameters::Rows.size(); ++number) {
        const auto read = [&](std::string_view text) {
            return FilterParameters::Rows[number].read(*this, text, rule);
        };
        if (!expression.readEach(number, read)) return false;
    }
    // The end is tried first: programs that write handles number their rules in ascending order.
    filters.insert_or_assign(filters.end(), currentKey, std::move(rule));
    return true;
}

}  // namespace Tarvik
