#include "shared/library/common/StringTools.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>
#include <vector>

namespace Tarvik {
namespace {

TEST(StringToolsTest, TrimTakesBytesAsSignedNumbers) {
    using Row = std::array<std::string, 4>;
    for (const auto& [name, text, leftTrimmed, rightTrimmed] :
         {Row{"blanks up to the space", "\t\x01 a b\x1f ", "a b\x1f ", "\t\x01 a b"},
          {"bytes from 0x80 up are blanks too", "\xc3\xa9x\xc3\xa9", "x\xc3\xa9", "\xc3\xa9x"},
          {"a byte of 127 is none", "\x7f", "\x7f", "\x7f"},
          {"blanks only leave nothing", " \xff\n", "", ""}}) {
        std::string left = text;
        std::string right = text;
        EXPECT_EQ(StringTools::trimLeft(left), text.size() - leftTrimmed.size()) << name;
        EXPECT_EQ(StringTools::trimRight(right), text.size() - rightTrimmed.size()) << name;
        EXPECT_EQ(left, leftTrimmed) << name;
        EXPECT_EQ(right, rightTrimmed) << name;
    }
    std::string both = " \xe9key \t";
    EXPECT_EQ(StringTools::trim(both), 4U);
    EXPECT_EQ(both, "key");
    EXPECT_EQ(StringTools::trimmed("\xe9 = \x80"), "=");
}

TEST(StringToolsTest, SplitIntoFieldsDropsEmptyOnesUnlessTheyAreKept) {
    using Row = std::tuple<const char*, int, bool, std::vector<std::string>>;
    for (const auto& [text, maxParts, keepEmpty, expected] :
         {Row{"a,,b,", 9, false, {"a", "b"}},
          {",a,,b,", 9, true, {"", "a", "", "b"}},
          {"abc", 9, false, {"abc"}},
          {"a,b,c", 2, false, {"a", "b,c"}},
          {",,a,b", 2, false, {"a", "b"}},
          {"a,b", 1, false, {"a,b"}}}) {
        std::vector<std::string> fields{"before"};
        StringTools::split(text, ',', fields, maxParts, keepEmpty);
        EXPECT_EQ(fields, expected) << '"' << text << "\" by " << maxParts;
    }
}

using PatternCase = std::tuple<const char*, const char*, bool>;

constexpr auto patternCases = std::to_array<PatternCase>({
    {"*=*", "a=1", true},      {"*=*", "a1", false},      {"*%", "50%", true},
    {"*%", "%", true},         {"??", "a", false},        {"?*", "a", true},
    {"?*", "", false},         {"*", "", true},           {"**", "", false},
    {"", "", false},           {"", "a", false},          {"A", "a", false},
    {"a*b", "aXbXb", true},    {"*ab", "aab", true},      {"*aab", "aaab", false},
    {"+????*", "+0200", true}, {"+????*", "+120", false}, {"a*?", "a", true},
    {"?**", "a", false},       {"?*?", "ab", true},       {"?", "ab", false},
    {"a**", "a", true},
});

TEST(StringToolsTest, APatternMatchesWithoutGoingBackInTheText) {
    for (const auto& [pattern, text, matches] : patternCases)
        EXPECT_EQ(StringTools::patternMatch(pattern, text), matches) << pattern << " on " << text;
}

TEST(StringToolsTest, TheHashTakesBytesAsSignedNumbersAndWraps) {
    EXPECT_EQ(StringTools::hashLarge("ab"), 97U * 37U + 98U);
    EXPECT_EQ(StringTools::hashLarge("\xff"), 18446744073709551615U);
}

}  // namespace
}  // namespace Tarvik
