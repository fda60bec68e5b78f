#include "libraries/corelib/source/text/StringTools.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cmath>
#include <exception>
#include <initializer_list>
#include <limits>
#include <vector>

namespace TarvikCorelib::StringTools {
namespace {

// What a text becomes. `change` is generic, so that each row runs on both widths.
template <class Change>
void expectChange(const char* name, std::string narrow, const char* expected, Change change) {
    std::wstring wide = widen(narrow);
    EXPECT_EQ(change(narrow), expected) << name;
    EXPECT_EQ(change(wide), widen(expected)) << name;
}

template <class Text>
Text as(std::string_view ascii) {
    return Text(ascii.begin(), ascii.end());
}

TEST(StringToolsTest, WhitespaceHasBackspaceAndOtherControlsAreBlankOnlyOnRequest) {
    expectChange("whitespace", "\b\f\x01 x \x01\v\b", "\x01 x \x01",
                 [](auto& text) { return trimRight(trimLeft(text, true), true); });
    expectChange("all up to 32", "\x01 x\x80 \x1f", "x\x80",
                 [](auto& text) { return trimRight(trimLeft(text, false), false); });
    expectChange("nothing else", " \t", "", [](auto& text) { return trimLeft(text, true); });
}

TEST(StringToolsTest, WordsBeginBehindFourBlanksAndSentencesBehindFullStops) {
    expectChange("words", "hELLO\twORLD-wide\vweb\n(a)\rb c", "Hello\tWorld-wide\vweb\n(a)\rB C",
                 [](auto& text) { return capitalize(text); });
    expectChange("sentences", "one Two.\r\n\tthree FOUR!five .six",
                 "One two.\r\n\tThree four!five .Six",
                 [](auto& text) { return capitalizeSentence(text); });
    expectChange("all", "aZ1", "az1AZ1", [](auto& text) {
        auto copy = text;
        return lower(text) + upper(copy);
    });
}

TEST(StringToolsTest, PartsAreSubstitutedFromTheLeft) {
    const auto change = [](const char* from, const char* to) {
        return [=](auto& text) {
            using Text = std::decay_t<decltype(text)>;
            return substitute(text, as<Text>(from), as<Text>(to));
        };
    };
    expectChange("each one", "a.b.", "a--b--", change(".", "--"));
    expectChange("what was inserted is not looked at", "aa", "aaaa", change("a", "aa"));
    expectChange("from the left", "aaa", "ba", change("aa", "b"));
    expectChange("taken out", "abab", "", change("ab", ""));
    expectChange("nothing to look for", "ab", "ab", change("", "x"));
}

TEST(StringToolsTest, OnePairOfEqualQuotesIsTakenOff) {
    const auto change = [](auto& text) { return unQuote(text); };
    expectChange("one pair goes", "''a''", "'a'", change);
    expectChange("of different kinds none goes", "'a\"", "'a\"", change);
    expectChange("a single quote is no pair", "'", "'", change);
    expectChange("a pair without more", "\"\"", "", change);
}

TEST(StringToolsTest, ARangeMayReachPastTheEnd) {
    const auto drop = [](std::size_t pos, std::size_t count) {
        return [=](auto& text) {
            return StringTools::erase(text, as<std::decay_t<decltype(text)>>("ab"), pos, count);
        };
    };
    expectChange("a range", "abcabc", "abcc", drop(3, 2));
    expectChange("past the end", "abcab", "abc", drop(3, 9));
    expectChange("behind the end", "ab", "ab", drop(3, npos));
    expectChange("all but a set", "xaybz", "xab", [](auto& text) {
        return eraseAllExcept(text, as<std::decay_t<decltype(text)>>("ab"), 1);
    });
    expectChange("reversed", "abcd", "acbd",
                 [](auto& text) { return StringTools::reverse(text, 1, 2); });
    expectChange("reversed past the end", "abc", "acb",
                 [](auto& text) { return StringTools::reverse(text, 1); });
}

TEST(StringToolsTest, OfOddPaddingTheLargerHalfIsOnTheRight) {
    expectChange("both sides", "ab", ".ab..", [](auto& text) { return pad(text, 5, '.'); });
    expectChange("left", "ab", "..ab", [](auto& text) { return padLeft(text, 4, '.'); });
    expectChange("right", "ab", "ab..", [](auto& text) { return padRight(text, 4, '.'); });
    expectChange("wide enough", "abc", "abc", [](auto& text) { return pad(text, 2, '.'); });
}

struct Piece {
    const char* name;
    const char* text;
    const char* piece;
    const char* rest;
};

template <class Take>
void expectPieces(std::initializer_list<Piece> rows, Take take) {
    for (const Piece& row : rows) {
        std::string narrow = row.text;
        std::wstring wide = widen(row.text);
        EXPECT_EQ(take(narrow), row.piece) << row.name;
        EXPECT_EQ(narrow, row.rest) << row.name;
        EXPECT_EQ(take(wide), widen(row.piece)) << row.name;
        EXPECT_EQ(wide, widen(row.rest)) << row.name;
    }
}

TEST(StringToolsTest, ATailIsTakenOffTheEndButRsplitSubstrTakesTheHead) {
    expectPieces({{"head", "a,b;c", "a", "b;c"}, {"no delimiter", "a", "a", ""}},
                 [](auto& text) { return split(text, as<std::decay_t<decltype(text)>>(";,")); });
    expectPieces({{"tail", "a,b;c", "c", "a,b"}, {"no delimiter", "a", "a", ""}},
                 [](auto& text) { return rsplit(text, as<std::decay_t<decltype(text)>>(";,")); });
    expectPieces({{"head", "a--b--c", "a", "b--c"}, {"none", "a-b", "a-b", ""}}, [](auto& text) {
        return splitSubstr(text, as<std::decay_t<decltype(text)>>("--"));
    });
    expectPieces({{"head", "a--b--c", "a--b", "c"}, {"none", "a-b", "a-b", ""}}, [](auto& text) {
        return rsplitSubstr(text, as<std::decay_t<decltype(text)>>("--"));
    });
    expectPieces({{"an empty delimiter", "ab", "", "ab"}}, [](auto& text) {
        const auto nothing = as<std::decay_t<decltype(text)>>("");
        return splitSubstr(text, nothing) + rsplitSubstr(text, nothing);
    });
    std::string text = "a=b=c";
    EXPECT_EQ(split(text, '=') + rsplit(text, '=') + text, "acb");
}

TEST(StringToolsTest, OccurrencesAreCountedInARange) {
    EXPECT_EQ(StringTools::count("aabaa", 'a', 1, 3), 2U);
    EXPECT_EQ(StringTools::count("aaaaa", "aa"), 2U);
    EXPECT_EQ(StringTools::count(L"aaaaa", L"aa", 1, 3), 1U);
    EXPECT_EQ(StringTools::count("a", 'a', 1) + StringTools::count("a", ""), 0U);
    EXPECT_EQ(countUpTo("xaab.a", 'a', 1, '.'), 2U);
    EXPECT_EQ(countUpTo(L"a", L'a', 5, L'.'), 0U);
    EXPECT_EQ(countDownTo("a.aab", 'a', 3, '.') + countDownTo("a", 'a', 0, 'a'), 2U);
    EXPECT_EQ(countDownTo("aa", 'a', npos, '.') + countDownTo("", 'a', 0, '.'), 2U);
}

struct Difference {
    const char* a;
    const char* b;
    std::size_t posA;
    std::size_t posB;
    std::size_t index;
};

constexpr auto differences = std::to_array<Difference>({
    {"abc", "abd", 0, 0, 2},
    {"xabc", "ab", 1, 0, 3},
    {"ab", "xabc", 0, 1, 2},
    {"xab", "ab", 1, 0, npos},
    {"", "", 0, 0, npos},
});

TEST(StringToolsTest, TheShorterTextDiffersAtItsEnd) {
    for (const auto& [a, b, posA, posB, index] : differences) {
        EXPECT_EQ(findFirstDiff(a, b, posA, posB), index) << a << ' ' << b;
        EXPECT_EQ(findFirstDiff(widen(a), widen(b), posA, posB), index) << a << ' ' << b;
    }
}

TEST(StringToolsTest, APartIsComparedByUnsignedCharacters) {
    EXPECT_EQ(subCompare("xabc", 1, "ab"), 0);
    EXPECT_EQ(subCompare("a\x80", 0, "az"), 1);
    EXPECT_EQ(subCompare(L"a", 0, L"a\xffffffff"), -1);
    EXPECT_EQ(subCompare(L"\xffffffff", 0, L"a"), 1);
    EXPECT_EQ(subCompare("ab", 1, "bc"), -1);
    EXPECT_EQ(subCompare("ab", 2, ""), 0);
    EXPECT_EQ(subCompare("ab", 3, ""), -1);
}

struct Unquoted {
    const char* name;
    const char* text;
    const char* part;
    std::size_t count;
    std::size_t index;
};

constexpr auto unquotedFinds = std::to_array<Unquoted>({
    {"outside", R"('=' "=" =)", "=", 0, 8},
    {"a closing quote is outside", R"(a"b")", "\"", 0, 3},
    {"neither kind hides the other", R"("'" ' =)", "=", 0, 6},
    {"a quote behind a backslash is none", R"(\"=)", "=", 0, 2},
    {"nor does it close", R"('\'=)", "=", 0, npos},
    {"two backslashes protect none", R"(\\"=)", "=", 0, npos},
    {"a backslash hides nothing else", R"(\=)", "=", 0, 1},
    {"quoted characters do not count", "'aaaa'b=", "=", 3, 7},
    {"not that far", "ab=", "=", 2, npos},
    {"a part", "'ab' xab", "ab", 0, 6},
    {"no more", "ab", "abc", 0, npos},
});

TEST(StringToolsTest, WhatIsInQuotesIsNotFound) {
    for (const Unquoted& row : unquotedFinds) {
        EXPECT_EQ(findNotQuoted(row.text, row.part, 0, row.count), row.index) << row.name;
        EXPECT_EQ(findNotQuoted(widen(row.text), widen(row.part), 0, row.count), row.index)
            << row.name;
    }
    EXPECT_EQ(findNotQuoted("='=", '=', 1), npos);
}

TEST(StringToolsTest, AHashWrapsInItsWidth) {
    // 255 * 37 * 37 + 37 + 2
    EXPECT_EQ(hashUInt64("\xff\x01\x02"), 349134U);
    EXPECT_EQ(hashUInt16("\xff\x01\x02"), 21454U);
    EXPECT_EQ(hashInt16("\xff\xff"), 9690);
    EXPECT_EQ(hashInt32(L"\xffffffff"), -1);
    EXPECT_EQ(hashInt64(L"\xffffffff"), 4294967295);
}

struct Items {
    const char* name;
    const char* text;
    std::size_t limit;
    bool skipEmpty;
    std::vector<std::string> items;
};

const auto splits = std::to_array<Items>({
    {"empty ones stay, but not at the end", ",a,,b,", 0, false, {"", "a", "", "b"}},
    {"they are left out", ",a,,b,", npos, true, {"a", "b"}},
    {"the rest is the last item", "a,b,c,", 2, false, {"a", "b,c,"}},
    {"skipped delimiters count for the limit", ",,a,b", 3, true, {"a,b"}},
    {"one item", "a,b", 1, false, {"a,b"}},
    {"of nothing", "", 0, false, {}},
});

TEST(StringToolsTest, APlainSplitHasNoEmptyItemAtTheEnd) {
    for (const Items& row : splits) {
        EXPECT_EQ(splitVector(row.text, ',', row.limit, row.skipEmpty), row.items) << row.name;
        std::list<std::wstring> wide;
        for (const std::string& item : row.items)
            wide.push_back(widen(item));
        EXPECT_EQ(splitList(widen(row.text), L";,", row.limit, row.skipEmpty), wide) << row.name;
    }
    EXPECT_EQ(splitList("a;;b", ';', 0, false), (std::list<std::string>{"a", "", "b"}));
    EXPECT_EQ(splitVector(L"a;b,c", L";,", 2, false), (std::vector<std::wstring>{L"a", L"b,c"}));
    EXPECT_EQ(splitSubstrList("a--b-c--", "--", 0, false), (std::list<std::string>{"a", "b-c"}));
    EXPECT_EQ(splitSubstrList("ab", "", 0, false), (std::list<std::string>{"ab"}));
    EXPECT_EQ(join(splitSet("b,a,b", ',', 0, false, false), "+"), "a+b+b");
    EXPECT_EQ(join(splitSubstrSet(L"b,a,b", L",", 0, false, true), L"+"), L"a+b");
}

TEST(StringToolsTest, AKeyReachesToTheNextKeyValueDelimiter) {
    const auto shown = [](const auto& pairs) { return join(pairs, "|", ":"); };
    EXPECT_EQ(shown(splitMap("a,b=1,c=2=3,d", ',', '=', false, false)), "a,b:1|c:2=3");
    EXPECT_EQ(shown(splitMap("=0,a=1;a=2,b=", ";,", "=", true, true)), "a:1|b:");
    EXPECT_EQ(shown(splitMap("=0,a=1,a=2", ',', '=', false, false)), ":0|a:1|a:2");
    EXPECT_EQ(join(splitSubstrMap(L"a:=1; b:=2", L"; ", L":=", false, false), L",", L"="),
              L"a=1,b=2");
}

TEST(StringToolsTest, LeadingEmptyItemsVanishInAJoin) {
    EXPECT_EQ(join(std::vector<std::string>{"", "", "a", "", "b"}, ","), "a,,b");
    EXPECT_EQ(join(std::multiset<std::wstring>{L"b", L"a"}, L", "), L"a, b");
    EXPECT_EQ(join(std::vector<std::wstring_view>{L"a", L"b"}, std::wstring(L"+")), L"a+b");
}

constexpr double infinity = std::numeric_limits<double>::infinity();

const std::vector<std::pair<const char*, const char*>> trims = {
    {"007.50", "7.5"}, {"0.50", ".5"}, {"70", "70"},       {"000", "000"},    {"12.", "12"},
    {"3.00", "3"},     {".000", "0"},  {"0.", "0"},        {"-0.50", "-0.5"}, {"-07", "-07"},
    {".", "."},        {"", ""},       {"0abc0", "0abc0"}, {"1.2.0", "1.2."}};

TEST(StringToolsTest, ZerosThatDoNotCountAreTrimmed) {
    for (const auto& [text, expected] : trims)
        expectChange(text, text, expected, [](auto& number) { return trimNumber(number); });
}

struct Rounding {
    const char* text;
    std::size_t decimals;
    const char* expected;
};

const std::vector<Rounding> roundings = {
    {"1.25", 1, "1.3"},  {"1.249", 1, "1.2"},     {"9.96", 1, "10.0"},
    {"99.5", 0, "100."}, {"-9.5", 0, "-10."},     {"+9.5", 0, "+10."},
    {"-.96", 1, "-1.0"}, {"1.5", 3, "1.500"},     {"7", 2, "7.00"},
    {"7", 0, "7"},       {"1.55", 2, "1.55"},     {"a.99", 1, "a1.0"},
    {".55", 1, ".55"},   {"1.2.55", 1, "1.2.55"}, {"-a.55", 1, "-a.55"},
    {"-", 1, "-"},       {".", 1, "."},           {"", 1, ""}};

TEST(StringToolsTest, ANumberIsRoundedInItsText) {
    for (const Rounding& row : roundings) {
        expectChange(row.text, row.text, row.expected,
                     [&row](auto& text) { return roundNumber(text, row.decimals, true); });
    }
    std::string text = "1.5";
    EXPECT_EQ(roundNumber(text, 3, false), "1.5");
}

struct Real {
    double number;
    const char* narrow;
    const wchar_t* wide;
};

const std::vector<Real> reals = {{-0.0, "0", L"0"},
                                 {-2.5, "-2.5", L"-2.5"},
                                 {1e-15, "0", L"0.000000000000001"},
                                 {-1e15, "-1000000000000000", L"-1000000000000000"},
                                 {1.5e21, "1.500000000000000e+21", L"1.500000000000000e+21"},
                                 {5e-300, "5.000000000000000e-3", L"5.000000000000000e-3"},
                                 {-infinity, "-inf", L"-inf"}};

TEST(StringToolsTest, AWideRealHasOneDecimalMoreAndAnIntegerAllItsDigits) {
    for (const Real& row : reals) {
        EXPECT_EQ(toString(row.number), row.narrow);
        EXPECT_EQ(toWString(row.number), row.wide);
    }
    EXPECT_EQ(toWString(~0ULL), L"18446744073709551615");
}

struct Whole {
    const char* text;
    int eight;
    unsigned thirtyTwo;
    long long sixtyFour;
};

const std::vector<Whole> wholes = {{"-3x", -3, 4294967293U, -3},
                                   {"+5", 5, 5, 0},
                                   {" 5", 5, 5, 0},
                                   {"", 0, 0, 0},
                                   {"300", 44, 300, 300},
                                   {"18446744073709551617", -1, 4294967295U, 1}};

TEST(StringToolsTest, ANumberTooWideIsCutOrWrapsAround) {
    for (const Whole& row : wholes) {
        EXPECT_EQ(toInt8(row.text), row.eight) << row.text;
        EXPECT_EQ(toUInt32(widen(row.text)), row.thirtyTwo) << row.text;
        EXPECT_EQ(toInt64(row.text), row.sixtyFour) << row.text;
        EXPECT_EQ(toInt64(widen(row.text)), row.sixtyFour) << row.text;
    }
    EXPECT_EQ(toInt64("9223372036854775808"), std::numeric_limits<long long>::min());
    EXPECT_EQ(toUInt64("-1"), 0U);
}

TEST(StringToolsTest, AViewEndsWhereItEndsAndALongTextIsReadToItsNumber) {
    const std::string_view digits = "12345";
    EXPECT_EQ(toInt16(digits.substr(1, 2)) + toDouble(digits.substr(3, 1)), 27);
    EXPECT_EQ(toInt32(std::string_view("1\0002", 3)), 1);
    EXPECT_EQ(toInt32(std::wstring(70, L' ') + L"-7"), -7);
    EXPECT_EQ(toDouble(std::string(40, ' ') + std::string(21, '0') + "1e+2x"), 100);
}

TEST(StringToolsTest, OnlyNothingAndZeroAreFalse) {
    EXPECT_FALSE(toBool("") || toBool("0") || toBool(L"0"));
    EXPECT_TRUE(toBool("false") && toBool("00") && toBool(L"false"));
}

TEST(StringToolsTest, OnlyTheNarrowFormCapsInfinity) {
    EXPECT_EQ(toDouble("inf"), 1.7976931348623157e308);
    EXPECT_EQ(toDouble(L"inf"), infinity);
    EXPECT_EQ(toDouble("-1e999"), -infinity);
    EXPECT_TRUE(std::isnan(toDouble("nan")));
}

TEST(StringToolsTest, WhatWasEscapedIsReadBack) {
    // "x" has no counterpart.
    EXPECT_EQ(escape("x\ta\n\\", "\n\tx", "nt", '\\'), R"(x\ta\n\\)");
    EXPECT_EQ(unescape(R"(x\ta\n\\)", "nt", "\n\tx", '\\'), "x\ta\n\\");
    EXPECT_EQ(escape(L"a,b!", L',', L'c', L'!'), L"a!cb!!");
    EXPECT_EQ(unescape(L"a!cb!!", L',', L'c', L'!'), L"a,b!");
    EXPECT_EQ(escape("abnt", "\n\t", "nt", '\\'), "abnt");
}

TEST(StringToolsTest, AnUnknownEscapeStaysAndALoneOneAtTheEndIsDropped) {
    EXPECT_EQ(unescape(R"(\a\n\)", "na", "\n", '\\'), "\\a\n");
    EXPECT_EQ(unescape(LR"(\)", L"n", L"\n", L'\\'), L"");
}

TEST(StringToolsTest, AWideCharacterThatTheLocaleLacksIsCutToItsLowByte) {
    EXPECT_EQ(convert(L"a\u20acz"), "a\xacz");
}

TEST(StringToolsTest, OneCharHoldsNoCharacterOfSeveralBytes) {
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    EXPECT_EQ(convert(L"a\u20acz"), "a\xe2\x82\xacz");
    EXPECT_EQ(convert(L'\u20ac'), '\xac');
    EXPECT_THROW(convert("\xe2\x82\xac"), std::exception);
    std::setlocale(LC_CTYPE, "C");
}

TEST(StringToolsTest, OnlySevenBitsAreWidened) {
    EXPECT_EQ(convert(std::string("a\0~", 3)), std::wstring(L"a\0~", 3));
    EXPECT_THROW(convert('\x80'), std::exception);
    EXPECT_THROW(pconvert("#65;\xe9"), std::exception);
}

TEST(StringToolsTest, EachPairOfAMapIsConverted) {
    const std::multimap<std::string, std::string> pairs{{"a", "2"}, {"a", "1"}};
    const std::multimap<std::wstring, std::wstring> pairsW{{L"a", L"2"}, {L"a", L"1"}};
    EXPECT_EQ(convert(pairs), pairsW);
    EXPECT_EQ(convert(pairsW), pairs);
}

TEST(StringToolsTest, NothingIsLostOnTheWayToNarrowAndBack) {
    const std::wstring wide = L"a ~;#\n\x7f\u20ac\xffffffff";
    const std::string narrow = "a ~;#35;#10;#127;#8364;#4294967295;";
    EXPECT_EQ(pconvert(wide), narrow);
    EXPECT_EQ(pconvert(narrow), wide);
    EXPECT_EQ(pconvert(L"#\n\u20ac", L"\n#"), "#\n#8364;");
}

TEST(StringToolsTest, AReferenceThatBreaksOffStaysAsItIs) {
    for (const char* text : {"#;", "a#12#", "#-5;", "#1x;"})
        EXPECT_EQ(pconvert(text), widen(text));
    EXPECT_EQ(pconvert("#1#A#65;"), L"#1#AA");
    EXPECT_EQ(pconvert("#99999999999999999999;"), L"\xffffffff");
}

TEST(StringToolsTest, TheLowestByteOfACharacterComesFirst) {
    constexpr std::string_view bytes("\x67\x45\x23\x81\0\xfe\xff\xff\xff\0", 10);
    EXPECT_EQ(encode(L"\x81234567\xfffffffe", 5), bytes);
    EXPECT_EQ(decode(bytes, 5), L"\x81234567\xfffffffe");
    EXPECT_EQ(decode(bytes.substr(0, 9), 5), L"\x81234567");
    EXPECT_EQ(encode(L"a", 3), "");
    EXPECT_EQ(decode(bytes, 3), L"");
}

TEST(StringToolsTest, TheRestOfTheBufferIsCleared) {
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
