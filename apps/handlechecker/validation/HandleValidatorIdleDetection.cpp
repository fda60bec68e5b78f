// The section `idle-detection`: when the application is idle.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"

#include <array>

namespace Tarvik {

// [threshold=number,weight=number], in the block `counters`. Its keys share the list of seen keys
// with the section, and are not checked as names of rules: only the four counters are known.
bool HandleValidator::counterRule(std::string_view value) {
    enum Parameter : std::size_t { Threshold, Weight };
    static constexpr auto names = std::to_array<std::string_view>({"threshold", "weight"});
    static constexpr RuleForm form = {.failure = messages::invalidValue,
                                      .names = ParameterNames(names)};

    const int id = mapCounterID(currentKey);
    if (id == unknownCounterID) return reportUnknownKey(CountersWord);
    checkMultipleSectionItems(idleDetectionItems, currentKey);
    if (!readParameters(form, value)) return false;

    std::string threshold;
    std::string weight;
    if (!takeParameter(form, Threshold, threshold, true)) return false;
    takeParameter(form, Weight, weight, false);

    CounterDef counter = {.id = {id}};
    if (!readNumber(threshold, counter.threshold)) return false;
    if (!readNumber(weight, counter.weight)) return false;
    counters[counter.id] = counter;
    return true;
}

}  // namespace Tarvik
