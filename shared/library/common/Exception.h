/// The base of what the older library throws.
#pragma once

#include <exception>
#include <string>

namespace Tarvik {

/// A code, and the name and text that the family has for it. The core library's class of the same
/// name is another family.
class Exception : public std::exception {
public:
    [[nodiscard]] int getCode() const { return code; }
    [[nodiscard]] const std::string& getName() const { return name; }
    [[nodiscard]] virtual std::string getMessage() const;
    /// The part of the library that threw, such as "Time".
    [[nodiscard]] virtual std::string getModule() const = 0;
    /// The message.
    [[nodiscard]] const char* what() const noexcept override;

protected:
    Exception(int code, std::string name, std::string message);

private:
    int code;
    std::string name;
    std::string message;
};

}  // namespace Tarvik
