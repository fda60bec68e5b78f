/// The texts that the frame of an application prints and logs.
#pragma once

#include "libraries/corelib/source/diagnostics/Template.h"
#include "shared/library/tables/MessageText.h"

#include <string_view>

namespace TarvikCorelib::messages {

using TarvikTables::fill;
using TarvikTables::MessageText;

// Printed.
inline constexpr MessageText<1> error = "ERROR: {}\n";
inline constexpr MessageText<1> standardError = "STD ERROR: {}\n";
inline constexpr MessageText<0> unknownError = "ERROR: Unknown exception\n";
inline constexpr MessageText<0> outOfMemoryError = "ERROR: OUT OF MEMORY\n";
inline constexpr MessageText<1> version = "Version={}";
inline constexpr MessageText<1> revision = "Revision={}";

/// Ahead of the signal's number. Printed, and the reason of the stop.
inline constexpr std::string_view interceptedSignal = "Intercepted signal ";

// Logged. `%` stands for a parameter.
inline constexpr const char* endingWith = "Application ending with exit value %";
inline constexpr const char* quittingBecause = "Quitting because: %";
inline constexpr const char* restartRequested = "Going to signal parent process to restart us";

// Thrown. The values are the application with its instance, and the host.
inline constexpr Template<2> alreadyRunning =
    "@appframe.already-running{Another instance of the \"%@%\" is already running - cannot start "
    "another};";

}  // namespace TarvikCorelib::messages
