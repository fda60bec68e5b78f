/// The older helpers for text, on which the handle format's idea of a blank rests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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

    /// What each of them would leave, as a view into the same bytes.
    [[nodiscard]] static std::string_view trimmed(std::string_view text);
    [[nodiscard]] static std::string_view trimmedLeft(std::string_view text);
    [[nodiscard]] static std::string_view trimmedRight(std::string_view text);

    /// Pops the first field: returns what stands before the first separator and leaves what stands
    /// behind it. Without a separator the whole text is the field, and nothing is left.
    static std::string split(std::string& text, char separator);

    /// All fields into `out`, which loses what it held. An empty text has no field; empty fields
    /// count only with `keepEmpty`, and never behind the last separator. Once `maxParts` less one
    /// fields are there, what is left is the last field, separators included.
    static void split(const std::string& text, char separator, std::vector<std::string>& out,
                      int maxParts, bool keepEmpty);

    /// By the C library, so by the process locale.
    static void makeLower(std::string& text);
    static void removeChar(std::string& text, char unwanted);

    /// Whether the pattern fits the whole text: "*" stands for any run of bytes, "?" for one. Case
    /// counts. A "?" right behind a star counts for nothing.
    ///
    /// Behind a star the match never goes back in the text, so that "*aab" does not fit "aaab".
    /// This limit is part of the handle format. An empty pattern fits nothing.
    static bool patternMatch(const std::string& pattern, const std::string& text);

    /// A fingerprint of the bytes; 0 for none. That of a long text can be taken block by block,
    /// each on top of the one `before`.
    static std::uint64_t hashLarge(const std::string& bytes, std::uint64_t before = 0);

    static std::string toString(long number);
};

}  // namespace Tarvik
