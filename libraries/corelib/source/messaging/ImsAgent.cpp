#include "libraries/corelib/source/messaging/ImsAgent.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/messaging/Ims.h"
#include "libraries/corelib/source/messaging/Logger.h"
#include "libraries/corelib/source/messaging/MessagingMessages.h"
#include "libraries/corelib/source/messaging/SharedLogger.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace TarvikCorelib {

namespace {

constexpr std::string_view loggerName = "logger";
// Log records, which must not be logged themselves.
constexpr std::string_view recordType = "debug";

template <std::size_t Holes, class... Values>
void write(const Logger& log, Logger::Level level, const Template<Holes>& text,
           const Values&... values) {
    log.log(level, text.view(), valuesFor(text, values...));
}

// Stops at the largest time.
TimeType timeIn(unsigned long long milliseconds) {
    const TimeType now = DateTime::getCurrentTime();
    return now + std::min(milliseconds, DateTime::getMaxTime() - now);
}

std::string shownTime(unsigned long long time) {
    return DateTimeDetails(time).getString(true, false, false);
}

// Takes the parameter out of a message again, also if a handler throws.
class ParameterLoan {
public:
    ParameterLoan(const ImsMessage& message, ImsMessageParameter& lent) : message(message) {
        message.parameter = &lent;
    }
    ParameterLoan(const ParameterLoan&) = delete;
    ParameterLoan& operator=(const ParameterLoan&) = delete;
    ~ParameterLoan() { message.parameter = nullptr; }

private:
    const ImsMessage& message;
};

}  // namespace

ImsAgent::ImsAgent(std::string name) : ImsAgent(std::move(name), Ims::getDefaultMessageSystem()) {}

ImsAgent::ImsAgent(std::string name, Ims& system)
    : ims(&system), name(std::move(name)), isLogger(this->name == loggerName) {
    if (!isLogger) createLogger();
}

ImsAgent::~ImsAgent() {
    if (!isLogger) destroyLogger();
}

int ImsAgent::handleMessage(const ImsMessage& /*message*/) {
    return MsgIgnored;
}

int ImsAgent::hookMessage(unsigned long long /*hookId*/, const ImsMessage& /*message*/) {
    return MsgIgnored;
}

// Sending changes nothing in an agent. The receiver may well change it, if it answers with a
// message.
ImsAgent* ImsAgent::address() const {
    return const_cast<ImsAgent*>(this);
}

const Logger* ImsAgent::tracer(std::int32_t level) const {
    const Logger* const log = Log;
    return !isLogger && log != nullptr && log->isHeard(level) ? log : nullptr;
}

const Logger* ImsAgent::tracer(std::int32_t level, const ImsMessage& message) const {
    return message.generalType != recordType ? tracer(level) : nullptr;
}

bool ImsAgent::sendMessage(ImsMessage& message) const {
    if (const Logger* const log = tracer(Logger::Flood, message))
        write(*log, Logger::Flood, messages::send, message.getLogString());
    message.source = address();
    return ims->send(message);
}

bool ImsAgent::sendMessage(ImsAgent& target, ImsMessage& message) const {
    if (const Logger* const log = tracer(Logger::Trace, message))
        write(*log, Logger::Trace, messages::sendTo, target.name, message.getLogString());
    message.source = address();
    return target.handleMessage(message) != MsgIgnored;
}

bool ImsAgent::sendMessageThroughEMS(ImsMessage& message, const std::string& sender,
                                     const std::string& targetService,
                                     const std::string& targetHost) const {
    if (const Logger* const log = tracer(Logger::Trace, message))
        write(*log, Logger::Trace, messages::sendThroughEms, targetService, targetHost, sender,
              message.getLogString());
    EmsMessageParameter outer;
    outer.originalGeneralType = message.generalType;
    outer.targetService = targetService;
    outer.targetHost = targetHost;
    outer.sender = sender;
    if (message.parameter != nullptr) outer.innerWord = message.parameter->transferWord;

    const bool owned = std::exchange(message.deleteParameter, false);
    const std::unique_ptr<ImsMessageParameter> inner(owned ? message.parameter : nullptr);
    message.generalType = "ems";
    message.source = address();
    const ParameterLoan loan(message, outer);
    return ims->send(message);
}

bool ImsAgent::queueMessage(ImsMessage& message, unsigned long long sendAt) const {
    if (const Logger* const log = tracer(Logger::Trace, message))
        write(*log, Logger::Trace, messages::queueAt, shownTime(sendAt), message.getLogString());
    message.source = address();
    return ims->queue(message, sendAt);
}

