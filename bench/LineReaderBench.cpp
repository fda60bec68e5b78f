// The line reader alone.

#include "shared/library/common/BasicFile.h"
#include "test/support/TempDir.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using Tarvik::BasicFile;

constexpr std::size_t fileSize = 10'000'000;

// A file of lines of the same length, each with this end.
std::string linesOfLength(std::size_t length, const std::string& lineEnd) {
    const std::string line = std::string(length, 'x') + lineEnd;
    std::string text;
    text.reserve(fileSize + line.size());
    while (text.size() < fileSize) {
        text += line;
    }
    return text;
}

void readAgainAndAgain(benchmark::State& state, const std::string& lineEnd) {
    const std::string text = linesOfLength(static_cast<std::size_t>(state.range(0)), lineEnd);
    const tarvik_test::TempDir directory;
    const std::string path = directory.write("lines", text);
    std::string line;
    std::int64_t lines = 0;
    for ([[maybe_unused]] auto _ : state) {
        BasicFile file;
        file.open(path, Tarvik::AccessRead);
        while (!file.atEof(Tarvik::OperationRead)) {
            file.readLine(line);
            benchmark::DoNotOptimize(line);
            ++lines;
        }
    }
    state.SetItemsProcessed(lines);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void linesWithLineFeeds(benchmark::State& state) {
    readAgainAndAgain(state, "\n");
}

void linesWithCarriageReturns(benchmark::State& state) {
    readAgainAndAgain(state, "\r\n");
}

// The argument is the length of a line; the file has 10 MB always.
BENCHMARK(linesWithLineFeeds)
    ->Arg(10)
    ->Arg(40)
    ->Arg(4'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(linesWithCarriageReturns)->Arg(40)->Unit(benchmark::kMillisecond);

}  // namespace
