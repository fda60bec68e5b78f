// The string tools, the splitters, templates and globs on long texts, beside a plain pass of
// `memchr`.

#include "libraries/corelib/source/diagnostics/Exception.h"
#include "libraries/corelib/source/text/GlobMatching.h"
#include "libraries/corelib/source/text/StringSplitter.h"
#include "libraries/corelib/source/text/StringToolsCharacters.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/source/text/StringToolsEscape.h"
#include "libraries/corelib/source/text/StringToolsHash.h"
#include "libraries/corelib/source/text/StringToolsSearch.h"
#include "libraries/corelib/source/text/StringToolsSplit.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace {

namespace StringTools = TarvikCorelib::StringTools;
using TarvikCorelib::ParamStream;
using TarvikCorelib::StringSplitter;

// Words of 3 to 12 letters, a comma behind each, a quoted one now and then.
std::string listOfWords(std::size_t size) {
    constexpr auto words = std::to_array<std::string_view>(
        {"cad", "planboard", "idle", "licence", "view", "simulation", "render", "'not used'"});
    std::string text;
    text.reserve(size + 12);
    for (std::size_t i = 0; text.size() < size; ++i)
        text.append(words[i * 7 % words.size()]).append(1, ',');
    text.resize(size);
    return text;
}

// One function of a text, again and again.
template <class Operation>
void run(benchmark::State& state, const std::string& text, Operation operation) {
    for ([[maybe_unused]] auto _ : state) {
        auto result = operation(text);
        benchmark::DoNotOptimize(result);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
    state.SetComplexityN(static_cast<std::int64_t>(text.size()));
}

template <class Operation>
void onWords(benchmark::State& state, Operation operation) {
    run(state, listOfWords(static_cast<std::size_t>(state.range(0))), operation);
}

// The floor: one pass that looks for a byte that is not there.
void memchrPass(benchmark::State& state) {
    onWords(state, [](const std::string& text) {
        // NOLINTNEXTLINE(bugprone-not-null-terminated-result): nothing is copied.
        return std::memchr(text.data(), '\x01', text.size());
    });
}

void plainSplit(benchmark::State& state) {
    onWords(state,
            [](const std::string& text) { return StringTools::splitVector(text, ',', 0, false); });
}

void splitterSplit(benchmark::State& state) {
    onWords(state, [](const std::string& text) { return StringSplitter::toVector(text, ','); });
}

void trimmedSplit(benchmark::State& state) {
    constexpr int flags = StringSplitter::SplitTrim | StringSplitter::SplitSkipEmpty;
    onWords(state,
            [](const std::string& text) { return StringSplitter::toVector(text, ',', flags); });
}

void quotedSplit(benchmark::State& state) {
    onWords(state, [](const std::string& text) {
        return StringSplitter::toVector(text, ',', StringSplitter::SplitQuoted);
    });
}

void keyValueSplit(benchmark::State& state) {
    onWords(state,
            [](const std::string& text) { return StringSplitter::toMap(text, ',', '=').size(); });
}

void joinItems(benchmark::State& state) {
    onWords(state, [items = std::vector<std::string>()](const std::string& text) mutable {
        if (items.empty()) items = StringTools::splitVector(text, ',', 0, false);
        return StringTools::join(items, ",");
    });
}

void joinQuoted(benchmark::State& state) {
    onWords(state, [items = std::vector<std::string>()](const std::string& text) mutable {
        if (items.empty()) items = StringTools::splitVector(text, ',', 0, false);
        return StringSplitter::join(items, ",", StringSplitter::SplitQuoted);
    });
}

void escapeSome(benchmark::State& state) {
    onWords(state,
            [](const std::string& text) { return StringTools::escape(text, ',', 'c', '\\'); });
}

void escapeNothing(benchmark::State& state) {
    onWords(state,
            [](const std::string& text) { return StringTools::escape(text, '\n', 'n', '\\'); });
}

void unescapeSome(benchmark::State& state) {
    onWords(state, [escaped = std::string()](const std::string& text) mutable {
        if (escaped.empty()) escaped = StringTools::escape(text, ',', 'c', '\\');
        return StringTools::unescape(escaped, ',', 'c', '\\');
    });
}

void substituteParts(benchmark::State& state) {
    onWords(state, [](std::string text) { return StringTools::substitute(text, ",", " and "); });
}

void eraseSet(benchmark::State& state) {
    onWords(state, [](std::string text) { return StringTools::erase(text, ",'"); });
}

void countParts(benchmark::State& state) {
    onWords(state, [](const std::string& text) { return StringTools::count(text, "ea"); });
}

void countChars(benchmark::State& state) {
    onWords(state, [](const std::string& text) { return StringTools::count(text, ','); });
}

void hash(benchmark::State& state) {
    onWords(state, [](const std::string& text) { return StringTools::hashUInt64(text); });
}

// A placeholder for each comma, and one value for a hundred of them.
void formatTemplate(benchmark::State& state) {
    std::string text = listOfWords(static_cast<std::size_t>(state.range(0)));
    StringTools::substitute(text, ',', '%');
    ParamStream values;
    for (int i = 0; i < state.range(0) / 800; ++i)
        values << "a value";
    run(state, text, [&values](const std::string& format) { return values.format(format); });
}

void readTemplate(benchmark::State& state) {
    onWords(state, [](const std::string& text) {
        return TarvikCorelib::Exception(text).getFullMessage(true);
    });
}

void widenAndNarrow(benchmark::State& state) {
    onWords(state, [](const std::string& text) {
        return StringTools::convert(StringTools::convert(text));
    });
}

// A glob with one star whose end is found at the end of the text only.
void globWithOneStar(benchmark::State& state) {
    onWords(state, [](const std::string& text) {
        const std::string_view end(text.data() + text.size() - 5, 5);
        return TarvikCorelib::matchGlob<char>(text, "*" + std::string(end), 0, StringTools::npos);
    });
}

// The worst there is: behind the star each retry compares half of the glob before it fails.
void globAtItsWorst(benchmark::State& state) {
    const auto size = static_cast<std::size_t>(state.range(0));
    const std::string glob = "*" + std::string(size / 2, 'a') + "b";
    run(state, std::string(size, 'a'), [&glob](const std::string& text) {
        return TarvikCorelib::matchGlob<char>(text, glob, 0, StringTools::npos);
    });
}

constexpr std::int64_t megabyte = 1'000'000;

void onOneAndTen(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(megabyte)->Arg(10 * megabyte)->Unit(benchmark::kMillisecond);
}

BENCHMARK(memchrPass)->Apply(onOneAndTen);
BENCHMARK(plainSplit)->Apply(onOneAndTen);
BENCHMARK(splitterSplit)->Apply(onOneAndTen);
BENCHMARK(trimmedSplit)->Apply(onOneAndTen);
BENCHMARK(quotedSplit)->Apply(onOneAndTen);
BENCHMARK(keyValueSplit)->Apply(onOneAndTen);
BENCHMARK(joinItems)->Apply(onOneAndTen);
BENCHMARK(joinQuoted)->Apply(onOneAndTen);
BENCHMARK(escapeSome)->Apply(onOneAndTen);
BENCHMARK(escapeNothing)->Apply(onOneAndTen);
BENCHMARK(unescapeSome)->Apply(onOneAndTen);
BENCHMARK(substituteParts)->Apply(onOneAndTen);
BENCHMARK(eraseSet)->Apply(onOneAndTen);
BENCHMARK(countParts)->Apply(onOneAndTen);
BENCHMARK(countChars)->Apply(onOneAndTen);
BENCHMARK(hash)->Apply(onOneAndTen);
BENCHMARK(formatTemplate)->Apply(onOneAndTen);
BENCHMARK(readTemplate)->Apply(onOneAndTen);
BENCHMARK(widenAndNarrow)->Apply(onOneAndTen);
BENCHMARK(globWithOneStar)->Apply(onOneAndTen);
BENCHMARK(globAtItsWorst)
    ->RangeMultiplier(10)
    ->Range(1'000, 100'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oNSquared);

}  // namespace
