/// Log levels, and the operations that write log records.
#pragma once

#include "libraries/corelib/source/diagnostics/Exception.h"
#include "libraries/corelib/source/messaging/ImsAgent.h"
#include "libraries/corelib/source/values/ParamStream.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// A source of log records. A record is a message of general type "debug": it goes to the agents
/// that have hooked it, never to the console or to a file. Group type "functional" is for those who
/// run the program (fatal, error, warning), "debug" for those who look into it; the message type is
/// the level in decimal.
///
/// A record is a template with its values, not a finished text: a subscriber can search for the key
/// of the template and show the values as it likes. The higher the level, the more is logged. Each
/// logger has a limit of its own, which a message ("debug", "level", number) sets, and all share
/// `MainLevel`. Logging never throws: if the message system fails, the process is asked to stop,
/// and the failure is printed on standard output.
///
/// Loggers may be used by any thread once they are made; `setName` and `MainLevel` are for the
/// thread that starts the application, before it starts others.
///
///     const Logger logger("store", nullptr);
///     logger.warning("@disk-low{Only % MB left on %};", ParamStream() << 12 << "/var");
///     if (logger.isHeard(Logger::Debug)) logger.debug(describeAll());
class Logger : public ImsAgent {
public:
    enum Level : std::int32_t {
        None = 0,
        Fatal = 1,
        Error = 2,
        Warning = 3,
        Info = 4,
        Verbose = 5,
        Debug = 6,
        Trace = 7,
        Flood = 8,
    };

    /// What a record carries.
    class LogMessageParameter : public ImsMessageParameter {
    public:
        std::int32_t level = None;
        std::string source;           ///< The name of the logger.
        unsigned long long time = 0;  ///< As `DateTime::getCurrentTime` counts.
        std::int32_t threadId = 0;    ///< Of the operating system.
        std::int32_t processId = 0;
        std::string text;    ///< The template.
        ParamStream params;  ///< Its values.
    };

    Logger();
    /// The name goes onto each record as it is. With a target, which must outlive the logger,
    /// records go straight to it, past all hooks.
    Logger(std::string_view name, ImsAgent* target);
    Logger(const Logger&) = delete;
    Logger& operator=(const Logger&) = delete;
    ~Logger() override;

    /// From now on messages do not set its level.
    void removeLevelHook() noexcept;

    /// Messages ("debug", "level", number) set the level of this logger, up to `MainLevel`; other
    /// numbers change nothing. What is no number is 0, which silences it.
    int handleMessage(const ImsMessage& message) override;
    int hookMessage(unsigned long long hookId, const ImsMessage& message) override;

    /// The source name on its records, "anonymous" at first. Cut to 10 characters.
    void setName(std::string_view value) { name = value.substr(0, 10); }
    [[nodiscard]] const std::string& getName() const { return name; }
    [[nodiscard]] std::int32_t getLevel() const { return level.load(std::memory_order_relaxed); }

    /// Whether records of this level pass both limits. Costs a load and a compare or two.
    [[nodiscard]] bool isEnabled(std::int32_t wanted) const {
        return wanted <= MainLevel && wanted <= getLevel();
    }
    /// Whether such a record would also reach anybody: for callers that gather values first.
    [[nodiscard]] bool isHeard(std::int32_t wanted) const {
        return isEnabled(wanted) && hasSubscriber(wanted);
    }

    // Each returns at once, and builds nothing, unless its level is enabled.

