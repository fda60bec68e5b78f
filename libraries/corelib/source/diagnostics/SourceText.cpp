#include "libraries/corelib/source/diagnostics/SourceText.h"

namespace TarvikCorelib {

std::string sourceText(std::string_view file, std::uint32_t line, std::uint32_t revision) {
    std::string text = " @logsrc{file=\"";
    text += file.substr(file.rfind('/') + 1);
    text += "\" line=" + std::to_string(line);
    if (revision != 0) text += " rev=" + std::to_string(revision);
    return text + "};";
}

}  // namespace TarvikCorelib
