// The keys of a section's rules, each looked up among those before it.

#include "apps/handlechecker/validation/HandleValidator.h"

#include <benchmark/benchmark.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Tarvik::HandleValidator;

std::vector<std::string> ordinaryKeys(std::size_t count) {
    std::vector<std::string> keys;
    for (std::size_t number = 0; number < count; ++number)
        keys.push_back("rule" + std::to_string(number));
    return keys;
}

// Keys of an attacker: in a hash table of twice their number, all hashes point to one 64th of it.
std::vector<std::string> collidingKeys(std::size_t count) {
    constexpr std::size_t corners = 64;
    const std::size_t places = std::bit_ceil(2 * count);
    const std::hash<std::string_view> hash;
    std::vector<std::string> keys;
    for (std::size_t number = 0; keys.size() < count; ++number) {
        std::string key = "rule" + std::to_string(number);
        if (hash(key) % places < places / corners) keys.push_back(std::move(key));
    }
    return keys;
}

void checkAgainAndAgain(benchmark::State& state, std::vector<std::string> keys) {
    HandleValidator validator;
    // Two names of sections in turn: each round starts afresh.
    bool odd = false;
    for ([[maybe_unused]] auto _ : state) {
        odd = !odd;
        for (std::string& key : keys)
            validator.checkSimilarRules(odd ? "Executables" : "Filter", key);
    }
    if (!validator.getErrorList().empty()) state.SkipWithError("no key is there twice");
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

void differentKeys(benchmark::State& state) {
    checkAgainAndAgain(state, ordinaryKeys(static_cast<std::size_t>(state.range(0))));
}

void floodOfKeys(benchmark::State& state) {
    checkAgainAndAgain(state, collidingKeys(static_cast<std::size_t>(state.range(0))));
}

BENCHMARK(differentKeys)->RangeMultiplier(10)->Range(1'000, 100'000)->Complexity(benchmark::oN);
BENCHMARK(floodOfKeys)->RangeMultiplier(10)->Range(1'000, 100'000)->Complexity(benchmark::oNLogN);

}  // namespace
