// What a value of the registry costs, beside the calls below it, and how much of that is the wait
// for the disk. The argument: 0 in memory, 1 on the disk.

#include "libraries/corelib/source/services/FileRegistry.h"
#include "test/support/ScopedEnv.h"
#include "test/support/TempDir.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <set>
#include <string>

namespace {

using TarvikCorelib::FileRegistry;

// A fresh registry that holds a number and a text at "a/k", and sixteen sub-keys of "a".
class Registry {
public:
    explicit Registry(const benchmark::State& state)
        : place("TMPDIR", state.range(0) == 0 ? "/dev/shm" : "/var/tmp") {
        FileRegistry::setRootDir(directory.path());
        FileRegistry::set(key, 1);
        FileRegistry::set(key, std::string("some text"));
        for (int i = 1; i < 16; ++i)
            directory.write("a/k" + std::to_string(i) + "/int32", "1\n");
    }

    [[nodiscard]] std::string valuePath() const { return directory.path() + "/a/k/int32"; }
    [[nodiscard]] std::string keyPath() const { return directory.path() + "/a/k"; }

    const std::string key = "a/k";

private:
    tarvik_test::ScopedEnv place;
    tarvik_test::TempDir directory;
};

template <class Call>
void measure(benchmark::State& state, Call call) {
    for ([[maybe_unused]] auto _ : state)
        if (call() != 0) state.SkipWithError("a call has failed");
}

// The floor of `registryGet`.
void openReadClose(benchmark::State& state) {
    const Registry registry(state);
    const std::string path = registry.valuePath();
    measure(state, [&path] {
        std::array<char, 64> bytes{};
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        const bool isRead = read(file, bytes.data(), bytes.size()) > 0;
        benchmark::DoNotOptimize(bytes);
        return close(file) == 0 && isRead ? 0 : -1;
    });
}

template <class Value>
void registryGet(benchmark::State& state) {
    const Registry registry(state);
    Value value{};
    measure(state, [&] { return FileRegistry::get(registry.key, value); });
}

void registryGetUnderLock(benchmark::State& state) {
    const Registry registry(state);
    int value = 0;
    measure(state, [&] { return FileRegistry::get(registry.key, value, true); });
}

// What the tool asks for where no directory is set.
void registryGetMissing(benchmark::State& state) {
    const Registry registry(state);
    std::string value;
    measure(state, [&] { return FileRegistry::get("none", value) - FileRegistry::NoSuchKey; });
}

void registrySet(benchmark::State& state) {
    const Registry registry(state);
    int value = 0;
    measure(state, [&] { return FileRegistry::set(registry.key, ++value); });
}

void registryModify(benchmark::State& state) {
    const Registry registry(state);
    measure(state, [&] { return FileRegistry::modify(registry.key, 1); });
}

// A file replaced by way of a temporary, as `registrySet` does it, with both waits for the disk or
// with none.
template <bool Syncs>
void replaceByRename(benchmark::State& state) {
    const Registry registry(state);
    const std::string path = registry.valuePath();
    const std::string temporary = path + ".cpytmp";
    const int directory = open(registry.keyPath().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    measure(state, [&] {
        const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        bool isGood = write(file, "1\n", 2) == 2;
        if (Syncs) isGood = fsync(file) == 0 && isGood;
        isGood = rename(temporary.c_str(), path.c_str()) == 0 && isGood;
        if (Syncs) isGood = fsync(directory) == 0 && isGood;
        return close(file) == 0 && isGood ? 0 : -1;
    });
    close(directory);
}

void registrySubKeys(benchmark::State& state) {
    const Registry registry(state);
    std::set<std::string> names;
    measure(state, [&names] { return FileRegistry::getSubKeys("a", names); });
}

}  // namespace

BENCHMARK(openReadClose)->Arg(0)->Arg(1);
BENCHMARK(registryGet<int>)->Arg(0)->Arg(1);
BENCHMARK(registryGet<std::string>)->Arg(0)->Arg(1);
BENCHMARK(registryGetUnderLock)->Arg(0)->Arg(1);
BENCHMARK(registryGetMissing)->Arg(0)->Arg(1);
BENCHMARK(registrySet)->Arg(0)->Arg(1)->UseRealTime();
BENCHMARK(registryModify)->Arg(0)->Arg(1)->UseRealTime();
BENCHMARK(replaceByRename<false>)->Arg(0)->Arg(1)->UseRealTime();
BENCHMARK(replaceByRename<true>)->Arg(0)->Arg(1)->UseRealTime();
BENCHMARK(registrySubKeys)->Arg(0)->Arg(1);
