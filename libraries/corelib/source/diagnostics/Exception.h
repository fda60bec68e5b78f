/// The base of all that the suite throws.
#pragma once

#include "libraries/corelib/source/values/ParamStream.h"

#include <functional>
#include <list>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// A message template with its values, the source locations it passed, and the exceptions that
/// caused it. The text is put together when it is read, not when it is thrown.
///
/// A template has the form `@key{text};`, and each `%` of its text takes a value. What is no
/// template is read by the same rules (`readTemplate`): "@", a backslash, a closing "}" and ";" may
/// vanish from it, and all that looks like a key.
///
/// The text may be given narrow or wide, and is read as either. For that, what is narrow is widened
/// byte by byte, and what is wide is narrowed by the process locale; neither fails.
class Exception {
public:
    Exception() = default;
    explicit Exception(std::string_view text);
    explicit Exception(std::wstring_view text);
    Exception(std::string_view text, std::string_view location);
    Exception(std::wstring_view text, std::string_view location);
    Exception(std::string_view text, ParamStream params);
    Exception(std::wstring_view text, ParamStream params);
    Exception(std::string_view text, std::string_view location, ParamStream params);
    Exception(std::wstring_view text, std::string_view location, ParamStream params);
    /// A container for what a lower layer threw: it has no message of its own.
    Exception(std::string_view location, const Exception& inner);
    Exception(const Exception&) = default;
    Exception(Exception&&) = default;
    Exception& operator=(const Exception&) = default;
    Exception& operator=(Exception&&) = default;
    virtual ~Exception() = default;

    /// The short name of its class.
    [[nodiscard]] const std::string& getName() const { return name; }

    /// The template as it stands.
    [[nodiscard]] std::string getMessage() const;
    [[nodiscard]] std::wstring getMessageW() const;
    /// All source locations, one behind the other.
    [[nodiscard]] std::string getLocations() const;
    /// The template as it stands, and the locations right behind it.
    [[nodiscard]] std::string getMessageWithLocation() const;
    [[nodiscard]] std::wstring getMessageWWithLocation() const;

    /// The message with its values filled in, after the name if that is wanted, and then a line for
    /// each contained exception, always with its name. With neither name nor message it begins with
    /// the line end.
    /// A message of the other width always comes with the name, on purpose.
    [[nodiscard]] std::string getFullMessage(bool withName) const;
    [[nodiscard]] std::wstring getFullMessageW(bool withName) const;

    using TakeRecord = std::function<void(const std::string& text, const ParamStream& params)>;
    /// Gives `take` what a log says of this exception, with its values: first of all that it
    /// contains, each in the same way, so that a chain reads from its innermost cause on.
    void forEachLogRecord(const TakeRecord& take) const;

    /// Append a blank and plain words to the message of that width; a template would show its key.
    /// The values go behind those that there are. Words of the other width than the message are
    /// seen by readers of that width only, who then no longer see the message.
    void addToMessage(std::string_view text);
    void addToMessage(std::wstring_view text);
    void addToMessage(std::string_view text, const ParamStream& values);
    void addToMessage(std::wstring_view text, const ParamStream& values);

    /// The first exception of that name among those contained directly, or null. Owned by this one.
    [[nodiscard]] const Exception* getContained(std::string_view wanted) const;
    [[nodiscard]] bool haveContainedException(std::string_view wanted) const;

protected:
    std::string name = "Exception";  ///< Derived classes write their own.

private:
    template <class Char>
    [[nodiscard]] const std::basic_string<Char>& messageIn() const;
    template <class Char>
    void appendFullMessage(std::basic_string<Char>& out, bool withName) const;

    std::string message;
    std::wstring messageW;  ///< Only one of the two is set at the throw.
    ParamStream params;
    std::list<std::string> locations;
    std::list<Exception> contained;  ///< Derived ones are cut to the base and keep their names.
};

}  // namespace TarvikCorelib
