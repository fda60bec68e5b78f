#include "libraries/corelib/source/system/Unicode.h"

#include <gtest/gtest.h>

#include <array>

namespace TarvikCorelib {
namespace {

using std::literals::operator""sv;  // NOLINT(misc-unused-using-decls): it is used.
using Codes = std::vector<unsigned int>;

struct EncodeCase {
    const char* name;
    unsigned int c;
    std::string_view utf8;
    std::string_view utf16;  // The high byte first.
};
constexpr auto encodeCases = std::to_array<EncodeCase>({
    {"the last surrogate but one", 0xDFFE, "", "\xDF\xFE"},
    {"the last surrogate passes", 0xDFFF, "\xED\xBF\xBF", "\xDF\xFF"},
    {"a pair that is not the standard's", 0x1F600, "\xF0\x9F\x98\x80", "\xCC\0\xDE\0"sv},
    {"the last of four bytes", 0x1FFFFF, "\xF7\xBF\xBF\xBF", "\xD4\0\xDF\xFF"sv},
    {"too large", 0x200000, "", "\xD8\0\xDC\0"sv},
});

TEST(UnicodeTest, ACodePointHasItsBytes) {
    for (const EncodeCase& row : encodeCases) {
        EXPECT_EQ(Unicode::toUTF8(row.c), row.utf8) << row.name;
        EXPECT_EQ(Unicode::toUTF16BE(row.c), row.utf16) << row.name;
    }
    EXPECT_EQ(Unicode::toUTF16LE(0x1F600), "\0\xCC\0\xDE"sv);
}

TEST(UnicodeTest, ALongTextIsThatOfItsCharacters) {
    std::string bytes;
    for (int i = 0; i < 1000; ++i)
        bytes += "\xE2\x82\xAC";
    Unicode text;
    text.setUTF8(bytes);
    EXPECT_EQ(text.compare(Unicode(Codes(1000, 0x20AC))), 0);
    text.push_front(0xD800);
    EXPECT_EQ(text.getUTF8(), bytes) << "a surrogate is left out";
    text.setUTF16LE(text.getUTF16LE().substr(2));
    EXPECT_EQ(text.getUTF8(), bytes);
}

struct DecodeCase {
    const char* name;
    unsigned int (*decode)(const char** p, std::size_t n);
    std::string_view text;
    unsigned int c;
    std::ptrdiff_t used;
    const char* fault = "";
};
constexpr auto decodeCases = std::to_array<DecodeCase>({
    {"a zero byte is passed", Unicode::fromUTF8, "\0a"sv, 0, 1},
    {"the largest", Unicode::fromUTF8, "\xF4\x8F\xBF\xBF", 0x10FFFF, 4},
    {"nothing", Unicode::fromUTF8, "", 0, 0, "void utf8)"},
    {"too long a form", Unicode::fromUTF8, "\xC0\x80", 0, 2, "invalid utf8)"},
    {"a surrogate", Unicode::fromUTF8, "\xED\xA0\x80", 0, 3, "invalid utf8)"},
    {"above the largest", Unicode::fromUTF8, "\xF4\x90\x80\x80", 0, 4, "invalid utf8)"},
    {"cut off", Unicode::fromUTF8, "\xE2\x82", 0, 2, "invalid utf8)"},
    {"cut off by a zero byte", Unicode::fromUTF8, "\xE2\0\xAC"sv, 0, 1, "invalid utf8)"},
    {"five bytes, told by the first", Unicode::fromUTF8, "\xF8", 0, 0, "> 4 bytes)"},
    {"a zero unit is passed", Unicode::fromUTF16LE, "\0\0"sv, 0, 2},
    {"a pair", Unicode::fromUTF16LE, "\x3D\xD8\0\xDE"sv, 0x1F600, 4},
    {"any second unit", Unicode::fromUTF16BE, "\xDB\xFF\0a"sv, 0x10FC61, 4},
    {"nothing", Unicode::fromUTF16BE, "", 0, 0, "void utf16be)"},
    {"half a unit", Unicode::fromUTF16LE, "a\0b"sv, 0, 0, "uneven utf16le)"},
    {"a low one alone", Unicode::fromUTF16LE, "\0\xDCz\0"sv, 0, 2, "illegal value uft16le);"},
    {"a low one alone", Unicode::fromUTF16BE, "\xDC\0\0z"sv, 0, 2, "illegal value uft16be);"},
    {"a high one alone", Unicode::fromUTF16LE, "\0\xD8"sv, 0, 2, "too short uft16le);"},
    {"a high one alone", Unicode::fromUTF16BE, "\xD8\0"sv, 0, 2, "too short uft16be);"},
});

TEST(UnicodeTest, DecodingMovesThePointerBehindWhatItLookedAt) {
    for (const DecodeCase& row : decodeCases) {
        const char* at = row.text.data();
        std::string fault;
        try {
            EXPECT_EQ(row.decode(&at, row.text.size()), row.c) << row.name;
        } catch (const Unicode::Unicode_Invalid& refused) {
            fault = refused.getFullMessage(false).substr(std::string("Invalid unicode (").size());
        }
        EXPECT_EQ(fault, row.fault) << row.name;
        EXPECT_EQ(at - row.text.data(), row.used) << row.name;
    }
    const char* none = nullptr;
    EXPECT_THROW(Unicode::fromUTF8(nullptr, 2), Unicode::Unicode_Invalid);
    EXPECT_THROW(Unicode::fromUTF16LE(&none, 2), Unicode::Unicode_Invalid);
}

TEST(UnicodeTest, ARefusedTextKeepsWhatWasDecodedBefore) {
    Unicode text(Codes{'o', 'l', 'd'});
    EXPECT_THROW(text.setUTF8("a\0\xC3"sv), Unicode::Unicode_Invalid);
    EXPECT_EQ(text.compare(Unicode(Codes{'a', 0})), 0);
    EXPECT_THROW(text.setUTF16LE("b\0c"sv), Unicode::Unicode_Invalid);
    EXPECT_EQ(text.size(), 0U);
}

TEST(UnicodeTest, ATextCanBeInsertedIntoItself) {
    Unicode text(Codes{1, 2});
    text.insert(1, text);
    text.push_back(text);
    text.push_front(9);
    EXPECT_EQ(text.compare(Unicode(Codes{9, 1, 1, 2, 2, 1, 1, 2, 2})), 0);
    EXPECT_THROW(text.insert(10, 0U), Unicode::IndexOutOfBounds);
    EXPECT_THROW(text[9], Unicode::IndexOutOfBounds);
}

TEST(UnicodeTest, APrefixIsLess) {
    const Unicode text(Codes{1, 2});
    EXPECT_EQ(text.compare(Unicode(Codes{1})), 1);
    EXPECT_EQ(text.compare(Unicode(Codes{1, 0xFFFFFFFF})), -1);
}

TEST(UnicodeTest, LengthsGoByTheFirstByteAlone) {
    EXPECT_EQ(Unicode::getNumUTF8Bytes(0xBF), 1U);
    EXPECT_EQ(Unicode::getNumUTF8Bytes(0xFF), 8U);
    EXPECT_EQ(Unicode::getUTF8Length("a\xC3zb\xF0", 1), 3U);
    const std::string_view units = "\0a\xD8\0\0b\0c\0"sv;
    EXPECT_EQ(Unicode::getUTF16BELength(units, 0), 3U);
    EXPECT_EQ(Unicode::getUTF16LELength("a\0\0\xD8"
                                        "b\0c\0z"sv,
                                        0),
              3U);
    EXPECT_EQ(Unicode::getUTF16LELength(units, 8), 0U) << "half a unit";
}

TEST(UnicodeTest, AMarkIsKnownByItsFirstBytes) {
    EXPECT_EQ(Unicode::getPotentialEncodings("").size(), 3U);
    EXPECT_EQ(Unicode::getPotentialEncodings("\xFF"),
              (Unicode::Boms{{"\xFF\xFE", Unicode::Utf16LeEncoding}}));
    EXPECT_TRUE(Unicode::getPotentialEncodings("\xFE\xFF\x41").empty()) << "longer than the mark";
    EXPECT_EQ(Unicode::getBom(Unicode::Utf8Encoding), "\xEF\xBB\xBF");
}

TEST(UnicodeTest, UnitsAreReadFromMemoryInTheNamedOrder) {
    EXPECT_EQ(Unicode::toBytes(Unicode::getBytePairFromLE(0x1234)), "\x34\x12");
    EXPECT_EQ(Unicode::getBytePairFromBE(0x1234), 0x3412);
}

}  // namespace
}  // namespace TarvikCorelib