bool ImsAgent::queueMessage(ImsAgent& target, ImsMessage& message,
                            unsigned long long sendAt) const {
    if (const Logger* const log = tracer(Logger::Trace, message))
        write(*log, Logger::Trace, messages::queueAtTo, target.name, shownTime(sendAt),
              message.getLogString());
    message.source = address();
    return ims->queue(target, message, sendAt);
}

bool ImsAgent::queueMessageDelay(ImsMessage& message, unsigned long long milliseconds) const {
    if (const Logger* const log = tracer(Logger::Trace, message))
        write(*log, Logger::Trace, messages::queueDelay, milliseconds, message.getLogString());
    message.source = address();
    return ims->queue(message, timeIn(milliseconds));
}

bool ImsAgent::queueMessageDelay(ImsAgent& target, ImsMessage& message,
                                 unsigned long long milliseconds) const {
    if (const Logger* const log = tracer(Logger::Trace, message))
        write(*log, Logger::Trace, messages::queueDelayTo, target.name, milliseconds,
              message.getLogString());
    message.source = address();
    return ims->queue(target, message, timeIn(milliseconds));
}

unsigned long long ImsAgent::setMessageHook(bool onlyOnce, const std::string& generalGlob,
                                            const std::string& groupGlob,
                                            const std::string& messageGlob, HookType type) {
    if (const Logger* const log = tracer(Logger::Trace))
        write(*log, Logger::Trace, messages::setHook, onlyOnce, generalGlob, groupGlob,
              messageGlob);
    return setHook(*ims, nullptr, onlyOnce, generalGlob, groupGlob, messageGlob, type);
}

unsigned long long ImsAgent::setMessageHook(Ims& system, bool onlyOnce,
                                            const std::string& generalGlob,
                                            const std::string& groupGlob,
                                            const std::string& messageGlob, HookType type) {
    if (const Logger* const log = tracer(Logger::Trace))
        write(*log, Logger::Trace, messages::setHookOn, onlyOnce, generalGlob, groupGlob,
              messageGlob);
    return setHook(system, nullptr, onlyOnce, generalGlob, groupGlob, messageGlob, type);
}

unsigned long long ImsAgent::setMessageHook(ImsAgent& source, bool onlyOnce,
                                            const std::string& generalGlob,
                                            const std::string& groupGlob,
                                            const std::string& messageGlob, HookType type) {
    if (const Logger* const log = tracer(Logger::Trace))
        write(*log, Logger::Trace, messages::setHookFrom, source.name, onlyOnce, generalGlob,
              groupGlob, messageGlob);
    return setHook(*ims, &source, onlyOnce, generalGlob, groupGlob, messageGlob, type);
}

unsigned long long ImsAgent::setMessageHook(Ims& system, ImsAgent& source, bool onlyOnce,
                                            const std::string& generalGlob,
                                            const std::string& groupGlob,
                                            const std::string& messageGlob, HookType type) {
    if (const Logger* const log = tracer(Logger::Trace))
        write(*log, Logger::Trace, messages::setHookOnFrom, source.name, onlyOnce, generalGlob,
              groupGlob, messageGlob);
    return setHook(system, &source, onlyOnce, generalGlob, groupGlob, messageGlob, type);
}

bool ImsAgent::removeMessageHook(unsigned long long hookId) const {
    if (const Logger* const log = tracer(Logger::Trace))
        write(*log, Logger::Trace, messages::removeHook, hookId);
    return ims->removeMessageHook(hookId);
}

bool ImsAgent::removeMessageHook(Ims& system, unsigned long long hookId) const {
    if (const Logger* const log = tracer(Logger::Trace))
        write(*log, Logger::Trace, messages::removeHookOn, hookId);
    return system.removeMessageHook(hookId);
}

unsigned long long ImsAgent::setHook(Ims& system, ImsAgent* source, bool onlyOnce,
                                     const std::string& generalGlob, const std::string& groupGlob,
                                     const std::string& messageGlob, HookType type) {
    try {
        return system.setMessageHook(*this, onlyOnce, generalGlob, groupGlob, messageGlob, source,
                                     type);
    } catch (const Ims::Hook_Duplicate& duplicate) {
        throw Hook_Duplicate(here(), duplicate);
    }
}

}  // namespace TarvikCorelib
