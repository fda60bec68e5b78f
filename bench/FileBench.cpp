// Lines of a plain and of a compressed file, beside the calls of the C library and of zlib.

#include "libraries/filelib/source/file/File.h"

#include "libraries/filelib/source/file/BasicFile.h"
#include "libraries/filelib/source/file/ZFile.h"
#include "test/support/TempDir.h"

#include <benchmark/benchmark.h>
#include <zlib.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

namespace {

using TarvikFilelib::BasicFile;
using TarvikFilelib::File;
using TarvikFilelib::ZFile;

constexpr std::size_t fileSize = 8'000'000;

struct CloseStream {
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): called by the owner.
    void operator()(std::FILE* open) const { static_cast<void>(std::fclose(open)); }
    void operator()(gzFile open) const { gzclose(open); }
};

// Words that compress about as well as a log does; the argument is the mean length of a line.
std::string someLines(std::int64_t length) {
    std::string text;
    text.reserve(fileSize + 16);
    std::uint32_t seed = 1;
    std::int64_t inLine = 0;
    while (text.size() < fileSize) {
        seed = seed * 1'664'525 + 1'013'904'223;
        const std::string word = std::to_string(seed >> 18) + ' ';
        text += word;
        inLine += static_cast<std::int64_t>(word.size());
        if (inLine < length) continue;
        text.back() = '\n';
        inLine = 0;
    }
    return text;
}

std::string writeLines(const tarvik_test::TempDir& directory, const std::string& text,
                       const std::string& name) {
    File file(directory.path() + "/" + name);
    file.openOut(TarvikCorelib::Unicode::PlainEncoding);
    file.write(text);
    file.close();
    return file.getName();
}

// `readAll` reads the file and returns its number of lines.
template <class ReadAll>
void onLines(benchmark::State& state, const std::string& name, ReadAll readAll) {
    const std::string text = someLines(state.range(0));
    const tarvik_test::TempDir directory;
    const std::string path = writeLines(directory, text, name);
    std::int64_t lines = 0;
    for ([[maybe_unused]] auto _ : state)
        lines += readAll(path);
    state.SetItemsProcessed(lines);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

template <class OneFile>
std::int64_t readOurs(const std::string& path) {
    OneFile file(path);
    file.openIn();
    std::string line;
    std::int64_t lines = 0;
    for (; file.readLine(line); line.clear())
        ++lines;
    return lines;
}

template <class Next>
std::int64_t readTheirs(Next next) {
    std::array<char, 4096> line{};
    std::int64_t lines = 0;
    while (next(line.data(), static_cast<int>(line.size()))) {
        benchmark::DoNotOptimize(line);
        ++lines;
    }
    return lines;
}

std::int64_t readFgets(const std::string& path) {
    const std::unique_ptr<std::FILE, CloseStream> file(std::fopen(path.c_str(), "rb"));
    return readTheirs(
        [&file](char* line, int size) { return std::fgets(line, size, file.get()) != nullptr; });
}

std::int64_t readGzgets(const std::string& path) {
    const std::unique_ptr<gzFile_s, CloseStream> file(gzopen(path.c_str(), "rb"));
    return readTheirs(
        [&file](char* line, int size) { return gzgets(file.get(), line, size) != nullptr; });
}

void plainLines(benchmark::State& state) {
    onLines(state, "lines.txt", readOurs<BasicFile>);
}

void plainLinesByFacade(benchmark::State& state) {
    onLines(state, "lines.txt", readOurs<File>);
}

void plainLinesByFgets(benchmark::State& state) {
    onLines(state, "lines.txt", readFgets);
}

void compressedLines(benchmark::State& state) {
    onLines(state, "lines.gz", readOurs<ZFile>);
}

void compressedLinesByGzgets(benchmark::State& state) {
    onLines(state, "lines.gz", readGzgets);
}

BENCHMARK(plainLines)->Arg(10)->Arg(80)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(plainLinesByFacade)->Arg(80)->Unit(benchmark::kMillisecond);
BENCHMARK(plainLinesByFgets)->Arg(10)->Arg(80)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(compressedLines)->Arg(10)->Arg(80)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(compressedLinesByGzgets)->Arg(10)->Arg(80)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
