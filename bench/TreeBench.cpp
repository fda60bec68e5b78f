// A tree of 10,000 files copied, listed and removed, beside `cp -r`, `find` and `rm -r`.

#include "libraries/filelib/source/directory/DirTools.h"
#include "libraries/filelib/source/directory/FileTools.h"
#include "test/support/TempDir.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <string>

#include "bench/Commands.h"

namespace {

using TarvikFilelib::DirTools;
using TarvikFilelib::FileTools;

constexpr int directories = 100;
constexpr int filesInEach = 100;

// One directory in ten is at the top; the others are in chains of nine below those.
void makeTree(const std::string& root) {
    std::string path = root;
    for (int i = 0; i < directories; ++i) {
        path = (i % 10 == 0 ? root : path) + "/d" + std::to_string(i);
        DirTools::ensureParentExists(path + "/");
        for (int j = 0; j < filesInEach; ++j)
            FileTools::stringToFile(path + "/f" + std::to_string(j), "some lines of a value\n");
    }
}

using Act = std::function<void(const std::string& path)>;

// `prepare` and `act` are given the tree and a second path; only `act` is timed.
void onTree(benchmark::State& state, const Act& prepare, const Act& act, const Act& clear) {
    const tarvik_test::TempDir directory;
    const std::string tree = directory.path() + "/tree";
    makeTree(tree);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        prepare(tree);
        state.ResumeTiming();
        act(tree);
        state.PauseTiming();
        clear(tree);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * directories * filesInEach);
}

void nothing(const std::string& /*tree*/) {}
void copyTree(const std::string& tree) {
    DirTools::copy(tree, tree + "2");
}
void listTree(const std::string& tree) {
    benchmark::DoNotOptimize(DirTools::getFileTree(tree));
}
void removeTree(const std::string& tree) {
    DirTools::remove(tree + "2", DirTools::RemoveRecursive);
}

// The command gets the tree and the second path where it has "$1" and "$2".
Act command(benchmark::State& state, const std::string& text) {
    return [&state, text](const std::string& tree) {
        tarvik_bench::run(state, "set " + tree + " " + tree + "2; " + text);
    };
}

void treeCopied(benchmark::State& state) {
    onTree(state, nothing, copyTree, removeTree);
}
void treeCopiedByCp(benchmark::State& state) {
    onTree(state, nothing, command(state, "cp -r $1 $2"), removeTree);
}
void treeListed(benchmark::State& state) {
    onTree(state, nothing, listTree, nothing);
}
void treeListedByFind(benchmark::State& state) {
    onTree(state, nothing, command(state, "find $1 -size -1000 > /dev/null"), nothing);
}
void treeRemoved(benchmark::State& state) {
    onTree(state, copyTree, removeTree, nothing);
}
void treeRemovedByRm(benchmark::State& state) {
    onTree(state, copyTree, command(state, "rm -r $2"), nothing);
}

BENCHMARK(treeCopied)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(treeCopiedByCp)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(treeListed)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(treeListedByFind)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(treeRemoved)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(treeRemovedByRm)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
