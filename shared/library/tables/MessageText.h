/// How a message is made from its text in a table: each `{}` gives way to a value.
#pragma once

#include <cassert>
#include <initializer_list>
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

/// Puts the values into the holes of the text, left to right. A value that holds a `{}` of its own
/// goes in as it is. There must be as many values as holes.
inline std::string fill(std::string_view text, std::initializer_list<std::string_view> values) {
    assert(countHoles(text) == values.size());
    std::string message;
    for (const std::string_view value : values) {
        const auto hole = text.find(messageHole);
        message.append(text.substr(0, hole)).append(value);
        text.remove_prefix(hole + messageHole.size());
    }
    return message.append(text);
}

}  // namespace TarvikTables
