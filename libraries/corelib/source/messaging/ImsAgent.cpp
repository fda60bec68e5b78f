#include "libraries/corelib/source/messaging/ImsAgent.h"

#include <utility>

namespace TarvikCorelib {

ImsAgent::ImsAgent(std::string name) : agentName(std::move(name)) {}

int ImsAgent::handleMessage(const ImsMessage& /*message*/) {
    return MsgIgnored;
}

int ImsAgent::hookMessage(unsigned long long /*hookId*/, const ImsMessage& /*message*/) {
    return MsgIgnored;
}

}  // namespace TarvikCorelib
