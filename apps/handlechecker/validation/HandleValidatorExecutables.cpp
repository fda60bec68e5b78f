// The section `executables`: which processes belong to the handle.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"

#include <array>
#include <utility>

namespace Tarvik {

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

    ExePatternDef rule;
    std::string_view type;
    std::string childOnly;
    std::string required;
    if (!takeParameter(form, Type, type, true)) return false;
    if (!takeParameter(form, Exe, rule.exe, true)) return false;
    takeParameter(form, Args, rule.args, false);
    takeParameter(form, Child, rule.child, false);
    takeParameter(form, ChildArgs, rule.childArgs, false);
    takeParameter(form, ChildOnly, childOnly, false);
    takeParameter(form, Required, required, false);

    rule.include = type == "include";
    if (!rule.include && type != "exclude") {
        return report(messages::fill(messages::invalidValueFor, {type, "type"}));
    }
    // Quirk: a bad value here is reported with the name of the rule, not of the parameter.
    if (!trueOrFalse(childOnly, rule.childOnly)) return false;
    if (!trueOrFalse(required, rule.required)) return false;
    // An empty value means the same as none.
    if (rule.args.empty()) rule.args = "*";
    if (rule.childArgs.empty()) rule.childArgs = "*";
    return storeExecutablesRule(std::move(rule));
}

// A repeated key replaces the earlier rule, but the names and the line of that one remain.
bool HandleValidator::storeExecutablesRule(ExePatternDef rule) {
    // The end is tried first: programs that write handles number their rules in ascending order.
    const ExePatternDef& stored =
        exePatterns.insert_or_assign(exePatterns.end(), currentKey, std::move(rule))->second;
    // Quirk: the rule is stored even so, but its line is not listed as that of a good rule.
    if (stored.exe.empty()) return report(messages::fill(messages::blankExe, {currentKey}));
    if (stored.required) {
        requiredExes.insert(stored.exe);
        if (!stored.child.empty()) requiredExes.insert(stored.child);
    }
    ruleLines.push_back(static_cast<std::int32_t>(lineNumber));
    return true;
}

}  // namespace Tarvik
