// Any glob on any text, compared with what a glob means, and narrow with wide.

#include "libraries/corelib/source/text/GlobMatching.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "fuzz/Feed.h"

namespace {

using fuzz::check;
using Found = std::optional<std::pair<std::size_t, std::size_t>>;
constexpr auto all = std::string_view::npos;

// The comparison takes exponential time.
constexpr std::size_t longestGlob = 8;
constexpr std::size_t longestText = 14;

bool plainMatch(std::string_view text, std::string_view glob) {
    if (glob.empty()) return text.empty();
    if (glob.front() == '*' && plainMatch(text, glob.substr(1))) return true;
    if (text.empty()) return false;
    if (glob.front() == '*') return plainMatch(text.substr(1), glob);
    const bool matches = glob.front() == '?' || glob.front() == text.front();
    return matches && plainMatch(text.substr(1), glob.substr(1));
}

Found plainFindAt(std::string_view window, std::string_view glob, std::size_t start) {
    const std::string_view rest = window.substr(start);
    if (glob.back() == '*') {
        if (plainMatch(rest, glob)) return std::pair(start, rest.size());
        return std::nullopt;
    }
    for (std::size_t length = 0; length <= rest.size(); ++length) {
        if (plainMatch(rest.substr(0, length), glob)) return std::pair(start, length);
    }
    return std::nullopt;
}

Found plainFind(std::string_view text, std::string_view glob, std::size_t pos, std::size_t count) {
    if (glob.empty() || pos >= text.size()) return std::nullopt;
    const std::string_view window = text.substr(0, pos + std::min(count, text.size() - pos));
    Found found;
    for (std::size_t start = pos; start < window.size() && !found; ++start) {
        found = plainFindAt(window, glob, start);
    }
    return found;
}

}  // namespace

// The first two bytes give the range; glob and text follow, with a zero byte between them.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::size_t pos = data[0] % (longestText + 2);
    const std::size_t count = data[1] == 0xff ? all : data[1] % (longestText + 2);
    const std::string_view rest(reinterpret_cast<const char*>(data + 2), size - 2);
    const std::size_t zero = std::min(rest.find('\0'), rest.size());
    const std::string_view glob = rest.substr(0, std::min(zero, longestGlob));
    const std::string_view text =
        rest.substr(std::min(zero + 1, rest.size())).substr(0, longestText);

    const bool matches = TarvikCorelib::matchGlob(text, glob, pos, count);
    const Found found = TarvikCorelib::findGlob(text, glob, pos, count);
    const std::string_view behind = text.substr(std::min(pos, text.size()));
    check(matches == ((count != 0 || behind.empty()) && plainMatch(behind, glob)));
    check(found == plainFind(text, glob, pos, count));

    const std::wstring wideText(text.begin(), text.end());
    const std::wstring wideGlob(glob.begin(), glob.end());
    check(matches == TarvikCorelib::matchGlob<wchar_t>(wideText, wideGlob, pos, count));
    check(found == TarvikCorelib::findGlob<wchar_t>(wideText, wideGlob, pos, count));
    return 0;
}
