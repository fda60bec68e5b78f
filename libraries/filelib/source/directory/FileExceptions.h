/// What the tools for files and those for directories both throw.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"

namespace TarvikFilelib {

struct FileExceptions;

/// Something stands where a new file or directory is to be made.
/// Quirk: also thrown for a parameter that is empty, with a text that says so.
using TargetExists = TarvikCorelib::NamedException<FileExceptions, "TargetExists">;
using AccessDenied = TarvikCorelib::NamedException<FileExceptions, "AccessDenied">;
/// The user who was asked has stopped the operation.
using OperationAborted = TarvikCorelib::NamedException<FileExceptions, "OperationAborted">;

}  // namespace TarvikFilelib
