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
    const char* valueless = "";
    bool good = true;
};

constexpr auto readCases = std::to_array<ReadCase>({
    {"a short quoted value before a long one", R"([b="b",a="just above sixteen"])",
     "a=just above sixteen|b=b|"},
    {"a long quoted value before another",
     R"([b="just above sixteen",a="just above sixteen, too"])",
     "a=just above sixteen, too|b=just above sixteen|"},
    {"names without a value", "[ x,y=1,]", "y=1|", " x||", false},
    {"one bracket", "[a=1", "", "", false},
    {"equal names in the order of writing", "[b=3,a=2,b=1,c=,b=2]", "a=2|b=3|b=1|b=2|c=|"},
    {"a comma behind quotes", R"([a="1,2",b=3])", "a=1,2|b=3|"},
    {"a backslash at the very end", R"(a="\)", "", "", false},
    {"no text", "", ""},
});

TEST(RuleExpressionTest, AnExpressionIsReadWhateverWasReadBefore) {
    RuleExpression shared;
    for (const ReadCase& row : readCases) {
        RuleExpression fresh;
        for (RuleExpression* const expression : {&fresh, &shared}) {
            EXPECT_EQ(expression->read(row.text), row.good) << row.name;
            std::string parameters;
            for (const auto& [name, value] : expression->parameters())
                parameters.append(name).append("=").append(value).append("|");
            EXPECT_EQ(parameters, row.parameters) << row.name;
            std::string valueless;
            for (const std::string_view name : expression->namesWithoutValue())
                valueless.append(name).append("|");
            EXPECT_EQ(valueless, row.valueless) << row.name;
        }
    }
}

}  // namespace
}  // namespace Tarvik
