#include "libraries/corelib/source/messaging/Logger.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/messaging/Ims.h"
#include "libraries/corelib/source/process/GlobalData.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "shared/library/tables/Keywords.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cstdio>

namespace TarvikCorelib {

namespace {

constexpr std::string_view recordType = "debug";
constexpr std::string_view operatorGroup = "functional";
constexpr std::string_view developerGroup = "debug";
constexpr std::string_view levelGroup = "level";

constexpr auto levels = std::to_array<TarvikTables::Keyword>({
    {"none", Logger::None},
    {"fatal", Logger::Fatal},
    {"error", Logger::Error},
    {"warning", Logger::Warning},
    {"info", Logger::Info},
    {"verbose", Logger::Verbose},
    {"debug", Logger::Debug},
    {"trace", Logger::Trace},
    {"flood", Logger::Flood},
});
// "none" is 0 and valid, so an unknown name needs a code of its own.
constexpr int noLevel = -1;

std::string_view groupOf(std::int32_t level) {
    return level < Logger::Info ? operatorGroup : developerGroup;
}

}  // namespace

constinit std::int32_t Logger::MainLevel = Logger::Trace;
constinit std::uint32_t& Logger::Revision = sourceRevision;

Logger::Logger() : ImsAgent("logger") {
    setLevelHook();
}

Logger::Logger(std::string_view name, ImsAgent* target)
    : ImsAgent("logger"), name(name), target(target) {
    setLevelHook();
}

Logger::~Logger() {
    removeLevelHook();
}

void Logger::removeLevelHook() noexcept {
    const unsigned long long removed = std::exchange(hookId, 0);
    if (removed == 0) return;
    try {
        removeMessageHook(removed);
    } catch (...) {
        // Out of memory; the hook is marked as removed by then.
    }
}

// A logger without a hook still logs; only its level cannot be set.
void Logger::setLevelHook() {
    try {
        hookId = setMessageHook(false, std::string(recordType), std::string(levelGroup), "",
                                HookTypeNormal);
    } catch (...) {
        hookId = 0;
    }
}

int Logger::handleMessage(const ImsMessage& message) {
    if (message.generalType != recordType || message.groupType != levelGroup) return MsgIgnored;
    const std::int32_t wanted = StringTools::toInt32(message.messageType);
    if (wanted >= 0 && wanted <= MainLevel) level.store(wanted, std::memory_order_relaxed);
    return MsgHandled;
}

int Logger::hookMessage(unsigned long long /*hookId*/, const ImsMessage& message) {
    return handleMessage(message);
}

bool Logger::hasSubscriber(std::int32_t wanted) const {
    return target != nullptr ||
           getSystem().hasHookFor(recordType, groupOf(wanted), StringTools::toString(wanted), this);
}

void Logger::log(std::int32_t recordLevel, std::string_view text, const ParamStream& params) const {
    if (!hasSubscriber(recordLevel)) return;
    LogMessageParameter record;
    record.level = recordLevel;
    record.source = name;
    record.time = DateTime::getCurrentTime();
    record.threadId = static_cast<std::int32_t>(syscall(SYS_gettid));
    record.processId = getpid();
    record.text = text;
    record.params = params;
    ImsMessage message(std::string(recordType), std::string(groupOf(recordLevel)),
                       StringTools::toString(recordLevel), &record);
    try {
        if (target != nullptr)
            sendMessage(*target, message);
        else
            sendMessage(message);
    } catch (const Exception& exception) {
        const std::string failure = exception.getFullMessage(true);
        GlobalData::quit(failure);
        std::printf("FATAL ERROR: %s\n", failure.c_str());
        std::fflush(stdout);
    }
}

void Logger::log(std::int32_t recordLevel, const Exception& exception) const {
    exception.forEachLogRecord(
        [this, recordLevel](const std::string& text, const ParamStream& params) {
            log(recordLevel, text, params);
        });
}

void Logger::fail(FailProcedure procedure, std::string_view key, std::string_view text,
                  std::string_view location, std::string_view detail) const {
    fail(procedure, key, text, location, detail, {});
}

void Logger::fail(FailProcedure procedure, std::string_view key, std::string_view text,
                  std::string_view location, std::string_view detail,
                  const ParamStream& params) const {
    const auto join = [](auto... parts) { return (std::string() + ... + std::string(parts)); };
    if (procedure == FailWithDebug) {
        debug(join(key, ": ", detail), params);
        return;
    }
    const std::string record = join("@", key, "{", text, "}", location, detail);
    switch (procedure) {
    case FailWithWarning: return warning(record, params);
    case FailWithError: return error(record, params);
    case FailWithFatal: return fatal(record, params);
    default: return;
    }
}

std::string Logger::mapDebugLevel(int level) {
    for (const TarvikTables::Keyword& row : levels) {
        if (row.code == level) return std::string(row.word);
    }
    return "undefined";
}

int Logger::mapDebugLevel(std::string name) {
    return TarvikTables::codeOf(StringTools::lower(name), levels, None);
}

bool Logger::isValidDebugLevel(std::string name) {
    return TarvikTables::codeOf(StringTools::lower(name), levels, noLevel) != noLevel;
}

std::string Logger::formatSource(std::string_view file, std::uint32_t line) {
    return here(file, line);
}

}  // namespace TarvikCorelib
