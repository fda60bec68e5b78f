/// The base of all that the suite throws.
#pragma once

#include "libraries/corelib/source/text/ParamStream.h"

#include <list>
#include <string>

namespace TarvikCorelib {

/// A message template with its values, the source locations it passed, and the exceptions that
/// caused it. The text is put together when it is read, not when it is thrown.
///
/// A template has the form `@key{text};`, and each `%` of its text takes a value. What is no
/// template is read by the same rules: "@", a backslash and a closing "}" in it may vanish.
class Exception {
public:
    Exception() = default;
    explicit Exception(std::string text);
    Exception(std::string text, std::string location);
    Exception(std::string text, ParamStream params);
    Exception(std::string text, std::string location, ParamStream params);
    /// A container for what a lower layer threw: it has no message of its own.
    Exception(std::string location, const Exception& inner);
    Exception(const Exception&) = default;
    Exception(Exception&&) = default;
    Exception& operator=(const Exception&) = default;
    Exception& operator=(Exception&&) = default;
    virtual ~Exception() = default;

    /// The template as it stands.
    [[nodiscard]] const std::string& getMessage() const { return message; }
    /// All source locations, one behind the other.
    [[nodiscard]] std::string getLocations() const;
    /// The message with its values filled in, after the name if that is wanted, and then a line for
    /// each contained exception, always with its name. Without a message it begins with a line end.
    [[nodiscard]] std::string getFullMessage(bool withName) const;

protected:
    std::string name = "Exception";  ///< Derived classes write their own.

private:
    std::string message;
    ParamStream params;
    std::list<std::string> locations;
    std::list<Exception> contained;  ///< Derived ones are cut to the base and keep their names.
};

}  // namespace TarvikCorelib