    void fatal(std::string_view text) const { logIf(Fatal, text); }
    void fatal(std::string_view text, const ParamStream& params) const {
        logIf(Fatal, text, params);
    }
    void fatal(const Exception& exception) const { logIf(Fatal, exception); }
    void error(std::string_view text) const { logIf(Error, text); }
    void error(std::string_view text, const ParamStream& params) const {
        logIf(Error, text, params);
    }
    void error(const Exception& exception) const { logIf(Error, exception); }
    void warning(std::string_view text) const { logIf(Warning, text); }
    void warning(std::string_view text, const ParamStream& params) const {
        logIf(Warning, text, params);
    }
    void warning(const Exception& exception) const { logIf(Warning, exception); }
    void info(std::string_view text) const { logIf(Info, text); }
    void info(std::string_view text, const ParamStream& params) const { logIf(Info, text, params); }
    void info(const Exception& exception) const { logIf(Info, exception); }
    void verbose(std::string_view text) const { logIf(Verbose, text); }
    void verbose(std::string_view text, const ParamStream& params) const {
        logIf(Verbose, text, params);
    }
    void verbose(const Exception& exception) const { logIf(Verbose, exception); }
    void debug(std::string_view text) const { logIf(Debug, text); }
    void debug(std::string_view text, const ParamStream& params) const {
        logIf(Debug, text, params);
    }
    void debug(const Exception& exception) const { logIf(Debug, exception); }
    void trace(std::string_view text) const { logIf(Trace, text); }
    void trace(std::string_view text, const ParamStream& params) const {
        logIf(Trace, text, params);
    }
    void trace(const Exception& exception) const { logIf(Trace, exception); }
    void flood(std::string_view text) const { logIf(Flood, text); }
    void flood(std::string_view text, const ParamStream& params) const {
        logIf(Flood, text, params);
    }
    void flood(const Exception& exception) const { logIf(Flood, exception); }

    /// Writes a record whatever the limits are.
    void log(std::int32_t level, std::string_view text, const ParamStream& params) const;
    /// Logs each contained exception first, innermost causes before their containers, and then the
    /// exception itself, all at the same level.
    void log(std::int32_t level, const Exception& exception) const;

    enum FailProcedure : std::int32_t {
        FailWithDebug = 1,
        FailWithWarning = 2,
        FailWithError = 3,
        FailWithFatal = 4,
    };
    /// Logs a failure by its kind: as `key: detail` at level debug, or as the template of key and
    /// text, with the location and the detail behind it, at level warning, error or fatal.
    void fail(FailProcedure procedure, std::string_view key, std::string_view text,
              std::string_view location, std::string_view detail) const;
    void fail(FailProcedure procedure, std::string_view key, std::string_view text,
              std::string_view location, std::string_view detail, const ParamStream& params) const;

    /// The name of a level, or "undefined" for a number out of range.
    static std::string mapDebugLevel(int level);
    /// The level of a name, in any case.
    /// Quirk: an unknown name gives 0, "none", and so silences everything.
    static int mapDebugLevel(std::string name);
    /// Whether a level has this name, in any case.
    static bool isValidDebugLevel(std::string name);

    /// The text by which an exception says where it was thrown, for a given place.
    static std::string formatSource(std::string_view file, std::uint32_t line);

    /// Process-wide. The limit of all loggers: records above this level are dropped.
    static std::int32_t MainLevel;
    /// Process-wide. Shown in source locations unless it is 0. Another name for `sourceRevision`,
    /// so that throwers below the logger show it too.
    static std::uint32_t& Revision;

private:
    void logIf(std::int32_t wanted, std::string_view text) const {
        if (isEnabled(wanted)) log(wanted, text, {});
    }
    void logIf(std::int32_t wanted, std::string_view text, const ParamStream& params) const {
        if (isEnabled(wanted)) log(wanted, text, params);
    }
    void logIf(std::int32_t wanted, const Exception& exception) const {
        if (isEnabled(wanted)) log(wanted, exception);
    }
    [[nodiscard]] bool hasSubscriber(std::int32_t wanted) const;
    void setLevelHook();

    std::string name = "anonymous";
    std::atomic<std::int32_t> level{Trace};
    unsigned long long hookId = 0;  ///< 0 if there is none.
    ImsAgent* target = nullptr;     ///< Null for the hooks.
};

}  // namespace TarvikCorelib
