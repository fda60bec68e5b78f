/// The texts of a command line: what is wrong with it, and what the options of every program do.
#pragma once

#include "shared/library/tables/MessageText.h"

namespace TarvikCorelib::messages {

using TarvikTables::fill;
using TarvikTables::MessageText;

// Why a command line is rejected. Names of options come without their dashes.
inline constexpr MessageText<0> executableMissing = "Missing executable argument";
inline constexpr MessageText<1> unknownOption = "Unknown option '{}'";
inline constexpr MessageText<1> equalsSignMissing = "Option '{}' must be option=value";
inline constexpr MessageText<0> tooManyArguments = "Too many arguments";
inline constexpr MessageText<1> valueInsideToken =
    "Option '{}' requires argument but is located inside an options token";
inline constexpr MessageText<1> argumentMissing = "Missing argument to '{}' option";
inline constexpr MessageText<1> invalidArgument = "Invalid argument to '{}' option";

// What the standard options do, as the usage text says it.
inline constexpr MessageText<0> helpOption = "Display this help text";
inline constexpr MessageText<0> versionOption = "Display version information";
inline constexpr MessageText<0> revisionOption = "Display SVN revision information";
inline constexpr MessageText<0> debugOption = "Set debug level";
inline constexpr MessageText<0> configurationOption = "Specify configuration file explicitly";
inline constexpr MessageText<0> registryOption = "Specify alternate file registry";

// Pieces of the usage text.
inline constexpr MessageText<1> fixedValues = "(One of: {})";

}  // namespace TarvikCorelib::messages
