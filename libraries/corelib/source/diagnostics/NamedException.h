/// Makes an exception class from a name.
#pragma once

#include "libraries/corelib/source/diagnostics/Exception.h"
#include "libraries/corelib/source/diagnostics/Template.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace TarvikCorelib {

/// A string literal as a template argument, which must be a class with public data only.
template <std::size_t Size>
struct FixedText {
    // NOLINTNEXTLINE(google-explicit-constructor, modernize-avoid-c-arrays): literals convert.
    consteval FixedText(const char (&literal)[Size]) {
        std::copy_n(std::begin(literal), Size, text.begin());
    }

    std::array<char, Size> text{};
};

/// The arguments that `Exception` takes, except those of a copy: if the first one is an exception,
/// the copy constructor is meant, and a template must not take precedence over it.
template <class First, class... More>
concept ExceptionArguments = std::constructible_from<Exception, First, More...> &&
    !std::derived_from<std::remove_cvref_t<First>, Exception>;

/// An exception type of its own for each name, so that a class of exceptions costs its owner a
/// line: `using Open_Failure = NamedException<FileBase, "Open_Failure">;` in `FileBase`, and
/// callers catch `FileBase::Open_Failure`. The owner is a parameter so that two classes may use the
/// same name and still have two types. It adds no field and takes the arguments of `Exception`.
///
///     struct Store { using Open_Failure = NamedException<Store, "Open_Failure">; };
///     constexpr Template<1> openFailure = "@open-failure{Cannot open %};";
///     try {
///         throw made<Store::Open_Failure>(openFailure, here(), "a.db");
///     } catch (const Store::Open_Failure& failure) {
///         failure.getFullMessage(true);  // "Open_Failure: Cannot open a.db"
///     }
template <class Owner, FixedText Name>
class NamedException : public Exception {
public:
    NamedException() { setName(); }
    template <class First, class... More>
    requires ExceptionArguments<First, More...>
    explicit NamedException(First&& first, More&&... more)
        : Exception(std::forward<First>(first), std::forward<More>(more)...) {
        setName();
    }
    /// With a message of its own and a copy of the exception that was the cause.
    NamedException(std::string_view text, std::string_view location, ParamStream params,
                   const Exception& cause)
        : Exception(text, location, std::move(params)) {
        contain(cause);
        setName();
    }

private:
    void setName() { name = Name.text.data(); }
};

/// An exception of a template with its values: `throw made<Failure>(text, here(), name)`.
template <class Failure, std::size_t Holes, class Char, class... Values>
Failure made(const Template<Holes, Char>& text, const std::string& location,
             const Values&... values) {
    return Failure(text.view(), location, valuesFor(text, values...));
}

}  // namespace TarvikCorelib
