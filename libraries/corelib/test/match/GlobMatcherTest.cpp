#include "libraries/corelib/source/match/GlobMatcher.h"

#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace TarvikCorelib {
namespace {

using StringTools::widen;

constexpr auto all = GlobMatcher::NoLimit;

using Globs = std::vector<const char*>;
// A text, the globs that match it, those that do not, the position and the count.
using MatchCase = std::tuple<const char*, Globs, Globs, std::size_t, std::size_t>;

const auto matches = std::to_array<MatchCase>({
    {"", {"", "*", "**"}, {"?", "?*", "*?", "a"}, 0, all},
    {"a", {"a*", "*a", "?*"}, {"a*b", "b*a", "a?", "[a]", "\\a"}, 0, all},
    {"ab", {"ab*", "?b", "*?b*"}, {"abc", "ab?", "a", "abc*", "a*a"}, 0, all},
    {"abc",
     {"a?c", "a**c", "***c***", "*?c", "*??*?"},
     {"", "a?", "????", "*??*??", "A*c"},
     0,
     all},
    {"aabab", {"*ab", "*a?", "*b*b", "a*ab"}, {"*ba", "a*b?", "*ab?b*b"}, 0, all},
    {"aXbXc", {"a*b*c", "*X*X*", "?X?X?"}, {"a*c*b", "a*b*b*c"}, 0, all},
    {"a*/c?", {"a*c?", "a*", "a?/??"}, {"a\\*/c?", "a*/"}, 0, all},
    {"abc", {"b*", "bc"}, {"b"}, 1, 1},
    {"abc", {}, {"*", "abc", ""}, 0, 0},
    {"abc", {"", "*"}, {"?*", "c"}, 3, 0},
    {"abc", {"", "*"}, {"?*", "c"}, 9, all},
});

TEST(GlobMatcherTest, MatchTakesAllOfTheTextFromPosAndNoCountButZero) {
    for (const auto& [text, matching, others, pos, count] : matches) {
        for (const bool expected : {true, false}) {
            for (const char* const glob : expected ? matching : others) {
                EXPECT_EQ(GlobMatcher::match(text, glob, pos, count), expected) << text << glob;
                EXPECT_EQ(GlobMatcher::match(widen(text), widen(glob), pos, count), expected)
                    << text << glob;
            }
        }
    }
}

TEST(GlobMatcherTest, WithoutARangeTheWholeTextIsMatched) {
    EXPECT_TRUE(GlobMatcher::match("ab", "a?"));
    EXPECT_TRUE(GlobMatcher::match(L"ab", L"a?"));
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

using Outcomes = std::vector<std::pair<const char*, const char*>>;
// A text, the position, the count, and what comes of each glob.
using FindCase = std::tuple<const char*, std::size_t, std::size_t, Outcomes>;

constexpr auto notFound = "Find_NotFound:";
constexpr auto outOfBounds = "Find_OutOfBounds:";

const auto finds = std::to_array<FindCase>({
    {"abcabc", 0, all, {{"a*c", "0+3"}, {"a*c*", "0+6"}, {"**", "0+6"}, {"*b", "0+2"}}},
    {"abcabc", 0, all, {{"c?", "2+2"}, {"??", "0+2"}, {"", notFound}, {"b*d", notFound}}},
    {"abcabc", 3, all, {{"*?", "3+1"}, {"*?*", "3+3"}}},
    {"abcabc", 2, 3, {{"b*", "4+1"}, {"?*", "2+3"}, {"b?", notFound}, {"abc", notFound}}},
    {"aacaxb", 0, all, {{"a?b", "3+3"}, {"aa*a", "0+4"}, {"a?a", "1+3"}, {"ac", "1+2"}}},
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
