#include "shared/library/common/StringTools.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace Tarvik {
namespace {

struct TrimCase {
    const char* name;
    std::string text;
    std::string left;
    std::string right;
};

const auto trimCases = std::to_array<TrimCase>({
    {"control characters and spaces are blanks", "\t\x01 a b\x1f ", "a b\x1f ", "\t\x01 a b"},
    {"bytes from 0x80 up are blanks too", "\xc3\xa9x\xc3\xa9", "x\xc3\xa9", "\xc3\xa9x"},
    {"a byte of 127 is none", "\x7f", "\x7f", "\x7f"},
    {"blanks only leave nothing", " \xff\n", "", ""},
});

TEST(StringToolsTest, TrimTakesBytesAsSignedNumbers) {
    for (const TrimCase& row : trimCases) {
        std::string left = row.text;
        std::string right = row.text;
        EXPECT_EQ(StringTools::trimLeft(left), row.text.size() - row.left.size()) << row.name;
        EXPECT_EQ(StringTools::trimRight(right), row.text.size() - row.right.size()) << row.name;
        EXPECT_EQ(left, row.left) << row.name;
        EXPECT_EQ(right, row.right) << row.name;
    }
    std::string both = " \xe9key \t";
    EXPECT_EQ(StringTools::trim(both), 4U);
    EXPECT_EQ(both, "key");
    EXPECT_EQ(StringTools::trimmed("\xe9 = \x80"), "=");
}

TEST(StringToolsTest, SplitPopsTheFieldBeforeTheFirstSeparator) {
    using Row = std::array<std::string, 3>;
    for (auto [text, field, rest] : {Row{"a=b=c", "a", "b=c"},
                                     {"=b", "", "b"},
                                     {"a=", "a", ""},
                                     {"abc", "abc", ""},
                                     {"", "", ""}}) {
        EXPECT_EQ(StringTools::split(text, '='), field);
        EXPECT_EQ(text, rest) << "after the field " << field;
    }
}

struct FieldsCase {
    const char* text;
    int maxParts;
    bool keepEmpty;
    std::vector<std::string> fields;
};

constexpr int unlimited = 2147483647;

const auto fieldsCases = std::to_array<FieldsCase>({
    {"", unlimited, true, {}},
    {",", unlimited, false, {}},
    {"a,,b,", unlimited, false, {"a", "b"}},
    {",a,,b,", unlimited, true, {"", "a", "", "b"}},
    {"abc", unlimited, false, {"abc"}},
    {"a,b,c", 2, false, {"a", "b,c"}},
    {",,a,b", 2, false, {"a", "b"}},
    {"a,b", 1, false, {"a,b"}},
});

TEST(StringToolsTest, SplitIntoFieldsDropsEmptyOnesUnlessTheyAreKept) {
    for (const FieldsCase& row : fieldsCases) {
        std::vector<std::string> fields{"before"};
        StringTools::split(row.text, ',', fields, row.maxParts, row.keepEmpty);
        EXPECT_EQ(fields, row.fields) << '"' << row.text << "\" by " << row.maxParts;
    }
}

struct PatternCase {
    const char* pattern;
    const char* text;
    bool matches;
};

constexpr auto patternCases = std::to_array<PatternCase>({
    {"*=*", "a=1", true},      {"*=*", "=1", true},     {"*=*", "a=", true},
    {"*=*", "a1", false},      {"*%", "50%", true},     {"*%", "%", true},
    {"??", "a", false},        {"?*", "a", true},       {"?*", "", false},
    {"*", "", true},           {"**", "", false},       {"", "", false},
    {"", "a", false},          {"A", "a", false},       {"a*b", "aXbXb", true},
    {"*ab", "aab", true},      {"*aab", "aaab", false}, {"+????*", "+0200", true},
    {"+????*", "+120", false}, {"a*?", "a", true},      {"?**", "a", false},
    {"?*?", "ab", true},       {"?", "a", true},        {"?", "ab", false},
    {"a**", "a", true},
});

TEST(StringToolsTest, APatternMatchesWithoutGoingBackInTheText) {
    for (const PatternCase& row : patternCases) {
        EXPECT_EQ(StringTools::patternMatch(row.pattern, row.text), row.matches)
            << row.pattern << " on " << row.text;
    }
}

TEST(StringToolsTest, TheHashTakesBytesAsSignedNumbersAndWraps) {
    EXPECT_EQ(StringTools::hashLarge(""), 0U);
    EXPECT_EQ(StringTools::hashLarge("ab"), 97U * 37U + 98U);
    EXPECT_EQ(StringTools::hashLarge("\xff"), 18446744073709551615U);
}

}  // namespace
}  // namespace Tarvik
