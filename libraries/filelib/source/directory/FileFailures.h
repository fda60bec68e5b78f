/// How the tools for files and directories say what they are refused.
#pragma once

#include <string>

namespace TarvikFilelib {

/// Throws `TargetExists` if the value is empty.
void requireParameter(const std::string& value, const char* parameter, const char* operation);

/// The same, and `FileTools::NoSuchFile` if the value has a NUL: the system would take it for the
/// name in front of that.
void requireName(const std::string& value, const char* parameter, const char* operation);

/// Throws what the number of the system's error stands for: `FileTools::NoSuchFile`,
/// `TargetExists`, or for anything else `AccessDenied`.
[[noreturn]] void throwRefusal(int error, const std::string& path, const char* operation);

}  // namespace TarvikFilelib
