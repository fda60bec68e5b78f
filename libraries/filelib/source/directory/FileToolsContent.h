/// What the operations on whole contents share.
#pragma once

#include "libraries/corelib/source/system/Descriptor.h"

#include <sys/stat.h>

#include <string>

namespace TarvikFilelib {

/// A plain file that is open for reading.
struct ContentSource {
    TarvikCorelib::Descriptor file;
    struct stat properties {};
};

/// Throws what `FileTools::fileToString` does.
ContentSource openSource(const std::string& path, const char* operation);

/// Does nothing for 0. Else throws what the number of the system's error stands for.
void requireWritten(int error, const std::string& path, const char* operation);

/// The path to write to by the flags of a copy; empty if what exists is to stay. Throws if nothing
/// may be written.
std::string placeFor(const std::string& path, int flags, const char* operation);
bool mayReplace(int flags);

}  // namespace TarvikFilelib
