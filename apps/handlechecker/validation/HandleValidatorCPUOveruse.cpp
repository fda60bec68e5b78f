// The section `cpu-overuse`: what is done to a program that takes too much of the processor.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"

#include <cstdint>

namespace Tarvik {

namespace {

// 0: no action.
enum CpuAction : std::int32_t { Terminate = 1, NotifyAndTerminate = 2 };

}  // namespace

// Whether "notify-timeout" is a known key at this line.
bool HandleValidator::isCpuNotified() const {
    return cpuAction == NotifyAndTerminate;
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
