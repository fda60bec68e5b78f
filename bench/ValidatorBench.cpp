// Whole handles: from the file to the text of all faults.

#include "apps/handlechecker/validation/HandleValidator.h"
#include "test/support/TempDir.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "bench/HandleText.h"

namespace {

using Tarvik::HandleValidator;

constexpr std::int64_t megabyte = 1'000'000;

void validateAgainAndAgain(benchmark::State& state, HandleValidator& validator,
                           const std::string& handle, bool expected) {
    const tarvik_test::TempDir directory;
    std::string path = directory.write("bench.conf", handle);
    for ([[maybe_unused]] auto _ : state) {
        validator.loadHandle(path);
        if (validator.validate() != expected) {
            state.SkipWithError("the handle is not what it was made to be");
            break;
        }
        benchmark::DoNotOptimize(validator.getErrors());
    }
    const auto rounds = state.iterations();
    state.SetBytesProcessed(rounds * static_cast<std::int64_t>(handle.size()));
    state.SetItemsProcessed(rounds * tarvik_bench::linesOf(handle));
    state.SetComplexityN(state.range(0));
}

void validHandle(benchmark::State& state) {
    HandleValidator validator;
    validator.setFilechecking();
    validateAgainAndAgain(state, validator,
                          tarvik_bench::validHandle(static_cast<std::size_t>(state.range(0))),
                          true);
}

// With file checks, and a license file of one megabyte that a quarter of the lines refers to.
void licenseFileInEachRule(benchmark::State& state) {
    const tarvik_test::TempDir directory;
    const std::string license = directory.write("bench.lic", std::string(megabyte, 'x'));
    HandleValidator validator;
    validateAgainAndAgain(
        state, validator,
        tarvik_bench::validHandle(static_cast<std::size_t>(state.range(0)), license), true);
}

// As many paths as lines, all of one license file: each costs a look at the file system, none a
// reading.
void licenseFileInManySpellings(benchmark::State& state) {
    const tarvik_test::TempDir directory;
    std::string path = directory.write("bench.lic", std::string(megabyte, 'x'));
    const std::size_t name = path.rfind('/') + 1;
    std::string handle =
        "handle\n{\nname = a\nexecutables\n{\nmain = [type=include,exe=a]\n}\n"
        "licenses\n{\nlicense-type = flex\n";
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        path.insert(name, "./");
        handle += "license-file = " + path + "\nl" + std::to_string(i) + " = [license-file=yes]\n";
    }
    HandleValidator validator;
    // A license-file that is repeated is a fault.
    validateAgainAndAgain(state, validator, handle + "}\n}\n", state.range(0) < 2);
}

void allLinesAtFault(benchmark::State& state) {
    HandleValidator validator;
    validator.setFilechecking();
    validateAgainAndAgain(state, validator,
                          tarvik_bench::faultyHandle(static_cast<std::size_t>(state.range(0))),
                          false);
}

// The argument is the size of the handle in bytes: n, 10 n and 100 n.
void growTenfold(benchmark::internal::Benchmark* benchmark) {
    benchmark->RangeMultiplier(10)->Range(megabyte / 10, 10 * megabyte);
    benchmark->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);
}

BENCHMARK(validHandle)->Apply(growTenfold);
BENCHMARK(licenseFileInEachRule)->Apply(growTenfold);
BENCHMARK(licenseFileInManySpellings)->Arg(1)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(allLinesAtFault)->Apply(growTenfold);

}  // namespace
