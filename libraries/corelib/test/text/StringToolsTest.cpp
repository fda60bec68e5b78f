#include "libraries/corelib/source/text/StringTools.h"

#include "libraries/corelib/source/text/StringSearchers.h"

#include <gtest/gtest.h>

#include <array>

namespace TarvikCorelib::StringTools {
namespace {

struct QuoteCase {
    const char* name;
    std::string text;
    std::string result;
};

const auto quotes = std::to_array<QuoteCase>({
    {"double quotes", R"("a b")", "a b"},
    {"single quotes, with others inside", R"('"a"')", R"("a")"},
    {"two of different kinds stay", R"("a')", R"("a')"},
    {"a lone quote stays", R"(")", R"(")"},
    {"a pair around nothing", "''", ""},
    {"other equal ends stay", "-a-", "-a-"},
});

TEST(StringToolsTest, UnQuoteRemovesOnePairOfEqualQuotes) {
    for (const QuoteCase& row : quotes) {
        std::string text = row.text;
        EXPECT_EQ(unQuote(text), row.result) << row.name;
    }
}

TEST(StringToolsTest, SplitWithoutADelimiterTakesAll) {
    std::string text = "key==value";
    EXPECT_EQ(split(text, '='), "key");
    EXPECT_EQ(text, "=value");
    EXPECT_EQ(split(text, ','), "=value");
    EXPECT_EQ(text, "");
}

const auto escapes = std::to_array<QuoteCase>({
    {"a coded character gives its plain one", R"(a!xb!y)", "a1b2"},
    {"an escape character twice gives one", "a!!x", "a!x"},
    {"before any other character it stays", "a!z", "a!z"},
    {"at the end it is dropped", "ax!", "ax"},
    {"without any the text is itself", "axy", "axy"},
});

TEST(StringToolsTest, UnescapeReadsTheTable) {
    for (const QuoteCase& row : escapes)
        EXPECT_EQ(unescape(row.text, "xy", "12", '!'), row.result) << row.name;
}

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
    {"a text that fits ends at its end", "abcde", 5, 1},
    {"or at its line feed", "a\nbc", 1, 1},
    {"a line feed in front is a line with it", "\nabc", 1, 0},
    {"also before a long text", "\nabcdefgh", 1, 0},
    {"a blank is consumed", "ab cdefg", 2, 1},
    {"a blank right behind a full line too", "abcde fg", 5, 1},
    {"another break character stays", "ab-cdefg", 3, 0},
    {"even one right behind a full line", "abcde-fg", 6, 0},
    {"a word that is too long is cut", "abcdefgh", 5, 0},
    {"a break at the beginning is none", "-abcdefgh", 5, 0},
    {"a line feed right behind a full line", "abcde\nfg", 5, 1},
    {"one inside goes before it", "ab\ncd\nfg", 2, 1},
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
