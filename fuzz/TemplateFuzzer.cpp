// Feeds any text and values to an exception and checks what it shows, narrow and wide.

#include "libraries/corelib/source/diagnostics/Exception.h"
#include "libraries/corelib/source/diagnostics/TemplateReader.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <vector>

#include "fuzz/Feed.h"

namespace {

using fuzz::check;
using TarvikCorelib::Exception;
using TarvikCorelib::ParamStream;
using TarvikCorelib::StringTools::widen;

// Fills a template one character at a time, without a search, as the plainest reader would.
std::string plainFormat(std::string_view text, const std::vector<std::string>& values) {
    if (values.empty()) return std::string(text);
    std::string result;
    std::size_t next = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            if (next < values.size()) result += values[next++];
            continue;
        }
        result += text[i];
        if (text[i] == '\\' && i + 1 < text.size()) result += text[++i];
    }
    return result;
}

void checkChain(const Exception& cause, const std::string& text) {
    const Exception container("", cause);
    check(container.getFullMessage(false) == "\nException: " + text);
    check(container.getFullMessageW(true) == L"Exception:\nException: " + widen(text));
    std::size_t records = 0;
    container.forEachLogRecord([&records](const std::string& record, const ParamStream&) {
        check(record.starts_with("Exception: "));
        ++records;
    });
    check(records == 2);
}

}  // namespace

// Input: the message and then the values, separated by zero bytes.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Feed feed(data, size);
    const std::string message = feed.text();
    std::vector<std::string> values;
    ParamStream params;
    while (!feed.isEmpty()) {
        values.push_back(feed.text());
        params << values.back();
    }

    const std::string read = TarvikCorelib::readTemplate(message);
    check(read.size() <= message.size() + 1);
    check(TarvikCorelib::readTemplate(widen(message)) == widen(read));

    Exception exception(message, params);
    const std::string text = exception.getFullMessage(false);
    check(text == plainFormat(read, values));
    check(Exception(widen(message), params).getFullMessageW(false) == widen(text));
    if (message.empty()) return 0;
    checkChain(exception, text);
    exception.addToMessage(message, params);
    check(exception.getFullMessage(true).starts_with("Exception:"));
    return 0;
}
