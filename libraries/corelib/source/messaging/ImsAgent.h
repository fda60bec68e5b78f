/// A part of a process to which other parts send messages.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"
#include "libraries/corelib/source/messaging/ImsMessage.h"

#include <cstdint>
#include <string>

namespace TarvikCorelib {

class Ims;
class Logger;

/// The base of all services. Derived classes override the two handlers and are known by the name of
/// their agent; what they do not override ignores its messages. An agent is an address that others
/// refer to, so it is not copied.
///
/// An agent with hooks must remove them before it dies, or a dispatch calls a dead object: a class
/// sets its hooks last in its constructor and removes them first in its destructor.
///
/// Each operation first writes a trace to the shared logger, also if it fails then: sending by
/// hooks at level flood, all others at level trace. Loggers write none, and neither do messages of
/// general type "debug", for those are log records.
///
///     class Cleaner : public ImsAgent {
///     public:
///         Cleaner() : ImsAgent("cleaner") {
///             hook = setMessageHook(false, "disk", "full", "*", HookTypeNormal);
///         }
///         ~Cleaner() override { removeMessageHook(hook); }
///
///         int hookMessage(unsigned long long /*hookId*/, const ImsMessage& message) override {
///             auto* disk = dynamic_cast<DiskParameter*>(message.parameter);
///             if (disk == nullptr) return MsgIgnored;
///             disk->freed = clean(disk->path);
///             return MsgHandled;
///         }
///
///     private:
///         unsigned long long hook;
///     };
class ImsAgent {
public:
    /// The result of a handler. `MsgConsumed` keeps the message from all other agents. Any other
    /// number is ignored by hooks; as the answer to a direct message it counts as handled.
    enum MessageStatus : std::int32_t { MsgIgnored = 1, MsgHandled = 2, MsgConsumed = 3 };

    /// Contains the exception of the message system.
    using Hook_Duplicate = NamedException<ImsAgent, "Hook_Duplicate">;

    /// On the default system, which is made if needed. An agent with the name "logger" is a logger;
    /// any other one holds the shared logger as long as it lives.
    explicit ImsAgent(std::string name);
    /// On another system, which must outlive the agent.
    ImsAgent(std::string name, Ims& system);
    ImsAgent(const ImsAgent&) = delete;
    ImsAgent& operator=(const ImsAgent&) = delete;
    virtual ~ImsAgent();

    /// Handles a message that was sent to this agent alone. Returns a `MessageStatus`.
    virtual int handleMessage(const ImsMessage& message);
    /// Handles a message that matched a hook of this agent; `hookId` says which one. Returns a
    /// `MessageStatus`.
    virtual int hookMessage(unsigned long long hookId, const ImsMessage& message);

    [[nodiscard]] const std::string& getAgentName() const { return name; }

    // --- sending; each sets the message's `source` to this agent

    /// To all agents whose hooks match. Returns whether one of them handled it.
    bool sendMessage(ImsMessage& message) const;
    /// To one agent, past all hooks. Returns whether it handled the message.
    bool sendMessage(ImsAgent& target, ImsMessage& message) const;
    /// To the gateway out of the process, which hooks the general type "ems": for a service on a
    /// host, in the name of a sender. Returns false if there is no gateway.
    ///
    /// A gateway must not queue the message, whose parameter is on the stack of this call.
    /// The message stays changed: its general type is "ems", and its parameter, which was the
    /// gateway's alone, is gone. A parameter that the message owned is destroyed.
    bool sendMessageThroughEMS(ImsMessage& message, const std::string& sender,
                               const std::string& targetService,
                               const std::string& targetHost) const;
    /// Keep a message until the message system is updated at that time or later, in milliseconds as
    /// `DateTime::getCurrentTime` counts. The message's parameter, which must be on the heap,
    /// leaves the message together with its ownership. Always true.
    bool queueMessage(ImsMessage& message, unsigned long long sendAt) const;
    bool queueMessage(ImsAgent& target, ImsMessage& message, unsigned long long sendAt) const;
    /// The same for a time from now on.
    bool queueMessageDelay(ImsMessage& message, unsigned long long milliseconds) const;
    bool queueMessageDelay(ImsAgent& target, ImsMessage& message,
                           unsigned long long milliseconds) const;

    // --- hooks; see `Ims::setMessageHook`

    /// Set a hook for this agent, on its own system or another, for messages of any agent or of
    /// one. Throws `Hook_Duplicate` if this agent has the same hook there.
    unsigned long long setMessageHook(bool onlyOnce, const std::string& generalGlob,
                                      const std::string& groupGlob, const std::string& messageGlob,
                                      HookType type);
    unsigned long long setMessageHook(Ims& system, bool onlyOnce, const std::string& generalGlob,
                                      const std::string& groupGlob, const std::string& messageGlob,
                                      HookType type);
    unsigned long long setMessageHook(ImsAgent& source, bool onlyOnce,
                                      const std::string& generalGlob, const std::string& groupGlob,
                                      const std::string& messageGlob, HookType type);
    unsigned long long setMessageHook(Ims& system, ImsAgent& source, bool onlyOnce,
                                      const std::string& generalGlob, const std::string& groupGlob,
                                      const std::string& messageGlob, HookType type);
    /// Return false if there is no such hook.
    bool removeMessageHook(unsigned long long hookId) const;
    bool removeMessageHook(Ims& system, unsigned long long hookId) const;

    /// The system that this agent is on.
    [[nodiscard]] Ims& getSystem() const { return *ims; }

private:
    [[nodiscard]] ImsAgent* address() const;
    // The shared logger if a trace of that level would reach anybody; null otherwise, so that no
    // values are gathered in vain.
    [[nodiscard]] const Logger* tracer(std::int32_t level) const;
    [[nodiscard]] const Logger* tracer(std::int32_t level, const ImsMessage& message) const;
    unsigned long long setHook(Ims& system, ImsAgent* source, bool onlyOnce,
                               const std::string& generalGlob, const std::string& groupGlob,
                               const std::string& messageGlob, HookType type);

    Ims* ims;
    std::string name;
    bool isLogger;
};

}  // namespace TarvikCorelib
