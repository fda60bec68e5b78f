// The section `cpu-overuse`: what is done to a program that takes too much of the processor.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"

#include <array>

namespace Tarvik {

bool HandleValidator::parseCPUOveruse(std::string& line) {
    static constexpr auto keys = std::to_array<PlainKey>({
        {"threshold", &HandleData::cpuThreshold},
        {"timeout", &HandleData::cpuTimeout},
        {"action", &HandleValidator::readCpuAction},
        {"notify-timeout", &HandleData::cpuNotifyTimeout},
    });

    if (!divideKeyLine(line)) return false;
    if (state != InSection) return true;
    // This key is known only behind the action that notifies. On purpose.
    if (currentKey == "notify-timeout" && cpuAction != NotifyAndTerminate) {
        return reportUnknownKey("cpu-overuse");
    }
    const PlainKey* const key = findKey(keys);
    return key != nullptr ? readPlainKey(*key, cpuOveruseItems, line)
                          : reportUnknownKey("cpu-overuse");
}

bool HandleValidator::readCpuAction(std::string& value) {
    if (value == "terminate") {
        cpuAction = Terminate;
    } else if (value == "terminate-notify") {
        cpuAction = NotifyAndTerminate;
    } else {
        return report(messages::fill(messages::invalidAction, {value}));
    }
    return true;
}

}  // namespace Tarvik
