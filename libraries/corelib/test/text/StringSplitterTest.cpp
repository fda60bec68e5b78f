#include "libraries/corelib/source/text/StringSplitter.h"

#include <gtest/gtest.h>

#include <array>

namespace TarvikCorelib {
namespace {

constexpr auto none = StringSplitter::NoLimit;
constexpr int trimAndSkip = StringSplitter::SplitTrim | StringSplitter::SplitSkipEmpty;

struct ListCase {
    const char* name;
    const char* text;
    int flags;
    std::size_t limit;
    std::list<std::string> items;
};

const auto lists = std::to_array<ListCase>({
    {"an empty text has no item", "", 0, none, {}},
    {"a delimiter at the end makes no item", "a,b,", 0, none, {"a", "b"}},
    {"one at the beginning does", ",a", 0, none, {"", "a"}},
    {"unless empty ones are skipped", ",a,,b", StringSplitter::SplitSkipEmpty, none, {"a", "b"}},
    {"the last of a limit takes the rest", "a,b,c", 0, 2, {"a", "b,c"}},
    {"skipped ones do not count", ",a,b, c", StringSplitter::SplitSkipEmpty, 2, {"a", "b, c"}},
    {"a limit of 0 gives the whole text", " a,b", trimAndSkip, 0, {" a,b"}},
    {"blanks around an item", " a\t, ,b c ", trimAndSkip, none, {"a", "b c"}},
    {"trimmed, the rest keeps its end", "a, b ,c ", StringSplitter::SplitTrim, 2, {"a", "b ,c "}},
});

TEST(StringSplitterTest, ToListFollowsItsFlags) {
    for (const ListCase& row : lists)
        EXPECT_EQ(StringSplitter::toList(row.text, ',', row.flags, row.limit), row.items)
            << row.name;
}

struct ArgumentCase {
    const char* name;
    const char* text;
    bool decode;
    std::vector<std::string> arguments;
};

const auto argumentCases = std::to_array<ArgumentCase>({
    {"spaces separate, tabs do not", " a  b\tc ", false, {"a", "b\tc"}},
    {"a line feed ends all, even in quotes", "a 'b\nc' d", false, {"a", "'b"}},
    {"a line feed in front leaves nothing", "\na", false, {}},
    {"outer quotes go", R"("a b" 'c d')", false, {"a b", "c d"}},
    {"a double quote in front takes any last character along", R"("ab"cd)", false, {R"(ab"c)"}},
    {"a single one only its like", "'ab'cd", false, {"'ab'cd"}},
    {"quotes inside stay", R"(--x="a b")", false, {R"(--x="a b")"}},
    {"an escaped quote does not close", R"("a\"b c")", false, {R"(a\"b c)"}},
    {"decoded it is a quote", R"("a\"b c")", true, {R"(a"b c)"}},
    {"codes, a zero, and what is no code", R"('a\t\0\q\\b')", true, {"a\t\\q\\\\b"}},
    {"outside quotes nothing is decoded", R"(a\t)", true, {R"(a\t)"}},
    {"an open quote stays", R"(x "ab)", false, {"x", R"("ab)"}},
    {"but not alone", R"(x ")", false, {"x", ""}},
});

TEST(StringSplitterTest, SplitArgStringReadsACommandLine) {
    for (const ArgumentCase& row : argumentCases)
        EXPECT_EQ(StringSplitter::splitArgString(row.text, row.decode), row.arguments) << row.name;
}

}  // namespace
}  // namespace TarvikCorelib
