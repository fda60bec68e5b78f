#include "test/support/ScopedEnv.h"

#include <cstdlib>
#include <utility>

namespace tarvik_test {

ScopedEnv::ScopedEnv(std::string variable) : name(std::move(variable)) {
    if (const char* value = std::getenv(name.c_str()); value != nullptr) before = value;
    unsetenv(name.c_str());
}

ScopedEnv::ScopedEnv(std::string variable, const std::string& value)
    : ScopedEnv(std::move(variable)) {
    setenv(name.c_str(), value.c_str(), 1);
}

ScopedEnv::~ScopedEnv() {
    if (before) {
        setenv(name.c_str(), before->c_str(), 1);
    } else {
        unsetenv(name.c_str());
    }
}

}  // namespace tarvik_test
