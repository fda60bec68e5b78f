/// A text as numbers of Unicode characters, and its ways to and from bytes.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace TarvikCorelib {

/// A string of code points. The static operations convert single characters and know the marks at
/// the front of files; the object converts whole texts, with the same results.
///
/// Positions and counts of the object are in code points, those of texts in bytes. Any number may
/// be stored; one that has no form in an encoding is left out there.
///
///     Unicode text;
///     text.setUTF8("\xC3\xA9t\xC3\xA9");
///     text.size();        // 3
///     text[0];            // 0xE9
///     text.getUTF16BE();  // "\0\xE9\0t\0\xE9"
class Unicode {
public:
    enum UnicodeEncoding : std::int32_t {
        UnknownEncoding = 0,
        PlainEncoding = 1,  ///< No mark, one byte a character.
        Utf8Encoding = 2,
        Utf16LeEncoding = 3,  ///< The low byte first.
        Utf16BeEncoding = 4,
    };

    /// Bytes that are no character; its one value says what is wrong.
    using Unicode_Invalid = NamedException<Unicode, "Unicode_Invalid">;
    /// Has no message.
    using IndexOutOfBounds = NamedException<Unicode, "IndexOutOfBounds">;

    Unicode() = default;
    explicit Unicode(std::vector<unsigned int> codePoints);
    Unicode(const Unicode&) = default;
    Unicode(Unicode&&) = default;
    Unicode& operator=(const Unicode&) = default;
    Unicode& operator=(Unicode&&) = default;
    virtual ~Unicode() = default;

    [[nodiscard]] std::size_t size() const { return codes.size(); }
    /// All four throw `IndexOutOfBounds` at the end and past it.
    unsigned int& operator[](std::size_t index);
    const unsigned int& operator[](std::size_t index) const;
    unsigned int& at(std::size_t index);
    const unsigned int& at(std::size_t index) const;

    // --- each may be given the object itself
    void push_back(unsigned int c);
    void push_back(const Unicode& other);
    void push_front(unsigned int c);
    void push_front(const Unicode& other);
    /// Throw `IndexOutOfBounds` past the end; at the end they append.
    void insert(std::size_t pos, unsigned int c);
    void insert(std::size_t pos, const Unicode& other);

    /// -1, 0 or 1: by the first different number, else by the length.
    [[nodiscard]] int compare(const Unicode& other) const;
    /// Quirk: always empty, whatever the arguments.
    [[nodiscard]] Unicode getSub(std::size_t pos, std::size_t n) const;

    /// The bytes of all code points, each as by `toUTF8` and its twins.
    [[nodiscard]] std::string getUTF8() const;
    [[nodiscard]] std::string getUTF16LE() const;
    [[nodiscard]] std::string getUTF16BE() const;
    /// Replace the content by the whole text, read as by `fromUTF8` and its twins. They throw
    /// `Unicode_Invalid` and keep what was decoded up to there.
    void setUTF8(std::string_view text);
    void setUTF16LE(std::string_view text);
    void setUTF16BE(std::string_view text);

    // --- one character

    /// Empty for a surrogate and from 0x200000 on.
    /// Quirk: the last surrogate, 0xDFFF, passes and is three bytes that `fromUTF8` refuses.
    static std::string toUTF8(unsigned int c);
    /// Surrogates pass as they are.
    /// Quirk: above 0xFFFF the first unit is not the standard's: (c & 0xFC00) + 0xD800, cut to 16
    /// bits. What was written must come out the same, so these characters are read as others.
    static std::string toUTF16LE(unsigned int c);
    static std::string toUTF16BE(unsigned int c);

    /// Decodes the character at `*p`, of which `n` bytes are there, and moves `*p` behind it. A
    /// zero byte is the character 0. Throws `Unicode_Invalid` for bytes that are no character, with
    /// `*p` behind those that were looked at, and if a pointer is null or `n` is 0.
    static unsigned int fromUTF8(const char** p, std::size_t n);
    /// An odd `n` is refused. The second unit of a pair is taken unchecked.
    static unsigned int fromUTF16LE(const char** p, std::size_t n);
    static unsigned int fromUTF16BE(const char** p, std::size_t n);
    /// The first character of a text.
    static unsigned int fromUTF8(std::string_view text);
    static unsigned int fromUTF16LE(std::string_view text);
    static unsigned int fromUTF16BE(std::string_view text);

    // --- lengths, without decoding

    /// The bytes of the character that begins so: 1 to 8, and 1 for bytes that begin none.
    static std::size_t getNumUTF8Bytes(unsigned char byte);
    /// The bytes of the character that begins with this unit, given as a number: 2 or 4.
    static std::size_t getNumUTF16LEBytes(std::uint16_t unit);
    static std::size_t getNumUTF16BEBytes(std::uint16_t unit);
    /// The number of characters from `pos` on, 0 past the end. The last one counts even if it is
    /// cut off, but half a unit does not.
    static std::size_t getUTF8Length(std::string_view text, std::size_t pos);
    static std::size_t getUTF16LELength(std::string_view text, std::size_t pos);
    static std::size_t getUTF16BELength(std::string_view text, std::size_t pos);

    // --- units. `unit` holds two bytes in the order in which they lie in memory.

    static std::uint16_t getBytePairFromLE(std::uint16_t unit);
    static std::uint16_t getBytePairFromBE(std::uint16_t unit);
    static std::uint16_t swapBytes(std::uint16_t unit);
    /// The two bytes as they lie in memory.
    static std::string toBytes(std::uint16_t unit);

    // --- marks at the front of a file

    using Boms = std::map<std::string, UnicodeEncoding>;
    /// Process-wide. The encoding of each mark; empty until `initBom` has filled it.
    // NOLINTNEXTLINE(readability-identifier-naming): an accessor keeps the name of its static.
    static const Boms& BomValues();
    /// Fills the table if it is empty. It takes no lock: call this, or one of the two below, before
    /// other threads start.
    static void initBom();
    /// Empty if the encoding has no mark.
    static std::string getBom(UnicodeEncoding encoding);
    /// The marks that begin with `prefix`: all of them if it is empty.
    static Boms getPotentialEncodings(const std::string& prefix);

private:
    std::vector<unsigned int> codes;
};

}  // namespace TarvikCorelib
