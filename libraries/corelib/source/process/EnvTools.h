/// The environment of the process.
#pragma once

#include <string>

namespace TarvikCorelib {

/// The environment has no lock: while other threads run, change no variable that they may read.
class EnvTools {
public:
    /// Overwrites an older value. Returns false for an invalid name: an empty one, or one with "=".
    static bool set(const std::string& name, const std::string& value);
    /// Does nothing if there is no such variable.
    static void remove(const std::string& name);
    /// Returns false and makes `value` empty if there is no such variable. An empty variable
    /// exists, so it returns true.
    static bool get(const std::string& name, std::string& value);
    static bool exists(const std::string& name);
};

}  // namespace TarvikCorelib
