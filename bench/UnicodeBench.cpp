// Whole texts from UTF-8 to code points and back, beside iconv.

#include "libraries/corelib/source/system/Unicode.h"

#include <benchmark/benchmark.h>

#include <iconv.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace {

using TarvikCorelib::Unicode;

constexpr std::size_t textBytes = 1U << 20U;

// What is repeated in each text: one, two and three bytes a character, and a mixture.
constexpr auto samples = std::to_array<std::string_view>({
    "plain words of a file, ",
    "\xD1\x81\xD0\xBB\xD0\xBE\xD0\xB2\xD0\xB0",
    "\xE6\x96\x87\xE5\xAD\x97\xE5\x88\x97",
    "Gr\xC3\xBC\xC3\x9F"
    "e f\xC3\xBCr 5 \xE2\x82\xAC, ",
});

std::string textOf(const benchmark::State& state) {
    std::string text;
    while (text.size() < textBytes)
        text += samples[static_cast<std::size_t>(state.range(0))];
    return text;
}

// As the object does: into a fresh result each time.
template <class Result>
Result byIconv(iconv_t converter, const char* from, std::size_t left, std::size_t most) {
    Result result(most, {});
    auto* to = reinterpret_cast<char*>(result.data());
    std::size_t room = most * sizeof result[0];
    iconv(converter, const_cast<char**>(&from), &left, &to, &room);
    result.resize(most - room / sizeof result[0]);
    return result;
}

template <class Convert>
void onText(benchmark::State& state, std::size_t bytes, Convert convert) {
    for ([[maybe_unused]] auto _ : state) {
        auto result = convert();
        benchmark::DoNotOptimize(result);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void decodeUtf8(benchmark::State& state) {
    const std::string text = textOf(state);
    onText(state, text.size(), [&] {
        Unicode codes;
        codes.setUTF8(text);
        return codes;
    });
}

void decodeIconv(benchmark::State& state) {
    const std::string text = textOf(state);
    iconv_t converter = iconv_open("UTF-32LE", "UTF-8");
    onText(state, text.size(), [&] {
        return byIconv<std::vector<unsigned int>>(converter, text.data(), text.size(), text.size());
    });
    iconv_close(converter);
}

void encodeUtf8(benchmark::State& state) {
    const std::string text = textOf(state);
    Unicode codes;
    codes.setUTF8(text);
    onText(state, text.size(), [&] { return codes.getUTF8(); });
}

void encodeIconv(benchmark::State& state) {
    const std::string text = textOf(state);
    Unicode decoded;
    decoded.setUTF8(text);
    const char* codes = reinterpret_cast<const char*>(&decoded[0]);
    const std::size_t bytes = decoded.size() * sizeof decoded[0];
    iconv_t converter = iconv_open("UTF-8", "UTF-32LE");
    onText(state, text.size(),
           [&] { return byIconv<std::string>(converter, codes, bytes, text.size()); });
    iconv_close(converter);
}

BENCHMARK(decodeUtf8)->DenseRange(0, samples.size() - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(decodeIconv)->DenseRange(0, samples.size() - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(encodeUtf8)->DenseRange(0, samples.size() - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(encodeIconv)->DenseRange(0, samples.size() - 1)->Unit(benchmark::kMicrosecond);

}  // namespace
