// The keys of a section's rules, each looked up among those before it.

#include "apps/handlechecker/validation/HandleValidator.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using Tarvik::HandleValidator;

void differentKeys(benchmark::State& state) {
    std::vector<std::string> keys;
    for (std::int64_t number = 0; number < state.range(0); ++number)
        keys.push_back("rule" + std::to_string(number));
    HandleValidator validator;
    // Two names of sections in turn: each round starts afresh.
    bool odd = false;
    for ([[maybe_unused]] auto _ : state) {
        odd = !odd;
        for (std::string& key : keys)
            validator.checkSimilarRules(odd ? "Executables" : "Filter", key);
    }
    if (!validator.getErrorList().empty()) state.SkipWithError("no key stands twice");
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

BENCHMARK(differentKeys)->RangeMultiplier(10)->Range(1'000, 100'000)->Complexity(benchmark::oN);

}  // namespace
