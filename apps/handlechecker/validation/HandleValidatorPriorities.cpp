// The section `priorities`: who comes first.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"

#include <array>
#include <string>

namespace Tarvik {

// [host=text,user=text,group=text,priority=word], all optional. A repeated key is reported, and
// adds a second record.
bool HandleValidator::prioritiesRule(std::string_view value) {
    enum Parameter : std::size_t { Host, User, Group, Priority };
    static constexpr auto names =
        std::to_array<std::string_view>({"host", "user", "group", "priority"});
    static constexpr RuleForm form = {.failure = messages::invalidValue,
                                      .names = ParameterNames(names)};
    if (!readParameters(form, value)) return false;

    const std::string word(expression.textOf(Priority));
    const int priority = mapPriority(word);
    if (priority == UnknownPriority && !word.empty()) {
        return report(messages::fill(messages::invalidPriority, {word}));
    }
    PriorityDef& rule = priorities.emplace_back();
    rule.name = currentKey;
    // Quirk: an empty value empties its field; it does not fall back to "*".
    takeParameter(form, Host, rule.host, false);
    takeParameter(form, User, rule.user, false);
    takeParameter(form, Group, rule.group, false);
    if (!word.empty()) rule.priority = priority;
    return true;
}

}  // namespace Tarvik
