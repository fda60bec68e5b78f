// The line machine on lines that no section has to look into, read from a file as always.

#include "apps/handlechecker/validation/HandleValidator.h"
#include "test/support/TempDir.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace {

constexpr int repetitions = 10'000;

// Validates a good handle with the block repeated in its section `idle-detection`.
void validateRepeated(benchmark::State& state, std::string_view block, std::int64_t linesOfBlock) {
    std::string handle =
        "handle\n{\nname = PlanBoard Drafting\n"
        "executables\n{\nmain = [type=include,exe=planboard]\n}\nidle-detection\n{\n";
    for (int i = 0; i < repetitions; ++i)
        handle += block;
    handle += "}\n}\n";
    const tarvik_test::TempDir directory;
    std::string path = directory.write("bench.conf", handle);
    Tarvik::HandleValidator validator;
    for ([[maybe_unused]] auto _ : state) {
        validator.loadHandle(path);
        if (!validator.validate()) {
            state.SkipWithError("the lines have no fault");
            break;
        }
    }
    state.SetItemsProcessed(state.iterations() * repetitions * linesOfBlock);
}

void structuralLines(benchmark::State& state) {
    validateRepeated(state, "    counters\n    {\n    }  # none\n", 3);
}

void commentsAndBlankLines(benchmark::State& state) {
    validateRepeated(
        state,
        "    # Seats are short in the morning, so an idle session gives its seat back.\n\n#\n", 3);
}

BENCHMARK(structuralLines);
BENCHMARK(commentsAndBlankLines);

}  // namespace
