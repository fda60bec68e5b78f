/// The text by which an exception says where it was thrown.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// Process-wide. Shown in source locations unless it is 0. It is kept here, below the logger, so
/// that exceptions thrown by what the logger itself builds on show the same revision as all others.
/// `Logger::Revision` is its public name.
extern std::uint32_t sourceRevision;

/// ` @logsrc{file="name.cpp" line=7 rev=12};`, with a space in front: the file name without its
/// directories, the line counted from 1, and the revision unless it is 0.
std::string sourceText(std::string_view file, std::uint32_t line, std::uint32_t revision);

/// The place of the call, with `sourceRevision`: `throw Open_Failure(messages::openFailure,
/// here());`. The defaults are filled in where it is called, so pass no arguments.
std::string here(std::string_view file = __builtin_FILE(), std::uint32_t line = __builtin_LINE());

}  // namespace TarvikCorelib
