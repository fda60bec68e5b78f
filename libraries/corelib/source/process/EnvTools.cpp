#include "libraries/corelib/source/process/EnvTools.h"

#include <cstdlib>

namespace TarvikCorelib {

bool EnvTools::set(const std::string& name, const std::string& value) {
    return setenv(name.c_str(), value.c_str(), 1) == 0;
}

void EnvTools::remove(const std::string& name) {
    unsetenv(name.c_str());
}

bool EnvTools::get(const std::string& name, std::string& value) {
    const char* found = std::getenv(name.c_str());
    value = found != nullptr ? found : "";
    return found != nullptr;
}

bool EnvTools::exists(const std::string& name) {
    return std::getenv(name.c_str()) != nullptr;
}

}  // namespace TarvikCorelib
