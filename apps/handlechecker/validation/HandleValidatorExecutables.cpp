// The section `executables`: which processes belong to the handle.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"

#include <array>

namespace Tarvik {

namespace {

// An empty value means the same as none.
std::string_view patternOf(std::string_view value) {
    return value.empty() ? "*" : value;
}

}  // namespace

// [type=include|exclude,exe=pattern,...]: type and exe are required. The order of the checks
// decides which fault is reported, since the first one of `type`, `exe` and the booleans ends the
// rule.
bool HandleValidator::executablesRule(std::string_view value) {
    enum Parameter : std::size_t { Type, Exe, Args, Child, ChildArgs, ChildOnly, Required };
    static constexpr auto names = std::to_array<std::string_view>(
        {"type", "exe", "args", "child", "child-args", "child-only", "required"});
    static constexpr RuleForm form = {.failure = messages::invalidValue,
                                      .names = ParameterNames(names)};
    if (!readParameters(form, value)) return false;

    std::string_view type;
    std::string_view exe;
    if (!takeParameter(form, Type, type, true)) return false;
    if (!takeParameter(form, Exe, exe, true)) return false;
    const bool include = type == "include";
    if (!include && type != "exclude") {
        return report(messages::fill(messages::invalidValueFor, {type, "type"}));
    }
    // Quirk: a bad value here is reported with the name of the rule, not of the parameter.
    bool childOnly = false;
    bool required = false;
    if (!readFlag(expression.textOf(ChildOnly), childOnly)) return false;
    if (!readFlag(expression.textOf(Required), required)) return false;

    // A repeated key replaces the earlier rule, but the names and the line of that one remain. The
    // end is tried first: programs that write handles number their rules in ascending order.
    ExePatternDef& rule = exePatterns.try_emplace(exePatterns.end(), currentKey)->second;
    rule.include = include;
    rule.exe = exe;
    rule.args = patternOf(expression.textOf(Args));
    rule.child = expression.textOf(Child);
    rule.childArgs = patternOf(expression.textOf(ChildArgs));
    rule.childOnly = childOnly;
    rule.required = required;
    return noteExecutablesRule(rule);
}

bool HandleValidator::noteExecutablesRule(const ExePatternDef& rule) {
    // Quirk: the rule is stored even so, but its line is not listed as that of a good rule.
    if (rule.exe.empty()) return report(messages::fill(messages::blankExe, {currentKey}));
    if (rule.required) {
        requiredExes.insert(rule.exe);
        if (!rule.child.empty()) requiredExes.insert(rule.child);
    }
    ruleLines.push_back(static_cast<std::int32_t>(lineNumber));
    return true;
}

}  // namespace Tarvik
