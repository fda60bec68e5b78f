#include "libraries/corelib/source/text/StringSearchers.h"

#include "libraries/corelib/source/text/StringIterator.h"
#include "libraries/corelib/source/text/StringToolsCharacters.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <gtest/gtest.h>

#include <vector>

namespace TarvikCorelib::StringTools {
namespace {

// Without a cut `start` and `length` are all ones.
struct CutCase {
    const char* name;
    std::string text;
    std::size_t start = npos;
    std::size_t length = npos;
    std::size_t pos = 0;
    std::size_t count = npos;
};

// The searcher is no constant, as that of a caller may be.
template <class Searcher>
void expectCuts(Searcher searcher, const std::vector<CutCase>& rows) {
    for (const CutCase& row : rows) {
        const auto expectCut = [&](const auto& text) {
            std::size_t start = npos;
            std::size_t length = npos;
            EXPECT_EQ(searcher(start, length, text, row.pos, row.count), row.start != npos)
                << row.name;
            EXPECT_EQ(start, row.start) << row.name;
            EXPECT_EQ(length, row.length) << row.name;
        };
        const std::wstring wide = widen(row.text);
        expectCut(row.text);
        expectCut(wide);
        expectCut(std::string_view(row.text));
        expectCut(wide.c_str());
    }
}

TEST(StringSearchersTest, TheFirstCharacterOfTheSetIsFound) {
    expectCuts(CharSearcher(",;"), {{"either of two", "a;b,", 1, 1},
                                    {"from the position on", ",a;", 2, 1, 1},
                                    {"not behind the range", "ab;c", npos, npos, 0, 2},
                                    {"the last of a range", "ab;c", 2, 1, 0, 3},
                                    {"not past the end", ";", npos, npos, 1}});
    expectCuts(CharSearcher(""), {{"an empty set", "a"}});
}

TEST(StringSearchersTest, ACountIsReducedToWhatIsLeft) {
    std::size_t count = npos;
    EXPECT_FALSE(StringSearcher::validateParameters("ab", 2, count));
    EXPECT_TRUE(StringSearcher::validateParameters(L"ab", 1, count) && count == 1);
}

TEST(StringSearchersTest, QuotesHideACharacter) {
    expectCuts(CharSearcherUnquoted(",\""),
               {{"until both kinds close", R"('",' ",)", 5, 1},
                {"but not those before the position", R"("a,)", 2, 1, 1},
                {"nor does a backslash", R"('a'\,)", 4, 1},
                {"an escaped one hides nothing", R"(\',)", 2, 1}});
}

TEST(StringSearchersTest, AMatchOfAGlobIsConsumed) {
    expectCuts(GlobSearcher("a?c*d"), {{"the shortest", "xabc-dd", 1, 5},
                                       {"none", "abd"},
                                       {"nothing to look at", "abcd", npos, npos, 0, 0}});
    expectCuts(GlobSearcher(""), {{"an empty glob", "a"}});
}

TEST(StringSearchersTest, ALineEndsWhereItsWidthDoes) {
    expectCuts(LineSizeSearcher(5, " \n-"),
               {{"a text that fits ends at its end", "abcde", 5, 1},
                {"or at its line feed", "a\nbc", 1, 1},
                {"a line feed in front is a line with it", "\nabc", 1, 0},
                {"a blank is consumed", "ab cdefg", 2, 1},
                {"a blank right behind a full line too", "abcde fg", 5, 1},
                {"another break character stays", "ab-cdefg", 3, 0},
                {"even one right behind a full line", "abcde-fg", 6, 0},
                {"a word that is too long is cut", "abcdefgh", 5, 0},
                {"a break at the beginning is none", "-abcdefgh", 5, 0},
                {"a line feed right behind a full line", "abcde\nfg", 5, 1},
                {"one inside takes precedence over a blank", "ab\nc efg", 2, 1},
                {"the range ends a text", "-ab cdefg", 6, 1, 1, 5},
                {"lines begin at the position", "abc def ghi", 7, 1, 4}});
    expectCuts(LineSizeSearcher(5, "-"), {{"a line feed that may not break", "a-b\ncde", 2, 0},
                                          {"is left for the next line", "ab\ncdef", 2, 0},
                                          {"but behind a full line", "abcde\nf", 5, 1}});
    expectCuts(LineSizeSearcher(0, " "), {{"no width", "a b"}});
}

TEST(StringIteratorTest, BracketsCountInsideQuotesTooUnlessEscaped) {
    const std::wstring text = LR"(")((<[\()]]\"\\")";
    WStringIterator at;
    WStringIterator strict;
    strict.setOnlyQuotesEscapable(true);
    while (at.index() + 1 != text.size()) {
        at.next(text);
        strict.next(text);
    }
    EXPECT_EQ(at.getOpenParenthesis(L'('), 1U);
    EXPECT_EQ(strict.getOpenParenthesis(L'('), 2U);
    EXPECT_EQ(at.getOpenParenthesis(L'<'), 1U);
    EXPECT_EQ(at.getOpenParenthesis(L'['), 0U);
    EXPECT_FALSE(at.isQuoted() || strict.isQuoted());
}

TEST(StringIteratorTest, WithoutEscapesABackslashProtectsNothingUntilTheEnd) {
    StringIterator at;
    at.setNoEscapes(true);
    EXPECT_TRUE(at.next("\\'") && at.next("\\'") && at.isQuoted() && !at.next("\\'"));
    EXPECT_EQ(at.index(), StringIterator::NoIndex);
    EXPECT_FALSE(at.isQuoted());
    EXPECT_TRUE(at.next("\\'") && at.next("\\'") && !at.isQuoted());
}

}  // namespace
}  // namespace TarvikCorelib::StringTools
