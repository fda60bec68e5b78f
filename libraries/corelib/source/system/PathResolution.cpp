#include "libraries/corelib/source/system/PathResolution.h"

#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/system/SystemTools.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <optional>

namespace TarvikCorelib {

namespace {

constexpr auto npos = std::string_view::npos;
constexpr int maximumLinks = 40;

std::optional<std::string> mapVariable(const std::string& name, char marker) {
    std::string value;
    // The C library would read no further than to a zero byte.
    if (name.find('\0') == npos && EnvTools::get(name, value)) return value;

    if (name.size() == 1 && name[0] == marker) return name;

    const auto code = SystemTools::mapDirCode(name);
    if (code != SystemTools::DirUnknown) return SystemTools::obtainDir(code);

    return std::nullopt;
}

// These two read the variable at the front of the text and return its length.

std::size_t readVariableType1(std::string_view text, std::string& out) {
    const std::size_t end = text.find_first_of("%/", 1);
    if (end == npos || text[end] == '/') {
        out += '%';
        return 1;
    }
    const std::string name = end == 1 ? "%" : std::string(text.substr(1, end - 1));
    out += mapVariable(name, '%').value_or("%" + name + "%");
    return end + 1;
}

std::size_t readVariableType2(std::string_view text, std::string& out) {
    const std::string name(text.substr(1, text.find('/') - 1));
    out += mapVariable(name, '$').value_or("$" + name);
    return name.size() + 1;
}

// The text of a link; empty for what is no link; none where the path leads nowhere.
std::optional<std::string> readLink(const std::string& path) {
    std::array<char, PATH_MAX> text{};
    const ssize_t size = ::readlink(path.c_str(), text.data(), text.size());
    if (size < 0) return errno == EINVAL ? std::optional<std::string>("") : std::nullopt;
    return std::string(text.data(), static_cast<std::size_t>(size));
}

// The links of /proc lead to files that may have no name, or another one.
bool leadsTo(const std::string& link, const std::string& target) {
    struct stat found {};
    if (::stat(link.c_str(), &found) != 0) return true;
    struct stat named {};
    return ::stat(target.c_str(), &named) == 0 && named.st_dev == found.st_dev &&
           named.st_ino == found.st_ino;
}

bool mayBeLink(std::string_view element) {
    return !element.empty() && element != "." && element != "..";
}

}  // namespace

//   path = { text | "%" name "%" | "$" name }
//
// A name ends before the next "/". A "%" without a second one up to there is text.
std::string expandedPath(std::string_view path) {
    std::string result;
    if (path.starts_with("/c:") || path.starts_with("/C:")) {
        result = "C:";
        path.remove_prefix(3);
    }
    while (true) {
        const std::size_t plain = std::min(path.find_first_of("%$"), path.size());
        result += path.substr(0, plain);
        path.remove_prefix(plain);
        if (path.empty()) return result;
        path.remove_prefix(path[0] == '%' ? readVariableType1(path, result)
                                          : readVariableType2(path, result));
    }
}

// One element a round: the path has no links ahead of `start`, and the element there is looked up
// next. If it is a link, its target takes its place, and the walk goes back to where that begins,
// since there may be links in it, too. A circle would never end, hence the limit.
std::string tracedPath(std::string_view path) {
    std::string traced(path);
    if (path.find('\0') != npos) return traced;

    int links = 0;
    std::size_t start = 0;
    while (start < traced.size()) {
        const std::size_t end = std::min(traced.find('/', start), traced.size());
        const std::string link = traced.substr(0, end);
        const bool isCandidate = mayBeLink(std::string_view(link).substr(start));
        const auto text = isCandidate ? readLink(link) : "";
        if (!text) return traced;

        const std::size_t from = text->starts_with('/') ? 0 : start;
        std::string target = traced.substr(0, from) + *text;
        if (text->empty() || !leadsTo(link, target)) {
            start = end + 1;
            continue;
        }
        if (++links > maximumLinks) return std::string(path);
        if (target.ends_with('/') && end < traced.size()) target.pop_back();
        traced.replace(0, end, target);
        start = from;
    }
    return traced;
}

}  // namespace TarvikCorelib
