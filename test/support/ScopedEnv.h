/// An environment variable that is set or unset as long as the object lives.
#pragma once

#include <optional>
#include <string>

namespace tarvik_test {

/// The destructor restores the value before, or unsets the variable if there was none.
class ScopedEnv {
public:
    /// Sets the variable.
    ScopedEnv(std::string variable, const std::string& value);
    /// Unsets it.
    explicit ScopedEnv(std::string variable);
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;
    ~ScopedEnv();

private:
    std::string name;
    std::optional<std::string> before;
};

}  // namespace tarvik_test
