// The line machine on lines that no section has to look into.

#include "apps/handlechecker/validation/HandleValidator.h"

#include <benchmark/benchmark.h>

#include <array>
#include <iterator>
#include <string>

namespace {

using Tarvik::HandleValidator;

void structuralLines(benchmark::State& state) {
    static const auto lines = std::to_array<std::string>({
        "handle",
        "{",
        "    name = PlanBoard Drafting",
        "    executables",
        "    {",
        "    }  # none",
        "    licenses",
        "    {",
        "    }",
        "    filter",
        "    {",
        "    }",
        "    priorities",
        "    {",
        "    }",
        "}",
    });
    HandleValidator validator;
    for ([[maybe_unused]] auto _ : state) {
        validator.clear();
        for (const std::string& line : lines)
            benchmark::DoNotOptimize(validator.parseLine(line));
    }
    if (!validator.getErrorList().empty()) state.SkipWithError("the lines have no fault");
    state.SetItemsProcessed(state.iterations() * std::ssize(lines));
}

void commentsAndBlankLines(benchmark::State& state) {
    static const auto lines = std::to_array<std::string>({
        "    # Seats are short in the morning, so an idle session gives its seat back.",
        "",
        "#",
        "        ",
    });
    HandleValidator validator;
    for ([[maybe_unused]] auto _ : state) {
        for (const std::string& line : lines)
            benchmark::DoNotOptimize(validator.parseLine(line));
    }
    state.SetItemsProcessed(state.iterations() * std::ssize(lines));
}

BENCHMARK(structuralLines);
BENCHMARK(commentsAndBlankLines);

}  // namespace
