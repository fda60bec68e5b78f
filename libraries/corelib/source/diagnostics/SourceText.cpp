#include "libraries/corelib/source/diagnostics/SourceText.h"

namespace TarvikCorelib {

constinit std::uint32_t sourceRevision = 0;

std::string sourceText(std::string_view file, std::uint32_t line, std::uint32_t revision) {
    std::string text = " @logsrc{file=\"";
    text += file.substr(file.rfind('/') + 1);
    text += "\" line=" + std::to_string(line);
    if (revision != 0) text += " rev=" + std::to_string(revision);
    return text + "};";
}

std::string here(std::string_view file, std::uint32_t line) {
    return sourceText(file, line, sourceRevision);
}

}  // namespace TarvikCorelib
