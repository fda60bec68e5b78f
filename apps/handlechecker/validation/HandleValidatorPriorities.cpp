// The section `priorities`: who comes first.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"

#include <array>
#include <utility>

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

    PriorityDef rule;
    rule.name = currentKey;
    std::string word;
    // Quirk: an empty value empties its field; it does not fall back to "*".
    takeParameter(form, Host, rule.host, false);
    takeParameter(form, User, rule.user, false);
    takeParameter(form, Group, rule.group, false);
    takeParameter(form, Priority, word, false);

    if (!word.empty()) {
        rule.priority = mapPriority(word);
        if (rule.priority == UnknownPriority) {
            return report(messages::fill(messages::invalidPriority, {word}));
        }
    }
    priorities.push_back(std::move(rule));
    return true;
}

}  // namespace Tarvik
