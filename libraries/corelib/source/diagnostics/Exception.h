/// The base of all exceptions of the suite.
#pragma once

#include "libraries/corelib/source/values/ParamStream.h"

#include <functional>
#include <list>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// A message template with its values, the source locations it passed, and the exceptions that
/// caused it. The text is put together when it is read, not when it is thrown: a throw is cheap,
/// and programs that read the logs find the key in them.
///
/// A template has the form `@key{text};`, and each `%` of its text takes a value. A plain text is
/// read by the same rules (`readTemplate`), so it may lose "@", a backslash, a closing "}", ";" and
/// anything that looks like a key.
///
/// The text may be given narrow or wide, and can be read as either. Narrow text is widened byte by
/// byte, wide text is narrowed by the process locale; neither conversion fails.
///
/// All fields are copied by value, causes included, so a copy costs as much as the whole chain.
///
///     try {
///         throw Exception("@no-file{Cannot open %};", here(), ParamStream() << "a.conf");
///     } catch (const Exception& cause) {
///         cause.getMessage();          // "@no-file{Cannot open %};"
///         cause.getFullMessage(true);  // "Exception: Cannot open a.conf"
///     }
class Exception {
public:
    Exception() = default;
    /// The text is the template or a plain text; a location is made by `here()`. Both are copied,
    /// so strings, literals and views all do.
    explicit Exception(std::string_view text);
    explicit Exception(std::wstring_view text);
    Exception(std::string_view text, std::string_view location);
    Exception(std::wstring_view text, std::string_view location);
    Exception(std::string_view text, ParamStream params);
    Exception(std::wstring_view text, ParamStream params);
    Exception(std::string_view text, std::string_view location, ParamStream params);
    Exception(std::wstring_view text, std::string_view location, ParamStream params);
    /// A container for an exception of a lower layer, which is copied. It has no message itself.
    Exception(std::string_view location, const Exception& inner);
    Exception(const Exception&) = default;
    Exception(Exception&&) = default;
    Exception& operator=(const Exception&) = default;
    Exception& operator=(Exception&&) = default;
    virtual ~Exception() = default;

    /// The short name of its class, without the owner: "Open_Failure".
    [[nodiscard]] const std::string& getName() const { return name; }

    /// The template as it was given, with its key and without its values.
    [[nodiscard]] std::string getMessage() const;
    [[nodiscard]] std::wstring getMessageW() const;
    /// All source locations, one after the other.
    [[nodiscard]] std::string getLocations() const;
    /// The template as it was given, with the locations right after it.
    [[nodiscard]] std::string getMessageWithLocation() const;
    [[nodiscard]] std::wstring getMessageWWithLocation() const;

    /// The message with its values filled in, after "name: " if `withName`, and then a line for
    /// each contained exception, always with its name, so that users see the failed task before its
    /// cause. With neither name nor message it begins with the line feed.
    /// Quirk: a message of the other width always comes with the name.
    [[nodiscard]] std::string getFullMessage(bool withName) const;
    [[nodiscard]] std::wstring getFullMessageW(bool withName) const;

    using TakeRecord = std::function<void(const std::string& text, const ParamStream& params)>;
    /// Calls `take` with the text that a log shows for this exception, and with its values, which
    /// are not filled in yet. The contained exceptions come first, each in the same way, so that a
    /// log shows a chain from its innermost cause to the outermost container.
    void forEachLogRecord(const TakeRecord& take) const;

    /// Append a space and plain words to the message of that width; a template would show its key.
    /// The values are appended to the existing ones.
    /// Quirk: words of the other width than the message hide it from readers of that width.
    void addToMessage(std::string_view text);
    void addToMessage(std::wstring_view text);
    void addToMessage(std::string_view text, const ParamStream& values);
    void addToMessage(std::wstring_view text, const ParamStream& values);

    /// The first exception of that name among those contained directly, or null. It is owned by
    /// this exception and lives as long.
    [[nodiscard]] const Exception* getContained(std::string_view wanted) const;
    [[nodiscard]] bool haveContainedException(std::string_view wanted) const;

protected:
    /// Keeps a copy of the exception that was the cause, for one that has a message of its own too.
    void contain(const Exception& inner) { contained.push_back(inner); }

    std::string name = "Exception";  ///< Derived classes set their own.

private:
    template <class Char>
    [[nodiscard]] const std::basic_string<Char>& messageIn() const;
    /// Appends, so that a chain of any depth is built in one string.
    template <class Char>
    void appendFullMessage(std::basic_string<Char>& out, bool withName) const;

    std::string message;
    std::wstring messageW;  ///< A constructor sets only one of the two.
    ParamStream params;
    std::list<std::string> locations;
    std::list<Exception> contained;  ///< Sliced to the base; they keep their names.
};

}  // namespace TarvikCorelib
