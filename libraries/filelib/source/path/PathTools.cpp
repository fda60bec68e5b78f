#include "libraries/filelib/source/path/PathTools.h"

#include "libraries/corelib/source/system/PathResolution.h"

#include <algorithm>
#include <utility>

namespace TarvikFilelib {

bool PathTools::assign(std::string& path, std::string text) {
    if (text == path) return false;
    path = std::move(text);
    return true;
}

// --- forms of paths

bool PathTools::isValid(std::string_view path) {
    return !path.empty() && path.find_first_of("\\~") == std::string_view::npos;
}

bool PathTools::isWindowsPath(std::string_view path) {
    return !path.empty() && path.find('/') == std::string_view::npos;
}

std::string PathTools::getWindowsPath(std::string_view path) {
    std::string result(path);
    makeWindowsPath(result);
    return result;
}

bool PathTools::makeWindowsPath(std::string& path) {
    const bool changes = path.find('/') != std::string::npos;
    std::replace(path.begin(), path.end(), '/', '\\');
    return changes;
}

std::string PathTools::getStandard(std::string_view path) {
    return std::string(path);
}

bool PathTools::makeStandard(std::string& /*path*/) {
    return false;
}

std::string PathTools::getPlatformPath(std::string_view path) {
    return getStandard(path);
}

// --- variables and links

std::string PathTools::getExpanded(std::string_view path) {
    return TarvikCorelib::expandedPath(path);
}

bool PathTools::expand(std::string& path) {
    return assign(path, getExpanded(path));
}

std::string PathTools::getLinkTrace(std::string_view path) {
    return TarvikCorelib::tracedPath(path);
}

bool PathTools::linkTrace(std::string& path) {
    return assign(path, getLinkTrace(path));
}

// --- all of it

std::string PathTools::getValid(std::string_view path, std::uint32_t flags) {
    std::string result(path);
    if (result.find('\\') != std::string::npos)
        std::replace(result.begin(), result.end(), '\\', '/');
    if ((flags & Clean) != 0) makeClean(result);
    if ((flags & Contract) != 0) contract(result);
    if ((flags & Expand) != 0) expand(result);
    if ((flags & Trace) != 0) linkTrace(result);
    if ((flags & Legal) != 0) {
        const std::string rest = result.substr(fixedLength(result));
        result.resize(result.size() - rest.size());
        result += getLegal(rest);
    }
    return result;
}

bool PathTools::makeValid(std::string& path, std::uint32_t flags) {
    return assign(path, getValid(path, flags));
}

}  // namespace TarvikFilelib
