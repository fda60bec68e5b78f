#include "libraries/corelib/source/text/StringTools.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <exception>

namespace TarvikCorelib::StringTools {
namespace {

TEST(StringToolsTextTest, WhatWasEscapedIsReadBack) {
    // "x" has no counterpart.
    EXPECT_EQ(escape("x\ta\n\\", "\n\tx", "nt", '\\'), R"(x\ta\n\\)");
    EXPECT_EQ(unescape(R"(x\ta\n\\)", "nt", "\n\tx", '\\'), "x\ta\n\\");
    EXPECT_EQ(escape(L"a,b!", L',', L'c', L'!'), L"a!cb!!");
    EXPECT_EQ(unescape(L"a!cb!!", L',', L'c', L'!'), L"a,b!");
    EXPECT_EQ(escape("abnt", "\n\t", "nt", '\\'), "abnt");
}

TEST(StringToolsTextTest, AnUnknownEscapeStaysAndALoneOneAtTheEndIsDropped) {
    EXPECT_EQ(unescape(R"(\a\n\)", "na", "\n", '\\'), "\\a\n");
    EXPECT_EQ(unescape(LR"(\)", L"n", L"\n", L'\\'), L"");
}

TEST(StringToolsTextTest, AWideCharacterThatTheLocaleLacksIsCutToItsLowByte) {
    EXPECT_EQ(convert(L"a\u20acz"), "a\xacz");
}

TEST(StringToolsTextTest, OneCharHoldsNoCharacterOfSeveralBytes) {
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    EXPECT_EQ(convert(L"a\u20acz"), "a\xe2\x82\xacz");
    EXPECT_EQ(convert(L'\u20ac'), '\xac');
    EXPECT_THROW(convert("\xe2\x82\xac"), std::exception);
    std::setlocale(LC_CTYPE, "C");
}

TEST(StringToolsTextTest, OnlySevenBitsAreWidened) {
    EXPECT_EQ(convert(std::string("a\0~", 3)), std::wstring(L"a\0~", 3));
    EXPECT_THROW(convert('\x80'), std::exception);
    EXPECT_THROW(pconvert("#65;\xe9"), std::exception);
}

TEST(StringToolsTextTest, EachPairOfAMapIsConverted) {
    const std::multimap<std::string, std::string> pairs{{"a", "2"}, {"a", "1"}};
    const std::multimap<std::wstring, std::wstring> pairsW{{L"a", L"2"}, {L"a", L"1"}};
    EXPECT_EQ(convert(pairs), pairsW);
    EXPECT_EQ(convert(pairsW), pairs);
}

TEST(StringToolsTextTest, NothingIsLostOnTheWayToNarrowAndBack) {
    const std::wstring wide = L"a ~;#\n\x7f\u20ac\xffffffff";
    const std::string narrow = "a ~;#35;#10;#127;#8364;#4294967295;";
    EXPECT_EQ(pconvert(wide), narrow);
    EXPECT_EQ(pconvert(narrow), wide);
    EXPECT_EQ(pconvert(L"#\n\u20ac", L"\n#"), "#\n#8364;");
}

TEST(StringToolsTextTest, AReferenceThatBreaksOffStaysAsItIs) {
    for (const char* text : {"#;", "a#12#", "#-5;", "#1x;"})
        EXPECT_EQ(pconvert(text), widen(text));
    EXPECT_EQ(pconvert("#1#A#65;"), L"#1#AA");
    EXPECT_EQ(pconvert("#99999999999999999999;"), L"\xffffffff");
}

TEST(StringToolsTextTest, TheLowestByteOfACharacterComesFirst) {
    constexpr std::string_view bytes("\x67\x45\x23\x81\0\xfe\xff\xff\xff\0", 10);
    EXPECT_EQ(encode(L"\x81234567\xfffffffe", 5), bytes);
    EXPECT_EQ(decode(bytes, 5), L"\x81234567\xfffffffe");
    EXPECT_EQ(decode(bytes.substr(0, 9), 5), L"\x81234567");
    EXPECT_EQ(encode(L"a", 3), "");
    EXPECT_EQ(decode(bytes, 3), L"");
}

TEST(StringToolsTextTest, TheRestOfTheBufferIsCleared) {
    std::array<char, 6> buffer{'x', 'x', 'x', 'x', 'x', 'x'};
    EXPECT_FALSE(encode(L'a', buffer.data(), 3));
    EXPECT_TRUE(encode(L'b', buffer.data(), 5));
    EXPECT_EQ(buffer, (std::array<char, 6>{'b', 0, 0, 0, 0, 'x'}));
    EXPECT_TRUE(encode(L'c', buffer.data(), 4));
    wchar_t c = L'x';
    EXPECT_TRUE(!decode(c, buffer.data(), 3) && c == L'x');
    EXPECT_TRUE(decode(c, buffer.data(), 4) && c == L'c');
}

}  // namespace
}  // namespace TarvikCorelib::StringTools
