// Any words as a command line, for a program with one option of each type.

#include "libraries/corelib/source/system/CmdParser.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using TarvikCorelib::CmdParser;

void specify(CmdParser& parser) {
    parser.specifyOptionOnlyArg("Only", 'a', "alpha");
    parser.specifyOptionOnlyArg("Letter only", 'b', "");
    parser.specifyOptionWithValueArg("With a value", 'f', "file", {});
    parser.specifyRequiredOptionWithFixedValuesArg("One of two", 'm', "mode", {"off", "on"});
    parser.specifyOptionEqualsValue("Equals", "level");
    parser.specifyRemainder("All the rest", "rest");
    parser.specifyValueArg("SOURCE");
}

std::vector<std::string> wordsIn(const std::string& text) {
    std::vector<std::string> words;
    std::size_t start = 0;
    for (std::size_t end = text.find('\n'); end != std::string::npos;
         end = text.find('\n', start)) {
        words.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    words.push_back(text.substr(start));
    return words;
}

void ask(CmdParser& parser, bool accepted, const std::string& output) {
    if (!accepted && output.empty()) std::abort();
    std::string value;
    for (const char letter : {'a', 'b', 'f', 'm', '?'}) {
        if (parser.getOptionValue(letter, value) && !parser.haveOption(letter)) std::abort();
    }
    if (parser.getOptionValue("mode", value) && value != "off" && value != "on") std::abort();
    std::size_t plainWords = 0;
    while (parser.getNextValueArg(value)) {
        ++plainWords;
    }
    if (!accepted && plainWords > 0) std::abort();
}

}  // namespace

// The first byte chooses how the rest is read; words stand on lines of their own.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const unsigned way = data[0];
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);

    CmdParser parser;
    parser.init((way & 1U) != 0 ? "Fuzzed" : "", (way & 2U) != 0, (way & 4U) != 0, (way & 8U) != 0);
    specify(parser);
    std::string output;
    if ((way & 16U) != 0) {
        ask(parser, parser.parse(text, output, ""), output);
        return 0;
    }
    const std::vector<std::string> words = wordsIn(text);
    if ((way & 32U) == 0) {
        ask(parser, parser.parse(words, output, "ignored,words"), output);
        return 0;
    }
    std::vector<const char*> argv;
    argv.reserve(words.size());
    for (const std::string& word : words) {
        argv.push_back(word.c_str());
    }
    const bool accepted = parser.parse(static_cast<int>(argv.size()), argv.data(), output, "");
    ask(parser, accepted, output);
    return 0;
}
