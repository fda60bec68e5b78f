/// Makes an exception class out of a name.
#pragma once

#include "libraries/corelib/source/diagnostics/Exception.h"

#include <algorithm>
#include <array>
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

/// Each name is a type of its own, caught as such: `using Open_Failure = NamedException<FileBase,
/// "Open_Failure">;` in `FileBase`. The owner is there so that two classes may use one name.
template <class Owner, FixedText Name>
class NamedException : public Exception {
public:
    explicit NamedException(std::string text) : Exception(std::move(text)) { setName(); }
    NamedException(std::string text, std::string location, ParamStream params)
        : Exception(std::move(text), std::move(location), std::move(params)) {
        setName();
    }
    NamedException(std::string location, const Exception& inner)
        : Exception(std::move(location), inner) {
        setName();
    }

private:
    void setName() { name = Name.text.data(); }
};

}  // namespace TarvikCorelib
