// The section `idle-detection`: when the application counts as idle.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"

#include <array>

namespace Tarvik {

bool HandleValidator::parseIdleDetection(std::string& line) {
    static constexpr auto keys = std::to_array<PlainKey>({
        {"idle-threshold", &HandleData::idleThreshold},
    });

    if (line == "counters") {
        // A head inside the block counts too, and leads the line machine past its last state; a
        // second block is no repetition, but its keys are. On purpose, both.
        ++state;
        return true;
    }
    if (!divideKeyLine(line)) return false;
    if (state == InSubsection) return counterRule(line);
    if (state != InSection) return true;
    const PlainKey* const key = findKey(keys);
    return key != nullptr ? readPlainKey(*key, idleDetectionItems, line)
                          : reportUnknownKey("idle-detection");
}

bool HandleValidator::counterRule(std::string& value) {
    static constexpr auto parameters = std::to_array<std::string_view>({"threshold", "weight"});
    static constexpr RuleForm form = {
        .section = {}, .failure = messages::invalidValue, .allowed = parameters};

    const int id = mapCounterID(currentKey);
    if (id == unknownCounterID) return reportUnknownKey("counters");
    checkMultipleSectionItems(idleDetectionItems, currentKey);
    if (!readParameters(form, value)) return false;

    std::string threshold;
    std::string weight;
    if (!takeParameter("threshold", threshold, true)) return false;
    takeParameter("weight", weight, false);

    CounterDef counter = {.id = {id}};
    if (!readNumber(threshold, counter.threshold)) return false;
    if (!readNumber(weight, counter.weight)) return false;
    counters[counter.id] = counter;
    return true;
}

}  // namespace Tarvik
