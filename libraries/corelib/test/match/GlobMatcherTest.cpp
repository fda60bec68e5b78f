#include "libraries/corelib/source/match/GlobMatcher.h"

#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace TarvikCorelib {
namespace {

using StringTools::widen;

constexpr auto all = GlobMatcher::NoLimit;

struct MatchCase {
    const char* text;
    std::vector<const char*> matching;
    std::vector<const char*> others;
    std::size_t pos = 0;
    std::size_t count = all;
};

const auto matches = std::to_array<MatchCase>({
    {"", {"", "*", "**"}, {"?", "?*", "*?", "a"}},
    {"a", {"a*", "*a", "?*"}, {"a*b", "b*a", "a?", "[a]", "\\a"}},
    {"ab", {"ab*", "?b", "*?b*"}, {"abc", "ab?", "a", "abc*", "a*a"}},
    {"aa", {"?a"}, {"a"}},
    {"abc", {"a?c", "a**c", "***c***", "*?c", "*??*?"}, {"", "a?", "????", "*??*??", "A*c"}},
    {"aabab", {"*ab", "*a?", "*b*b", "a*ab"}, {"*ba", "a*b?", "*ab?b*b"}},
    {"aXbXc", {"a*b*c", "*X*X*", "?X?X?"}, {"a*c*b", "a*b*b*c"}},
    {"a*/c?", {"a*c?", "a*", "a?/??"}, {"a\\*/c?", "a*/"}},
    {"abc", {"b*", "*", "?*"}, {"a*", "b", ""}, 1},
    {"abc", {"b*", "bc"}, {"b"}, 1, 1},
    {"abc", {}, {"*", "abc", ""}, 0, 0},
    {"abc", {"", "*"}, {"?*", "c"}, 3, 0},
    {"abc", {"", "*"}, {"?*", "c"}, 9},
});

TEST(GlobMatcherTest, MatchTakesAllOfTheTextFromPosAndNoCountButZero) {
    const auto expect = [](const MatchCase& row, const char* glob, bool expected) {
        EXPECT_EQ(GlobMatcher::match(row.text, glob, row.pos, row.count), expected)
            << row.text << ' ' << glob;
        EXPECT_EQ(GlobMatcher::match(widen(row.text), widen(glob), row.pos, row.count), expected)
            << row.text << ' ' << glob;
    };
    for (const MatchCase& row : matches) {
        for (const char* glob : row.matching)
            expect(row, glob, true);
        for (const char* glob : row.others)
            expect(row, glob, false);
    }
}

TEST(GlobMatcherTest, WithoutARangeTheWholeTextIsMatched) {
    EXPECT_FALSE(GlobMatcher::match("ab", "b"));
    EXPECT_TRUE(GlobMatcher::match("ab", "a?"));
    EXPECT_TRUE(GlobMatcher::match(L"ab", L"a?"));
    EXPECT_TRUE(GlobMatcher::matchIgnoreCase("AB", "a?"));
    EXPECT_TRUE(GlobMatcher::matchIgnoreCase(L"AB", L"a?"));
}

TEST(GlobMatcherTest, MatchIgnoreCaseLowersBothTextAndGlob) {
    EXPECT_TRUE(GlobMatcher::matchIgnoreCase("ABC", "a*c"));
    EXPECT_TRUE(GlobMatcher::matchIgnoreCase(L"abc", L"A*C"));
    EXPECT_FALSE(GlobMatcher::matchIgnoreCase(L"ABC", L"a*c", 1));
}

template <class Text>
std::string outcomeOf(const Text& text, const Text& glob, std::size_t pos, std::size_t count) {
    try {
        const auto [start, length] = GlobMatcher::find(text, glob, pos, count);
        return std::to_string(start) + "+" + std::to_string(length);
    } catch (const Exception& failure) {
        return failure.getFullMessage(true);
    }
}

struct FindCase {
    const char* text;
    std::size_t pos;
    std::size_t count;
    std::vector<std::pair<const char*, const char*>> outcomes;
};

constexpr auto notFound = "Find_NotFound:";
constexpr auto outOfBounds = "Find_OutOfBounds:";

const auto finds = std::to_array<FindCase>({
    {"abcabc", 0, all, {{"a*c", "0+3"}, {"a*c*", "0+6"}, {"**", "0+6"}, {"*b", "0+2"}}},
    {"abcabc", 0, all, {{"c?", "2+2"}, {"??", "0+2"}, {"", notFound}, {"b*d", notFound}}},
    {"abcabc", 3, all, {{"*?", "3+1"}, {"*?*", "3+3"}}},
    {"abcabc", 2, 3, {{"b*", "4+1"}, {"?*", "2+3"}, {"b?", notFound}, {"abc", notFound}}},
    {"aacaxb", 0, all, {{"a?b", "3+3"}, {"aa*a", "0+4"}, {"a?a", "1+3"}, {"ac", "1+2"}}},
    {"abc", 0, all, {{"*?", "0+1"}}},
    {"abc", 3, all, {{"a", outOfBounds}, {"", outOfBounds}}},
    {"abc", 0, 0, {{"*", outOfBounds}}},
});

TEST(GlobMatcherTest, FindGivesTheFirstStartAndTheShortestLengthOrThrows) {
    for (const auto& [text, pos, count, outcomes] : finds) {
        for (const auto& [glob, outcome] : outcomes) {
            EXPECT_EQ(outcomeOf<std::string>(text, glob, pos, count), outcome) << glob;
            EXPECT_EQ(outcomeOf(widen(text), widen(glob), pos, count), outcome) << glob;
        }
    }
}

}  // namespace
}  // namespace TarvikCorelib
