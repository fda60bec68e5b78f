/// A message between the parts of a process.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace TarvikCorelib {

class ImsAgent;

/// What a message carries. Each kind of message has a class of its own, by which the receiver knows
/// its parameter and into which it writes its answer.
///
/// The examples of `ImsAgent` and `Ims` use this one:
///
///     class DiskParameter : public ImsMessageParameter {
///     public:
///         std::string path;              // From the sender.
///         unsigned long long freed = 0;  // The answer.
///     };
class ImsMessageParameter {
public:
    ImsMessageParameter() = default;
    ImsMessageParameter(const ImsMessageParameter&) = default;
    ImsMessageParameter& operator=(const ImsMessageParameter&) = default;
    virtual ~ImsMessageParameter() = default;

    /// For a gateway out of the process; nothing here sets it.
    std::uint64_t transferWord = 0;
};

/// Three words classify a message, from the most general to the most specific, so that an agent can
/// select messages by any of them.
///
/// A message serves also as the pattern of a hook: the words are globs then, an empty one accepting
/// any word, and `source` is the only sender that is accepted, null for any.
struct ImsMessage {
    ImsMessage() = default;
    ImsMessage(std::string generalType, std::string groupType, std::string messageType,
               ImsMessageParameter* parameter = nullptr)
        : generalType(std::move(generalType)),
          groupType(std::move(groupType)),
          messageType(std::move(messageType)),
          parameter(parameter) {}
    /// A copy refers to the same parameter and never owns it.
    ImsMessage(const ImsMessage& other);
    ImsMessage& operator=(const ImsMessage& other);
    ~ImsMessage();

    /// -1, 0 or 1 by the three words in turn, byte by byte.
    [[nodiscard]] int compare(const ImsMessage& other) const;
    /// The three words for a log, one a line.
    [[nodiscard]] std::string getLogString() const;
    /// Forgets the parameter, and destroys it if the message owns it.
    void releaseParameter();

    std::string generalType;
    std::string groupType;
    std::string messageType;
    /// May be null. Belongs to the sender, and lives on its stack in most cases. It is `mutable`
    /// together with the flag, because queueing takes both out of a message.
    mutable ImsMessageParameter* parameter = nullptr;
    /// The message destroys its parameter, which must be on the heap then.
    mutable bool deleteParameter = false;
    /// The agent that sent it; every send operation of an agent sets it.
    ImsAgent* source = nullptr;
};

/// The parameter of a message that is to leave the process.
class EmsMessageParameter : public ImsMessageParameter {
public:
    std::string originalGeneralType;
    std::string targetService;
    std::string targetHost;
    std::string sender;
    std::uint64_t innerWord = 0;  ///< The `transferWord` of the parameter that was there, or 0.
};

/// The order in which hooks get a message; any other value is the last.
enum HookType : std::int32_t { HookTypeFirst = 0, HookTypeNormal = 1, HookTypeLast = 2 };

}  // namespace TarvikCorelib
