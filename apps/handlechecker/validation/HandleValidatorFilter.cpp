// The section `filter`: for whom, and when, the handle is in force.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"

#include <array>
#include <utility>

namespace Tarvik {

// One reader a parameter: false, with a report, for a value that spoils the whole rule.
struct HandleValidator::FilterParameters {
    struct Row {
        std::string_view name;
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

    static constexpr auto Rows = std::to_array<Row>({
        {"type", readType},
        {"os", addText<&FilterDef::os>},
        {"n-os", addText<&FilterDef::notOs>},
        {"host", addText<&FilterDef::host>},
        {"n-host", addText<&FilterDef::notHost>},
        {"user", addText<&FilterDef::user>},
        {"n-user", addText<&FilterDef::notUser>},
        {"wday", addWeekDay<&FilterDef::wday>},
        {"n-wday", addWeekDay<&FilterDef::notWday>},
        {"date", addRange<&FilterDef::date, &HandleValidator::getDateRange>},
        {"n-date", addRange<&FilterDef::notDate, &HandleValidator::getDateRange>},
        {"time", addRange<&FilterDef::time, &HandleValidator::getTimeRange>},
        {"n-time", addRange<&FilterDef::notTime, &HandleValidator::getTimeRange>},
        {"count", readLimit<&FilterDef::countHigh>},
        {"licenses", readLimit<&FilterDef::licenseUseHigh>},
    });

    static bool read(HandleValidator& self, const RuleExpression::Parameter& parameter,
                     FilterDef& rule) {
        const auto& [name, value] = parameter;
        for (const Row& row : Rows) {
            if (row.name == name) return row.read(self, value, rule);
        }
        return self.report(messages::fill(messages::parameterNotSupported, {name}));
    }
};

bool HandleValidator::filterRule(std::string& value) {
    // Quirk: "licenses-use%" is allowed, but has no reader: it is reported all the same.
    static constexpr auto parameters = std::to_array<std::string_view>(
        {"type", "os", "n-os", "host", "n-host", "user", "n-user", "wday", "n-wday", "date",
         "n-date", "time", "n-time", "count", "licenses-use%", "licenses"});
    // The one section that says "element" of an expression.
    static constexpr RuleForm form = {
        .failure = messages::invalidElement, .allowed = parameters, .lists = true};
    if (!readParameters(form, value)) return false;

    FilterDef rule;
    // In the order of the names: that decides which of several faults is reported.
    for (const auto& parameter : expression.parameters()) {
        if (!FilterParameters::read(*this, parameter, rule)) return false;
    }
    // The end is tried first: programs that write handles number their rules in ascending order.
    filters.insert_or_assign(filters.end(), currentKey, std::move(rule));
    return true;
}

}  // namespace Tarvik
