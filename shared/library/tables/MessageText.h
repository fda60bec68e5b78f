/// How a message is made from its text in a table: each `{}` gives way to a value.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace TarvikTables {

inline constexpr std::string_view messageHole = "{}";

constexpr std::size_t countHoles(std::string_view text) {
    std::size_t count = 0;
    for (auto at = text.find(messageHole); at != std::string_view::npos;
         at = text.find(messageHole, at + messageHole.size())) {
        ++count;
    }
    return count;
}

/// A text of a message table, with the number of its holes in its type, so that the compiler counts
/// the values that `fill` is given. A text with another number of holes does not compile.
template <std::size_t Holes>
class MessageText {
public:
    template <std::size_t Size>
    // NOLINTNEXTLINE(google-explicit-constructor, modernize-avoid-c-arrays): literals convert.
    consteval MessageText(const char (&literal)[Size]) : text(literal, Size - 1) {
        if (countHoles(text) != Holes) throw "the text has another number of holes";
    }

    [[nodiscard]] constexpr std::string_view view() const { return text; }

private:
    std::string_view text;
};

/// Puts the values into the holes of the text, left to right. A value that holds a `{}` of its own
/// goes in as it is: `fill(keyNotSupported, {key, section})`.
template <std::size_t Holes>
std::string fill(const MessageText<Holes>& message,
                 // NOLINTNEXTLINE(modernize-avoid-c-arrays): braces tell how many values there are.
                 const std::string_view (&values)[Holes]) {
    std::string_view text = message.view();
    std::string filled;
    for (const std::string_view value : values) {
        const auto hole = text.find(messageHole);
        filled.append(text.substr(0, hole)).append(value);
        text.remove_prefix(hole + messageHole.size());
    }
    return filled.append(text);
}

/// A text without holes, as it is.
inline std::string fill(const MessageText<0>& message) {
    return std::string(message.view());
}

}  // namespace TarvikTables
