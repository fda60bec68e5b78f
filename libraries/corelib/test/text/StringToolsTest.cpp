#include "libraries/corelib/source/text/StringTools.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

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

struct Change {
    const char* name;
    const char* text;
    const char* expected;
};

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

struct Substitution {
    const char* name;
    const char* text;
    const char* from;
    const char* to;
    const char* expected;
};

constexpr auto substitutions = std::to_array<Substitution>({
    {"each one", "a.b.", ".", "--", "a--b--"},
    {"what was inserted is not looked at", "aa", "a", "aa", "aaaa"},
    {"from the left", "aaa", "aa", "b", "ba"},
    {"taken out", "abab", "ab", "", ""},
    {"nothing to look for", "ab", "", "x", "ab"},
});

TEST(StringToolsTest, PartsAreSubstitutedFromTheLeft) {
    for (const Substitution& row : substitutions) {
        expectChange(row.name, row.text, row.expected, [&row](auto& text) {
            using Text = std::decay_t<decltype(text)>;
            return substitute(text, as<Text>(row.from), as<Text>(row.to));
        });
    }
}

constexpr auto quotes = std::to_array<Change>({
    {"one pair goes", "''a''", "'a'"},
    {"of different kinds none goes", "'a\"", "'a\""},
    {"a single quote is no pair", "'", "'"},
    {"a pair without more", "\"\"", ""},
});

TEST(StringToolsTest, OnePairOfEqualQuotesIsTakenOff) {
    for (const Change& row : quotes)
        expectChange(row.name, row.text, row.expected, [](auto& text) { return unQuote(text); });
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

template <std::size_t Size, class Take>
void expectPieces(const std::array<Piece, Size>& rows, Take take) {
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
    expectPieces(
        std::to_array<Piece>({{"head", "a,b;c", "a", "b;c"}, {"no delimiter", "a", "a", ""}}),
        [](auto& text) { return split(text, as<std::decay_t<decltype(text)>>(";,")); });
    expectPieces(
        std::to_array<Piece>({{"tail", "a,b;c", "c", "a,b"}, {"no delimiter", "a", "a", ""}}),
        [](auto& text) { return rsplit(text, as<std::decay_t<decltype(text)>>(";,")); });
    expectPieces(
        std::to_array<Piece>({{"head", "a--b--c", "a", "b--c"}, {"none", "a-b", "a-b", ""}}),
        [](auto& text) { return splitSubstr(text, as<std::decay_t<decltype(text)>>("--")); });
    expectPieces(
        std::to_array<Piece>({{"head", "a--b--c", "a--b", "c"}, {"none", "a-b", "a-b", ""}}),
        [](auto& text) { return rsplitSubstr(text, as<std::decay_t<decltype(text)>>("--")); });
    expectPieces(std::to_array<Piece>({{"an empty delimiter", "ab", "", "ab"}}), [](auto& text) {
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

}  // namespace
}  // namespace TarvikCorelib::StringTools
