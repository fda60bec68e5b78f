#include "libraries/corelib/source/text/StringTools.h"

#include "libraries/corelib/source/text/StringSearchers.h"

#include <gtest/gtest.h>

#include <array>

namespace TarvikCorelib::StringTools {
namespace {

TEST(StringToolsTest, AWideCharacterThatTheLocaleLacksIsCutToItsLowByte) {
    EXPECT_EQ(convert(L"a\u20acz"), "a\xacz");
}

struct LineCase {
    const char* name;
    const char* text;
    std::size_t start;
    std::size_t length;
};

constexpr auto lines = std::to_array<LineCase>({
    {"or at its line feed", "a\nbc", 1, 1},
    {"a line feed in front is a line with it", "\nabc", 1, 0},
    {"a blank is consumed", "ab cdefg", 2, 1},
    {"a blank right behind a full line too", "abcde fg", 5, 1},
    {"another break character stays", "ab-cdefg", 3, 0},
    {"even one right behind a full line", "abcde-fg", 6, 0},
    {"a word that is too long is cut", "abcdefgh", 5, 0},
    {"a break at the beginning is none", "-abcdefgh", 5, 0},
    {"a line feed right behind a full line", "abcde\nfg", 5, 1},
    {"one inside goes before a blank that fits", "ab\nc efg", 2, 1},
});

TEST(StringToolsTest, ALineEndsWhereItsWidthDoes) {
    const LineSizeSearcher searcher(5, " \n-");
    for (const LineCase& row : lines) {
        std::size_t start = 0;
        std::size_t length = 0;
        EXPECT_TRUE(searcher(start, length, row.text, 0, std::string::npos)) << row.name;
        EXPECT_EQ(start, row.start) << row.name;
        EXPECT_EQ(length, row.length) << row.name;
    }
}

TEST(StringToolsTest, ALineOfNoWidthIsNotFound) {
    std::size_t start = 0;
    std::size_t length = 0;
    EXPECT_FALSE(LineSizeSearcher(0, " ")(start, length, "a b", 0, std::string::npos));
    EXPECT_FALSE(LineSizeSearcher(5, " ")(start, length, "a b", 3, std::string::npos));
}

}  // namespace
}  // namespace TarvikCorelib::StringTools
