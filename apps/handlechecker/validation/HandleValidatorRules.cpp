// What all sections share: key lines, plain keys, rules and their expressions.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"
#include "shared/library/common/StringTools.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <utility>

namespace Tarvik {

namespace {

bool isListed(std::string_view word, std::span<const std::string_view> list) {
    return std::find(list.begin(), list.end(), word) != list.end();
}

// `Params` is the multimap of a caller or the list of an expression; both are in the order of the
// names. An empty list takes no memory, so a rule without a fault pays nothing.
template <typename Params>
std::vector<std::string_view> unknownNames(const Params& params,
                                           std::span<const std::string_view> allowed) {
    std::vector<std::string_view> unknown;
    for (const auto& [name, value] : params) {
        if (!isListed(name, allowed)) unknown.push_back(name);
    }
    return unknown;
}

// Each name that is repeated, once. Equal names are neighbours.
template <typename Params>
std::vector<std::string_view> repeatedNames(const Params& params) {
    std::vector<std::string_view> repeated;
    for (auto param = params.begin(); param != params.end();) {
        const std::string_view name = param->first;
        const auto start = param++;
        while (param != params.end() && param->first == name) {
            ++param;
        }
        if (std::next(start) != param) repeated.push_back(name);
    }
    return repeated;
}

}  // namespace

constinit NameSet HandleValidator::RuleNums;

// NOLINTNEXTLINE(performance-unnecessary-value-param): a settled signature.
bool HandleValidator::parseValue(std::string value, RuleParameters& out) {
    const bool good = readExpression(value);
    expression.sortByName();
    out.clear();
    for (const auto& [name, text] : expression.parameters()) {
        out.emplace_hint(out.end(), name, text);
    }
    return good;
}

bool HandleValidator::readExpression(std::string_view text) {
    const bool good = expression.read(text);
    if (expression.lacksOpeningBracket()) {
        report(messages::fill(messages::openingBracketMissing, {text}));
    }
    if (expression.lacksClosingBracket()) {
        report(messages::fill(messages::closingBracketMissing, {text}));
    }
    reportEach(messages::invalidExpression, expression.namesWithoutValue());
    return good;
}

bool HandleValidator::getValueElement(const RuleParameters& params, const std::string& name,
                                      std::string& out, bool required) {
    const auto first = params.lower_bound(name);
    if (first == params.end() || first->first != name) return reportIfRequired(name, required);
    out = first->second;
    return true;
}

template <typename Text>
bool HandleValidator::takeParameter(const RuleForm& form, std::size_t number, Text& out,
                                    bool required) {
    const std::string_view* const value = expression.valueOf(number);
    if (value == nullptr) return !required || reportIfRequired(form.names[number], required);
    out = *value;
    return true;
}

template bool HandleValidator::takeParameter(const RuleForm&, std::size_t, std::string&, bool);
template bool HandleValidator::takeParameter(const RuleForm&, std::size_t, std::string_view&, bool);

bool HandleValidator::reportIfRequired(std::string_view name, bool required) {
    return !required || report(messages::fill(messages::parameterRequired, {name, currentKey}));
}

bool HandleValidator::validateRuleParameters(RuleParameters& params, std::string& allowed) {
    std::vector<std::string> words;
    StringTools::split(allowed, ',', words, std::numeric_limits<int>::max(), false);
    const std::vector<std::string_view> names(words.begin(), words.end());
    return reportEach(messages::parameterNotSupported, unknownNames(params, names));
}

bool HandleValidator::checkDoubleDeclaration(RuleParameters& params, std::string& /*allowed*/,
                                             bool multiAllowed) {
    return reportRepeated(repeatedNames(params), multiAllowed);
}

bool HandleValidator::reportEach(const TarvikTables::MessageText<1>& message,
                                 const std::vector<std::string_view>& names) {
    for (const std::string_view name : names) {
        report(messages::fill(message, {name}));
    }
    return names.empty();
}

bool HandleValidator::reportRepeated(std::vector<std::string_view> names, bool listsAllowed) {
    if (listsAllowed) std::erase_if(names, isListParameter);
    return reportEach(messages::multipleDefinition, names);
}

bool HandleValidator::checkInvalidRule(std::string& key) {
    const bool good =
        !key.empty() && key.find('.') == std::string::npos && key.find(' ') == std::string::npos;
    return good || report(messages::fill(messages::invalidRuleName, {key}));
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): a settled signature.
void HandleValidator::checkSimilarRules(std::string section, std::string& key) {
    noteRuleKey(section, key);
}

void HandleValidator::noteRuleKey(std::string_view section, std::string_view key) {
    if (section != lastRuleSection) {
        RuleNums.clear();
        lastRuleSection = section;
    }
    if (!RuleNums.insert(key)) report(messages::fill(messages::multipleDefinition, {key}));
}

void HandleValidator::checkMultipleSectionItems(std::vector<std::string>& seen, std::string& key) {
    // At most as many as a section has plain keys.
    if (std::find(seen.begin(), seen.end(), key) == seen.end()) {
        seen.push_back(key);
        return;
    }
    report(messages::fill(messages::multipleDefinition, {key}));
}

bool HandleValidator::readParameters(const RuleForm& form, std::string_view value) {
    if (!readExpression(value)) return report(messages::fill(form.failure, {value}));
    if (expression.number(form.names, form.mayRepeat)) return true;
    // Faults are reported in the order of the names.
    expression.sortByName();
    const auto& params = expression.parameters();
    return reportEach(messages::parameterNotSupported, unknownNames(params, form.names.all())) &&
           reportRepeated(repeatedNames(params), form.mayRepeat != 0);
}

bool HandleValidator::report(std::string message) {
    addToErrorList(std::move(message), lineNumber);
    return false;
}

}  // namespace Tarvik
