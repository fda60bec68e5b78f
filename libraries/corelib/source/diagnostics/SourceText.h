/// The text by which an exception tells where it was thrown.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// " @logsrc{...};" with the file's name, without its directory, and the line; and with the
/// revision, unless that is 0.
std::string sourceText(std::string_view file, std::uint32_t line, std::uint32_t revision);

}  // namespace TarvikCorelib
