// Many faults, rendered: as the tool's JSON and as the validator's one text.

#include "apps/handlechecker/HandleChecker.h"
#include "apps/handlechecker/validation/HandleValidator.h"
#include "test/support/TempDir.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "bench/HandleText.h"

namespace {

constexpr std::int64_t faultCount = 100'000;

// In bytes, on the average.
constexpr std::int64_t lineLength = 53;

std::string handleWithFaults(std::int64_t count) {
    return tarvik_bench::faultyHandle(static_cast<std::size_t>(count * lineLength));
}

void asJson(benchmark::State& state) {
    const tarvik_test::TempDir directory;
    directory.write("bench.conf", handleWithFaults(state.range(0)));
    std::string program = "HandleChecker";
    char* argument = program.data();
    Tarvik::HandleChecker checker(1, &argument);
    std::string path = directory.path();
    checker.validateHandleDir(path);
    for ([[maybe_unused]] auto _ : state)
        checker.parseResultsToJsonFormat();
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

void asText(benchmark::State& state) {
    const tarvik_test::TempDir directory;
    std::string path = directory.write("bench.conf", handleWithFaults(state.range(0)));
    Tarvik::HandleValidator validator;
    validator.setFilechecking();
    validator.loadHandle(path);
    validator.validate();
    std::int64_t bytes = 0;
    for ([[maybe_unused]] auto _ : state)
        bytes += static_cast<std::int64_t>(validator.getErrors().size());
    state.SetBytesProcessed(bytes);
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

// The argument is about the number of faulty lines.
void growTenfold(benchmark::internal::Benchmark* benchmark) {
    benchmark->RangeMultiplier(10)->Range(faultCount / 100, faultCount);
    benchmark->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);
}

BENCHMARK(asJson)->Apply(growTenfold);
BENCHMARK(asText)->Apply(growTenfold);

}  // namespace
