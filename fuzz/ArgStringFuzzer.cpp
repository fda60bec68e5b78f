// Any text as a command line, taken apart into its arguments.

#include "libraries/corelib/source/text/StringSplitter.h"

#include <numeric>

#include "fuzz/Feed.h"

namespace {

using fuzz::check;
using TarvikCorelib::StringSplitter;

using Arguments = std::vector<std::string>;

void checkArguments(const std::string& text, bool decode) {
    const Arguments arguments = StringSplitter::splitArgString(text, decode);
    const std::size_t length =
        std::accumulate(arguments.begin(), arguments.end(), std::size_t{0},
                        [](std::size_t sum, const std::string& word) { return sum + word.size(); });
    check(length <= text.size());
    for (const std::string& argument : arguments)
        check(decode || argument.find('\n') == std::string::npos);

    // What follows a line feed is never read.
    check(StringSplitter::splitArgString(text + "\n'more", decode) == arguments);
    // Without quotes it is a list of words.
    const std::string line = text.substr(0, text.find('\n'));
    if (line.find_first_of("'\"") != std::string::npos) return;
    check(StringSplitter::toVector(line, ' ', StringSplitter::SplitSkipEmpty) == arguments);
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    checkArguments(text, false);
    checkArguments(text, true);
    return 0;
}
