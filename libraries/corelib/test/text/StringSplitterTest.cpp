#include "libraries/corelib/source/text/StringSplitter.h"

#include "libraries/corelib/source/text/StringToolsConvert.h"
#include "libraries/corelib/source/text/StringToolsSplit.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

namespace TarvikCorelib {
namespace {

using Items = std::vector<std::string>;
using Set = std::set<std::string>;
using Map = std::map<std::string, std::string>;
using StringTools::convert;
using StringTools::join;
using StringTools::widen;

constexpr auto none = StringSplitter::NoLimit;
constexpr int trim = StringSplitter::SplitTrim;
constexpr int skip = StringSplitter::SplitSkipEmpty;
constexpr int skipValue = StringSplitter::SplitSkipEmptyValue;
constexpr int quoted = StringSplitter::SplitQuoted;

struct ListCase {
    const char* name;
    std::string text;
    int flags;
    std::size_t limit;
    Items items;
};

const auto lists = std::to_array<ListCase>({
    {"an empty text has no item", "", 0, none, {}},
    {"nor with a limit of 0", "", 0, 0, {}},
    {"a delimiter at the end makes no item", "a,b,", 0, none, {"a", "b"}},
    {"one at the beginning does", ",a", 0, none, {"", "a"}},
    {"unless empty ones are skipped", ",a,,b", skip, none, {"a", "b"}},
    {"the last of a limit takes the rest", "a,b,c", 0, 2, {"a", "b,c"}},
    {"skipped ones do not count", ",a,b, c", skip, 2, {"a", "b, c"}},
    {"a limit of 0 gives the whole text", " a,b", trim | skip, 0, {" a,b"}},
    {"blanks around an item", " a\t, ,b c ", trim | skip, none, {"a", "b c"}},
    {"trimmed, the rest keeps its end", "a, b ,c ", trim, 2, {"a", "b ,c "}},
    {"a quoted delimiter is none", "a 'b,c',d", quoted, none, {"a 'b,c'", "d"}},
    {"another quote takes over from the first", R"("a'b"c",d)", quoted, none, {R"("a'b"c")", "d"}},
    {"it can also close early", R"("a'b',d)", quoted, none, {R"("a'b')", "d"}},
    {"a backslash protects a quote", R"(\'a,b\\',c)", quoted, none, {R"(\'a)", R"(b\\',c)"}},
    {"but no delimiter", R"(a\,b)", quoted, none, {R"(a\)", "b"}},
});

TEST(StringSplitterTest, ToVectorFollowsItsFlags) {
    for (const auto& [name, text, flags, limit, items] : lists) {
        EXPECT_EQ(StringSplitter::toVector(text, ',', flags, limit), items) << name;
        const auto wide = StringSplitter::toVector(widen(text), L',', flags, limit);
        EXPECT_EQ(join(wide, L"|"), widen(join(items, "|"))) << name;
    }
}

TEST(StringSplitterTest, ADelimiterIsACharacterASubstringOrAnyOfASet) {
    const std::string text = "a-b->c>";
    EXPECT_EQ(StringSplitter::toVector(text, "->"), (Items{"a-b", "c>"}));
    EXPECT_EQ(StringSplitter::toVector("'->'->b", "->", quoted), (Items{"'->'", "b"}));
    EXPECT_EQ(StringSplitter::toListFirstOf(L"->", L"->"), (std::list<std::wstring>{L"", L""}));
    EXPECT_EQ(StringSplitter::toVectorFirstOf(text, "->"), (Items{"a", "b", "", "c"}));
    EXPECT_EQ(StringSplitter::toSetFirstOf(text, "->", quoted), (Set{"", "a", "b", "c"}));
}

TEST(StringSplitterTest, AnEmptyDelimiterDividesNothing) {
    for (const int flags : {0, quoted}) {
        EXPECT_EQ(StringSplitter::toVector(L"ab", L"", flags), std::vector<std::wstring>{L"ab"});
        EXPECT_EQ(StringSplitter::toVectorFirstOf("ab", "", flags), Items{"ab"});
        EXPECT_EQ(StringSplitter::toMap("a=b", ",", "", flags).at("a=b"), "");
    }
    std::string text = "ab";
    EXPECT_EQ(StringSplitter::left(text, "") + StringSplitter::right(text, ""), "");
    EXPECT_EQ(text, "ab");
}

TEST(StringSplitterTest, EqualItemsOfASetCountForItsLimit) {
    EXPECT_EQ(StringSplitter::toSet("a,a,b,c", ',', 0, 3), (Set{"a", "b,c"}));
    EXPECT_EQ(StringSplitter::toMultiSet(L"a,a,b", L","),
              (std::multiset<std::wstring>{L"a", L"a", L"b"}));
}

struct MapCase {
    const char* name;
    std::string text;
    int flags;
    std::multimap<std::string, std::string> pairs;
};

const auto maps = std::to_array<MapCase>({
    {"pairs with one key stay in order", "k=2,a=,k=1", 0, {{"a", ""}, {"k", "2"}, {"k", "1"}}},
    {"a value may hold the delimiter of keys", "a=b=c", 0, {{"a", "b=c"}}},
    {"without a delimiter there is no value", "a=1,b", 0, {{"a", "1"}, {"b", ""}}},
    {"one behind the item counts", "a,b=1", 0, {{"a,b", ""}, {"b", "1"}}},
    {"for each of the items before it", "a,b,c=1,d", skipValue, {{"c", "1"}}},
    {"empty keys and values are skipped", "=1,,a=,b=2", skip | skipValue, {{"b", "2"}}},
    {"a key loses its blanks", " a =1 , =2", trim | skip, {{"a", "1"}}},
    {"far from its delimiter, too", "a,b , =1", trim, {{"", "1"}, {"a,b ,", ""}, {"b ,", ""}}},
    {"a value with a blank in front gains what is before it", "k=  v ", trim, {{"k", "=  v"}}},
    {"unless it is trimmed away", "k= ,l=1", trim, {{"k", ""}, {"l", "1"}}},
    {"a quoted delimiter is none", "'a=b'=',',c", quoted, {{"'a=b'", "','"}, {"c", ""}}},
    {"nor is one for another key", "a,'='", quoted, {{"'='", ""}, {"a", ""}}},
});

TEST(StringSplitterTest, ToMultiMapCutsEachItemInTwo) {
    for (const auto& [name, text, flags, pairs] : maps) {
        EXPECT_EQ(StringSplitter::toMultiMap(text, ',', '=', flags), pairs) << name;
        EXPECT_EQ(StringSplitter::toMultiMap(widen(text), L",", L"=", flags), convert(pairs))
            << name;
    }
}

TEST(StringSplitterTest, AMapKeepsTheFirstPairOfAKeyAndAQuoteMayDelimitIt) {
    EXPECT_EQ(StringSplitter::toMapFirstOf("a:1;a=2", ",;", "=:"), (Map{{"a", "1"}}));
    EXPECT_EQ(StringSplitter::toMap("a'b=1", '\'', '=', quoted), (Map{{"a", ""}, {"b", "1"}}));
}

TEST(StringSplitterTest, LeftAndRightTakeApart) {
    std::string text = "a->b->c";
    EXPECT_EQ(StringSplitter::left(text, "->"), "a");
    EXPECT_EQ(StringSplitter::tRight(text, "->"), std::pair(std::string("b"), std::string("c")));
    EXPECT_EQ(StringSplitter::rightFirstOf(text, "->"), "c");
    EXPECT_EQ(text, "b-");
    EXPECT_EQ(StringSplitter::tLeft("b-c", '-'), std::pair(std::string("b"), std::string("c")));
}

TEST(StringSplitterTest, WithoutADelimiterLeftGivesAllAndRightThrows) {
    std::wstring text = L"ab";
    EXPECT_EQ(StringSplitter::tLeftFirstOf(text, L","), std::pair(text, std::wstring()));
    EXPECT_THROW(StringSplitter::tRight(text, L','), std::out_of_range);
    EXPECT_THROW(StringSplitter::right(text, L','), std::out_of_range);
    EXPECT_EQ(StringSplitter::left(text, L','), L"ab");
    EXPECT_EQ(text, L"");
}

struct EncodeCase {
    const char* name;
    const char* text;
    const char* encoded;
};

constexpr auto encodings = std::to_array<EncodeCase>({
    {"a plain text stays", "ab", "ab"},
    {"an escaped mark is none", R"(a\ \"\')", R"(a\ \"\')"},
    {"nor does one backslash escape two marks", R"(a\\ )", R"("a\\ ")"},
    {"but for a bang", R"(a\!)", R"("a\!")"},
    {"a delimiter wants quotes", "a,b", R"("a,b")"},
    {"that of keys too", "a=b", R"("a=b")"},
    {"so do a space and a single quote", "a b'", R"("a b'")"},
    {"a double quote wants single ones", R"(a" b)", R"('a" b')"},
    {"with both kinds each mark has its own", R"(a"' !)", R"(a'"'"'"' '!)"},
    {"two characters behind a delimiter get lost", R"('",xy=)", R"("'"'"'",""=")"},
    {"but none behind the end", R"('"b,x)", R"("'"'"'b",")"},
});

TEST(StringSplitterTest, WhatATextHoldsDecidesOnItsQuotes) {
    for (const EncodeCase& row : encodings)
        EXPECT_EQ(StringSplitter::internalEncode(row.text, ",", "="), row.encoded) << row.name;
}

TEST(StringSplitterTest, JoinPutsDelimitersBetween) {
    EXPECT_EQ(StringSplitter::join(Items{"", "a", "", "b c,"}, ","), "a,,b c,");
    EXPECT_EQ(StringSplitter::join(Set{"\"'", "a=", "b,"}, ",", quoted), R"('"'"'",a=,"b,")");
    const std::multimap<std::string, std::string> pairs{{"a", "1=2"}, {"a", "x y"}};
    EXPECT_EQ(StringSplitter::join(pairs, ", ", "="), "a=1=2, a=x y");
    EXPECT_EQ(StringSplitter::join(pairs, ", ", "=", quoted), R"(a="1=2", a="x y")");
    EXPECT_EQ(StringSplitter::join(std::array<std::string_view, 2>{"a", "b"}, ","), "a,b");
}

TEST(StringSplitterTest, VerifyMapFindsTheMissingKeys) {
    const Map map{{"a", ""}, {"b", "1"}};
    EXPECT_EQ(StringSplitter::verifyMap(map, " c, a,,'d,'"), (Set{"c", "'d,'"}));
    EXPECT_EQ(StringSplitter::verifyMap(map, std::list<std::string>{"b", ""}), Set{""});
    EXPECT_EQ(StringSplitter::verifyMap(map, {"b", "c"}), Set{"c"});
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
    {"two quotes are an empty one", R"('' "")", false, {"", ""}},
    {"an open quote stays", R"(x "ab)", false, {"x", R"("ab)"}},
    {"but not alone", R"(x ")", false, {"x", ""}},
});

TEST(StringSplitterTest, SplitArgStringReadsACommandLine) {
    for (const ArgumentCase& row : argumentCases)
        EXPECT_EQ(StringSplitter::splitArgString(row.text, row.decode), row.arguments) << row.name;
}

}  // namespace
}  // namespace TarvikCorelib
