#include "apps/handlechecker/validation/RuleExpression.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace Tarvik {
namespace {

struct ReadCase {
    const char* name;
    const char* text;
    const char* parameters;  ///< Each with a "|" behind it.
    bool good = true;
};

constexpr auto readCases = std::to_array<ReadCase>({
    {"a short quoted value before a long one", R"([b="b",a="just above sixteen"])",
     "a=just above sixteen|b=b|"},
    {"a long quoted value before another",
     R"([b="just above sixteen",a="just above sixteen, too"])",
     "a=just above sixteen, too|b=just above sixteen|"},
    {"equal names in the order of writing", "[b=3,a=2,b=1,c=,b=2]", "a=2|b=3|b=1|b=2|c=|"},
    {"nothing", "", ""},
    {"blanks around values, and a further equals sign", "[b = two words ,a=b=c]",
     "a=b=c|b=two words|"},
    {"quotes inside values", R"([a="x,y",b=b"c d"e,c=" x "])", "a=x,y|b=bc de|c=x|"},
    {"escapes", R"([a="\q\\\"\x41",b="\ty",c="-\v-"])", "a=\\q\\\"\\x41|b=y|c=-\v-|"},
    {"an open quote drops its parameter", R"([b=1,a="x])", "b=1|"},
    {"an open quote hides the bracket", R"([b=1,a="x\)", "", false},
    {"a name in quotes ends the reading", R"([b=1,"a"=1,c=2])", "b=1|", false},
    {"no brackets", "a=1", "a=1|", false},
    {"one bracket", "[a=1", "", false},
    {"a name without a value", "[a=1,]", "a=1|", false},
});

TEST(RuleExpressionTest, TheParametersAreSortedAndKeepTheirBytes) {
    for (const ReadCase& row : readCases) {
        RuleExpression expression;
        EXPECT_EQ(expression.read(row.text), row.good) << row.name;
        expression.sortByName();
        std::string parameters;
        for (const auto& [name, value] : expression.parameters())
            parameters.append(name).append("=").append(value).append("|");
        EXPECT_EQ(parameters, row.parameters) << row.name;
    }
}

}  // namespace
}  // namespace Tarvik
