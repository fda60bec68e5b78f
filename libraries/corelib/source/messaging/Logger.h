/// Log levels, and the operations that write log records.
#pragma once

#include "libraries/corelib/source/diagnostics/Exception.h"
#include "libraries/corelib/source/messaging/ImsAgent.h"
#include "libraries/corelib/source/values/ParamStream.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// A source of log records. Records go to subscribers, never to the console or to a file. There is
/// no way to subscribe yet, so the operations do nothing.
///
/// A record is a template with its values, not a finished text: a subscriber can search for the key
/// of the template and show the values as it likes. The levels run from 0, "none", to 8, "flood";
/// the higher the level, the more is logged.
class Logger : public ImsAgent {
public:
    Logger() : ImsAgent("logger") {}

    /// The source name on its records.
    void setName(std::string_view value) { name = value; }
    [[nodiscard]] const std::string& getName() const { return name; }

    void info(const std::string& text) const { log(4, text, {}); }
    void info(const std::string& text, const ParamStream& params) const { log(4, text, params); }
    void info(const Exception& exception) const { log(4, exception); }
    void fatal(const std::string& text) const { log(1, text, {}); }
    void fatal(const std::string& text, const ParamStream& params) const { log(1, text, params); }
    void fatal(const Exception& exception) const { log(1, exception); }

    /// Drops the record, as long as nobody can subscribe.
    void log(int /*level*/, const std::string& /*text*/, const ParamStream& /*params*/) const {}
    /// Logs each contained exception first, innermost causes before their containers, and then the
    /// exception itself, all at the same level.
    void log(int level, const Exception& exception) const;

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
    std::string name = "anonymous";
};

}  // namespace TarvikCorelib
