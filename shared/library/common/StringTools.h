/// The older helpers for text. They settle what a blank is in the handle format.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik {

/// Static operations on strings of bytes. A verb changes its argument, a participle returns a view
/// of a part of it. The core library has a class of the same name with other rules: neither can
/// replace the other.
///
///     std::string line = "key = a, b ";
///     const std::string key = StringTools::split(line, '=');  // "key "
///     StringTools::trimmed(line);                             // "a, b"
///     StringTools::split("a,,b,c,", ',', parts, 3, true);     // To "a", "" and "b,c,".
class StringTools {
public:
    StringTools() = delete;

    // A blank is a byte that, read as a signed number, is at most 32: the control characters, the
    // space, and every byte from 0x80 up.
    // Quirk: a name that ends in a UTF-8 letter loses that letter.

    static constexpr bool isBlank(char byte) { return static_cast<signed char>(byte) <= 32; }

    /// Each removes the blanks at both ends or at one, and returns how many bytes that were.
    static std::size_t trim(std::string& text);
    static std::size_t trimLeft(std::string& text);
    static std::size_t trimRight(std::string& text);

    /// The text without those blanks, as a view into the same bytes.
    [[nodiscard]] static std::string_view trimmed(std::string_view text);
    [[nodiscard]] static std::string_view trimmedLeft(std::string_view text);
    [[nodiscard]] static std::string_view trimmedRight(std::string_view text);

    /// Removes the first field and its separator from the text and returns the field, which may be
    /// empty. Without a separator the whole text is the field, and the text becomes empty.
    static std::string split(std::string& text, char separator);

    /// Replaces `out` by the fields of the text. Empty fields are kept only with `keepEmpty`, and
    /// never at the end; an empty text has no field at all. As soon as `out` has `maxParts` less
    /// one fields, the rest of the text is the last one, separators included.
    static void split(const std::string& text, char separator, std::vector<std::string>& out,
                      int maxParts, bool keepEmpty);

    /// Byte by byte with the C library's `tolower`, so by the process locale.
    static void makeLower(std::string& text);
    /// Removes every occurrence of the byte.
    static void removeChar(std::string& text, char unwanted);

    /// Returns whether the pattern matches the whole text: "*" stands for any number of bytes, "?"
    /// for one. Case matters. An empty pattern matches nothing.
    ///
    /// Quirk: a "?" right behind a star is ignored: "a*?" matches "a".
    /// Quirk: once past a star, the match never goes back in the text: "*aab" does not match
    /// "aaab".
    static bool patternMatch(const std::string& pattern, const std::string& text);

    /// A fingerprint of the bytes, not safe against forgery; 0 for no bytes. A long text can be
    /// hashed block by block, with the result for the earlier blocks as `before`.
    ///
    /// Quirk: a byte from 0x80 up is signed and subtracts.
    static std::uint64_t hashLarge(const std::string& bytes, std::uint64_t before = 0);

    /// In decimal digits.
    static std::string toString(long number);

    /// The digits are "0" to "9" in every locale.
    static constexpr bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }
    /// True for an empty text, too.
    [[nodiscard]] static bool holdsOnlyDigits(std::string_view text);
};

// Inline, since every line of a handle passes through these several times.
inline std::string_view StringTools::trimmed(std::string_view text) {
    return trimmedLeft(trimmedRight(text));
}

inline std::string_view StringTools::trimmedLeft(std::string_view text) {
    std::size_t start = 0;
    while (start < text.size() && isBlank(text[start])) {
        ++start;
    }
    return {text.data() + start, text.size() - start};
}

inline std::string_view StringTools::trimmedRight(std::string_view text) {
    std::size_t end = text.size();
    while (end > 0 && isBlank(text[end - 1])) {
        --end;
    }
    return {text.data(), end};
}

}  // namespace Tarvik
