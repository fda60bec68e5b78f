/// A part of a process to which other parts send messages.
#pragma once

#include "libraries/corelib/source/messaging/ImsMessage.h"

#include <cstdint>
#include <string>

namespace TarvikCorelib {

/// The base of all services. Derived classes override the two handlers and are known by the name of
/// their agent; what they do not override ignores its messages. An agent is an address that others
/// refer to, so it is not copied.
class ImsAgent {
public:
    /// The result of a handler. `MsgConsumed` keeps the message from all other agents.
    enum MessageStatus : std::int32_t { MsgIgnored = 1, MsgHandled = 2, MsgConsumed = 3 };

    explicit ImsAgent(std::string name);
    ImsAgent(const ImsAgent&) = delete;
    ImsAgent& operator=(const ImsAgent&) = delete;
    virtual ~ImsAgent() = default;

    /// Handles a message that was sent to this agent alone. Returns a `MessageStatus`.
    virtual int handleMessage(const ImsMessage& message);
    /// Handles a message that matched a hook of this agent; `hookId` says which one. Returns a
    /// `MessageStatus`.
    virtual int hookMessage(unsigned long long hookId, const ImsMessage& message);

    [[nodiscard]] const std::string& getAgentName() const { return agentName; }

private:
    std::string agentName;
};

}  // namespace TarvikCorelib
