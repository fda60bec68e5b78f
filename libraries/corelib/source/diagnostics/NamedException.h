/// Makes an exception class out of a name.
#pragma once

#include "libraries/corelib/source/diagnostics/Exception.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <string>
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

template <class Text>
concept ExceptionText =
    std::constructible_from<Exception, Text> && !std::derived_from<Text, Exception>;

/// Each name is a type of its own, caught as such: `using Open_Failure = NamedException<FileBase,
/// "Open_Failure">;` in `FileBase`. The owner is there so that two classes may use one name.
///
/// It is made as the base is: of nothing; of a text, narrow or wide, and behind it a location,
/// values or both; or of a location and the exception that a lower layer threw.
template <class Owner, FixedText Name>
class NamedException : public Exception {
public:
    NamedException() { setName(); }
    template <ExceptionText Text>
    explicit NamedException(Text text) : Exception(std::move(text)) {
        setName();
    }
    template <class Text, class Second, class... Third>
    NamedException(Text text, const Second& second, const Third&... third)
        : Exception(std::move(text), second, third...) {
        setName();
    }

private:
    void setName() { name = Name.text.data(); }
};

}  // namespace TarvikCorelib
