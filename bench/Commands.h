/// Runs the commands that operations on files are measured beside.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

namespace tarvik_bench {

/// The paths in it are those of temporary directories, so they need no quotes.
inline void run(benchmark::State& state, const std::string& command) {
    // NOLINTNEXTLINE(cert-env33-c, concurrency-mt-unsafe): the command is one of ours.
    if (std::system(command.c_str()) != 0) state.SkipWithError(command.c_str());
}

}  // namespace tarvik_bench
