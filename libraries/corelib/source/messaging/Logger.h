/// Log levels, and the calls that write log records.
#pragma once

#include "libraries/corelib/source/diagnostics/Exception.h"
#include "libraries/corelib/source/messaging/ImsAgent.h"
#include "libraries/corelib/source/values/ParamStream.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// A source of log records. They go to whoever subscribed to them, never to the console or to a
/// file. There is no way to subscribe yet, so the calls do nothing.
class Logger : public ImsAgent {
public:
    Logger() : ImsAgent("logger") {}

    /// The name that its records carry.
    void setName(std::string_view value) { name = value; }
    [[nodiscard]] const std::string& getName() const { return name; }

    void info(const std::string& text) const { log(4, text, {}); }
    void info(const std::string& text, const ParamStream& params) const { log(4, text, params); }
    void info(const Exception& exception) const { log(4, exception); }
    void fatal(const std::string& text) const { log(1, text, {}); }
    void fatal(const std::string& text, const ParamStream& params) const { log(1, text, params); }
    void fatal(const Exception& exception) const { log(1, exception); }

    void log(int /*level*/, const std::string& /*text*/, const ParamStream& /*params*/) const {}
    /// A record for each exception that it contains, innermost causes first, and then its own.
    void log(int level, const Exception& exception) const;

    /// The level's name; "undefined" for a number that is no level.
    static std::string mapDebugLevel(int level);
    /// The level of that name, in any case. 0, "none", for a name that is no level's.
    static int mapDebugLevel(std::string name);
    static bool isValidDebugLevel(std::string name);

    /// The text by which an exception says where it was thrown, for a given place.
    static std::string formatSource(std::string_view file, std::uint32_t line);

    /// Process-wide. The limit of all loggers.
    static std::int32_t MainLevel;
    /// Process-wide. Shown in source locations unless it is 0. Another name for `sourceRevision`,
    /// so that throwers below the logger show it too.
    static std::uint32_t& Revision;

private:
    std::string name = "anonymous";
};

}  // namespace TarvikCorelib
