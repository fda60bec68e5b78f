// The expression of a rule, taken apart.

#include "apps/handlechecker/validation/HandleValidator.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

namespace {

using Tarvik::HandleValidator;

void parseAgainAndAgain(benchmark::State& state, const std::string& expression) {
    HandleValidator validator;
    HandleValidator::RuleParameters parameters;
    for ([[maybe_unused]] auto _ : state) {
        if (!validator.parseValue(expression, parameters)) {
            state.SkipWithError("the expression is good and was refused");
            break;
        }
        benchmark::DoNotOptimize(parameters);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(expression.size()));
}

void typicalRule(benchmark::State& state) {
    parseAgainAndAgain(state, "[type=include,exe=planboard,args=\"*-edit*, -view*\",required=yes]");
}

// All of different names, in an order that is not theirs.
void manyParameters(benchmark::State& state) {
    std::string expression = "[";
    for (std::int64_t number = state.range(0); number > 0; --number) {
        if (expression.size() > 1) expression += ',';
        expression.append("name").append(std::to_string(number)).append("=\"a value\"");
    }
    parseAgainAndAgain(state, expression + "]");
    state.SetComplexityN(state.range(0));
}

BENCHMARK(typicalRule);
BENCHMARK(manyParameters)->RangeMultiplier(10)->Range(10, 10'000)->Complexity(benchmark::oNLogN);

}  // namespace
