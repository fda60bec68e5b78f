/// Templates of exceptions and log records, and the values for them.
#pragma once

#include "libraries/corelib/source/values/ParamStream.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace TarvikCorelib {

/// A template of a message table, with the number of its `%` in its type, so that the compiler
/// counts the values that it is given. A text with another number does not compile.
template <std::size_t Holes, class Char = char>
class Template {
public:
    template <std::size_t Size>
    // NOLINTNEXTLINE(google-explicit-constructor, modernize-avoid-c-arrays): literals convert.
    consteval Template(const Char (&literal)[Size]) : text(literal, Size - 1) {
        if (std::count(text.begin(), text.end(), Char{'%'}) != Holes)
            throw "the template has another number of holes";
    }

    [[nodiscard]] constexpr std::basic_string_view<Char> view() const { return text; }

private:
    std::basic_string_view<Char> text;
};

/// The values of a template, one for each `%`.
template <std::size_t Holes, class Char, class... Values>
requires(sizeof...(Values) == Holes) ParamStream
    valuesFor(const Template<Holes, Char>& /*text*/, const Values&... values) {
    ParamStream params;
    ((params << values), ...);
    return params;
}

}  // namespace TarvikCorelib
