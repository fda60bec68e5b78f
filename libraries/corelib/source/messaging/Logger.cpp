#include "libraries/corelib/source/messaging/Logger.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "shared/library/tables/Keywords.h"

#include <array>

namespace TarvikCorelib {

namespace {

constexpr auto levels = std::to_array<TarvikTables::Keyword>({
    {"none", 0},
    {"fatal", 1},
    {"error", 2},
    {"warning", 3},
    {"info", 4},
    {"verbose", 5},
    {"debug", 6},
    {"trace", 7},
    {"flood", 8},
});
// "none" is 0 and valid, so an unknown name needs a code of its own.
constexpr int noLevel = -1;

}  // namespace

constinit std::int32_t Logger::MainLevel = 7;
constinit std::uint32_t& Logger::Revision = sourceRevision;

void Logger::log(int level, const Exception& exception) const {
    exception.forEachLogRecord([this, level](const std::string& text, const ParamStream& params) {
        log(level, text, params);
    });
}

std::string Logger::mapDebugLevel(int level) {
    for (const TarvikTables::Keyword& row : levels) {
        if (row.code == level) return std::string(row.word);
    }
    return "undefined";
}

int Logger::mapDebugLevel(std::string name) {
    return TarvikTables::codeOf(StringTools::lower(name), levels, 0);
}

bool Logger::isValidDebugLevel(std::string name) {
    return TarvikTables::codeOf(StringTools::lower(name), levels, noLevel) != noLevel;
}

std::string Logger::formatSource(std::string_view file, std::uint32_t line) {
    return here(file, line);
}

}  // namespace TarvikCorelib
