/// The older helpers for text, on which the handle format's idea of a blank rests.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Tarvik {

/// Static operations on strings of bytes. The core library has a class of the same name with rules
/// of its own; neither set may stand in for the other.
class StringTools {
public:
    StringTools() = delete;

    // A blank is every byte that, read as a signed number, is at most 32: the control characters,
    // the space, and every byte from 0x80 up. So a name that ends in a UTF-8 letter loses that
    // letter's bytes. On purpose.

    /// How many bytes were removed.
    static std::size_t trim(std::string& text);
    static std::size_t trimLeft(std::string& text);
    static std::size_t trimRight(std::string& text);

    /// What `trim` would leave, as a view into the same bytes.
    [[nodiscard]] static std::string_view trimmed(std::string_view text);

    /// Pops the first field: returns what stands before the first separator and leaves what stands
    /// behind it. Without a separator the whole text is the field, and nothing is left.
    static std::string split(std::string& text, char separator);
};

}  // namespace Tarvik
