// Paths cleaned and contracted, beside the standard library's lexical form.

#include "libraries/filelib/source/path/PathTools.h"

#include <benchmark/benchmark.h>

#include <array>
#include <filesystem>
#include <string>

namespace {

using TarvikFilelib::PathTools;

const std::array<std::string, 6>& paths() {
    static const std::array<std::string, 6> texts = {
        "/usr/share/tarvik/handles/default.conf",
        "/usr//share/./tarvik/../tarvik/handles//default.conf",
        "conf/handles/../../logs/./today.log",
        "a/b/c/d/e/f/g/../../../../../../../h",
        "/var/lib/tarvik/registry/System/Network/Interfaces/Primary/Address/Value",
        "//server/share//x/./y/../z",
    };
    return texts;
}

template <class Operation>
void onEach(benchmark::State& state, Operation operation) {
    for ([[maybe_unused]] auto _ : state) {
        for (const std::string& path : paths()) {
            auto result = operation(path);
            benchmark::DoNotOptimize(result);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(paths().size()));
}

void cleanByGetValid(benchmark::State& state) {
    onEach(state, [](const std::string& path) { return PathTools::getValid(path, 3); });
}

void cleanInTwoSteps(benchmark::State& state) {
    onEach(state, [](const std::string& path) {
        return PathTools::getContracted(PathTools::getClean(path));
    });
}

void cleanByStandard(benchmark::State& state) {
    onEach(state, [](const std::string& path) {
        return std::filesystem::path(path).lexically_normal().string();
    });
}

// What a program that has a path object at hand pays.
void cleanByStandardReady(benchmark::State& state) {
    std::array<std::filesystem::path, 6> ready;
    std::copy(paths().begin(), paths().end(), ready.begin());
    for ([[maybe_unused]] auto _ : state) {
        for (const std::filesystem::path& path : ready) {
            auto result = path.lexically_normal();
            benchmark::DoNotOptimize(result);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(ready.size()));
}

BENCHMARK(cleanByGetValid);
BENCHMARK(cleanInTwoSteps);
BENCHMARK(cleanByStandard);
BENCHMARK(cleanByStandardReady);

}  // namespace
