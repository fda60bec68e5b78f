/// How the tools for directories say what they are refused, and what their sources share.
#pragma once

#include "libraries/corelib/source/system/DirWalk.h"

#include <string>

namespace TarvikFilelib {

/// Does nothing for 0. Else throws what the number of the system's error stands for:
/// `DirTools::NoSuchDir`, or for anything else `AccessDenied`.
void checkAccess(int error, const std::string& path, const char* operation);

/// "errno#13".
std::string errorText(int error);

/// Slashes at the end are left out; the last name of such a path.
std::string withoutSlashesAtEnd(const std::string& path);
std::string lastName(const std::string& path);

/// The place of what exists, and what it is itself. Throws as `checkAccess` does.
TarvikCorelib::DirPlace placeOf(const std::string& path, const char* operation,
                                TarvikCorelib::EntryKind& kind);

/// Opens for reading, following a link. Not open, with `errno` set, if there is no directory.
TarvikCorelib::Descriptor openTop(const std::string& path);

}  // namespace TarvikFilelib
