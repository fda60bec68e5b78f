/// The base of the exceptions of the older library.
#pragma once

#include <exception>
#include <string>

namespace Tarvik {

/// A code with its name and its text, which a table of the derived class gives. The core library's
/// class of the same name is not related.
class Exception : public std::exception {
public:
    [[nodiscard]] int getCode() const { return code; }
    [[nodiscard]] const std::string& getName() const { return name; }
    /// The text, without code or name.
    [[nodiscard]] virtual std::string getMessage() const;
    /// The part of the library that threw, such as "Time".
    [[nodiscard]] virtual std::string getModule() const = 0;
    /// The same as `getMessage` of this class; valid as long as the exception.
    [[nodiscard]] const char* what() const noexcept override;

protected:
    Exception(int code, std::string name, std::string message);

private:
    int code;
    std::string name;
    std::string message;
};

}  // namespace Tarvik
