#include "shared/library/common/StringTools.h"

#include <gtest/gtest.h>

#include <array>

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

struct SplitCase {
    const char* text;
    const char* field;
    const char* rest;
};

constexpr auto splitCases = std::to_array<SplitCase>({
    {"a=b=c", "a", "b=c"},
    {"=b", "", "b"},
    {"a=", "a", ""},
    {"abc", "abc", ""},
    {"", "", ""},
});

TEST(StringToolsTest, SplitPopsTheFieldBeforeTheFirstSeparator) {
    for (const SplitCase& row : splitCases) {
        std::string text = row.text;
        EXPECT_EQ(StringTools::split(text, '='), row.field) << row.text;
        EXPECT_EQ(text, row.rest) << row.text;
    }
}

}  // namespace
}  // namespace Tarvik
