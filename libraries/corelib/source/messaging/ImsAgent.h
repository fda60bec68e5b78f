/// A part of a process that other parts reach by messages.
#pragma once

#include "libraries/corelib/source/messaging/ImsMessage.h"

#include <cstdint>
#include <string>

namespace TarvikCorelib {

class ImsAgent {
public:
    /// What a handler answers. Consumed: no other agent is to see the message.
    enum MessageStatus : std::int32_t { MsgIgnored = 1, MsgHandled = 2, MsgConsumed = 3 };

    explicit ImsAgent(std::string name);
    ImsAgent(const ImsAgent&) = delete;
    ImsAgent& operator=(const ImsAgent&) = delete;
    virtual ~ImsAgent() = default;

    /// A message sent to this agent alone. Answers a `MessageStatus`.
    virtual int handleMessage(const ImsMessage& message);
    /// A message that matched a hook of this agent. Answers a `MessageStatus`.
    virtual int hookMessage(unsigned long long hookId, const ImsMessage& message);

    [[nodiscard]] const std::string& getAgentName() const { return agentName; }

private:
    std::string agentName;
};

}  // namespace TarvikCorelib
