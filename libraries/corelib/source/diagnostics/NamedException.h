/// Makes an exception class out of a name.
#pragma once

#include "libraries/corelib/source/diagnostics/Exception.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace TarvikCorelib {

/// A string literal as a template argument.
template <std::size_t Size>
struct FixedText {
    // NOLINTNEXTLINE(google-explicit-constructor, modernize-avoid-c-arrays): literals convert.
    consteval FixedText(const char (&literal)[Size]) {
        std::copy_n(std::begin(literal), Size, text.begin());
    }

    std::array<char, Size> text{};
};

/// What `Exception` is made from. A first argument that is an exception means a copy.
template <class First, class... More>
concept ExceptionArguments = std::constructible_from<Exception, First, More...> &&
    !std::derived_from<std::remove_cvref_t<First>, Exception>;

/// Each name is a type of its own, caught as such: `using Open_Failure = NamedException<FileBase,
/// "Open_Failure">;` in `FileBase`. The owner is there so that two classes may use one name.
///
/// It is made from the arguments that `Exception` takes.
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

private:
    void setName() { name = Name.text.data(); }
};

}  // namespace TarvikCorelib
