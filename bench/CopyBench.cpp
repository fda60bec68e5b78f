// A large file copied, beside `cp`. Both targets are new each time.

#include "libraries/filelib/source/directory/FileTools.h"
#include "test/support/TempDir.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <string>

#include "bench/Commands.h"

namespace {

using TarvikFilelib::CopyParams;
using TarvikFilelib::FileTools;

using Copy = std::function<void(const std::string& from, const std::string& to)>;

void onFile(benchmark::State& state, const Copy& copy) {
    constexpr std::size_t size = std::size_t{256} << 20U;
    const tarvik_test::TempDir directory;
    const std::string from = directory.write("from", std::string(size, 'x'));
    const std::string to = directory.path() + "/to";
    for ([[maybe_unused]] auto _ : state) {
        copy(from, to);
        state.PauseTiming();
        FileTools::remove(to);
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

void copyFile(benchmark::State& state) {
    CopyParams params(0, 64U << 10U);
    onFile(state, [&](const std::string& from, const std::string& to) {
        FileTools::copy(from, to, params);
    });
}

void copyFileByCp(benchmark::State& state) {
    onFile(state, [&](const std::string& from, const std::string& to) {
        tarvik_bench::run(state, "cp --reflink=never " + from + " " + to);
    });
}

BENCHMARK(copyFile)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(copyFileByCp)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
