/// The environment of the process.
#pragma once

#include <string>

namespace TarvikCorelib {

class EnvTools {
public:
    /// Overwrites. False for a name that cannot be one.
    static bool set(const std::string& name, const std::string& value);
    static void remove(const std::string& name);
    /// Answers false and blanks `value` if there is no such variable.
    static bool get(const std::string& name, std::string& value);
    static bool exists(const std::string& name);
};

}  // namespace TarvikCorelib
