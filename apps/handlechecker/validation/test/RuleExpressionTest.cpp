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
};

constexpr auto readCases = std::to_array<ReadCase>({
    {"a short quoted value before a long one", R"([b="b",a="just above sixteen"])",
     "a=just above sixteen|b=b|"},
    {"a long quoted value before another",
     R"([b="just above sixteen",a="just above sixteen, too"])",
     "a=just above sixteen, too|b=just above sixteen|"},
    {"equal names in the order of writing", "[b=3,a=2,b=1,c=,b=2]", "a=2|b=3|b=1|b=2|c=|"},
});

TEST(RuleExpressionTest, TheParametersAreSortedAndKeepTheirBytes) {
    for (const ReadCase& row : readCases) {
        RuleExpression expression;
        EXPECT_TRUE(expression.read(row.text)) << row.name;
        std::string parameters;
        for (const auto& [name, value] : expression.parameters())
            parameters.append(name).append("=").append(value).append("|");
        EXPECT_EQ(parameters, row.parameters) << row.name;
    }
}

}  // namespace
}  // namespace Tarvik
