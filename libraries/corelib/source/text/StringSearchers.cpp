#include "libraries/corelib/source/text/StringSearchers.h"

#include "libraries/corelib/source/text/StringTools.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace TarvikCorelib::StringTools {

namespace {

// The place of the next line feed in the stretch, or the end of the stretch.
std::size_t lineEnd(std::string_view text, std::size_t pos, std::size_t end) {
    return std::min(text.substr(0, end).find('\n', pos), end);
}

}  // namespace

bool StringSearcher::validateParameters(const std::string& text, std::size_t pos,
                                        std::size_t& count) {
    if (pos >= text.size()) return false;
    count = std::min(count, text.size() - pos);
    return true;
}

LineSizeSearcher::LineSizeSearcher(std::uint32_t lineSize, std::string breakSet)
    : lineSize(lineSize), breakSet(std::move(breakSet)) {}

bool LineSizeSearcher::operator()(std::size_t& start, std::size_t& length, const std::string& text,
                                  std::size_t pos, std::size_t count) const {
    if (!validateParameters(text, pos, count)) return false;
    const std::size_t window = std::min<std::size_t>(count, lineSize);
    if (window == 0) return false;

    if (text[pos] == '\n') {
        start = pos + 1;
        length = 0;
    } else if (window == count) {
        start = lineEnd(text, pos, pos + count);
        length = 1;
    } else {
        start = lineEnd(text, pos, pos + window);
        length = 1;
        if (text[pos + window] != '\n') breakLine(start, length, text, pos);
    }
    return true;
}

// Goes back from the window's end, or from the line feed before it, to a place that may be cut. A
// line without one is cut hard.
void LineSizeSearcher::breakLine(std::size_t& start, std::size_t& length, const std::string& text,
                                 std::size_t pos) const {
    length = 0;
    const std::size_t found =
        std::string_view(text).substr(pos, start - pos + 1).find_last_of(breakSet);
    if (found == std::string_view::npos || found == 0) return;
    const bool isBlank = whitespace().find(text[pos + found]) != std::string::npos;
    start = pos + found + (isBlank ? 0 : 1);
    length = isBlank ? 1 : 0;
}

}  // namespace TarvikCorelib::StringTools
