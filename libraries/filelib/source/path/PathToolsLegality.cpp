// Clean, legal and contracted paths.

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/system/FilePathText.h"
#include "libraries/filelib/source/path/PathTools.h"
#include "libraries/filelib/source/path/PathToolsMessages.h"

#include <algorithm>

namespace TarvikFilelib {

namespace {

constexpr auto npos = std::string_view::npos;

// Not the member itself, so that names are checked before `main`, too.
constexpr std::string_view illegalChars = R"(<>:"\/|?*)";

bool isIllegal(char c) {
    // Unsigned, so that UTF-8 is legal.
    return static_cast<unsigned char>(c) < ' ' || illegalChars.find(c) != npos;
}

// The length of the path without the last of its elements between `fixed` and `size`.
std::size_t withoutLast(std::string_view path, std::size_t fixed, std::size_t size) {
    const std::size_t slash = path.substr(fixed, size - fixed).rfind('/');
    return slash == npos ? fixed : fixed + slash;
}

}  // namespace

const std::string PathTools::IllegalChars(illegalChars);

// --- clean paths

bool PathTools::isClean(std::string_view path) {
    return path.find('~') == npos && path.find("//", 1) == npos;
}

std::string PathTools::getClean(std::string_view path) {
    std::string result(path);
    makeClean(result);
    return result;
}

bool PathTools::makeClean(std::string& path) {
    return TarvikCorelib::FilePathText<char>::cleanPath(path);
}

// --- legal paths

bool PathTools::isLegalName(std::string_view name) {
    return !name.empty() && std::none_of(name.begin(), name.end(), isIllegal);
}

std::string PathTools::getLegalName(std::string_view name) {
    std::string result(name);
    makeLegalName(result);
    return result;
}

bool PathTools::makeLegalName(std::string& name) {
    return std::erase_if(name, isIllegal) != 0;
}

bool PathTools::isLegal(std::string_view path) {
    return !path.empty() && getLegal(path) == path;
}

std::string PathTools::getLegal(std::string_view path) {
    std::string result;
    while (!path.empty()) {
        const std::string name = getLegalName(takeElement(path));
        if (!name.empty() && !result.empty()) result += '/';
        result += name;
    }
    return result;
}

bool PathTools::makeLegal(std::string& path) {
    return assign(path, getLegal(path));
}

// --- contracted paths

std::string PathTools::getContracted(std::string_view path) {
    if (path.find('/') == npos || isRoot(path)) return std::string(path);
    const std::size_t fixed = fixedLength(path);
    std::string result(path);
    std::size_t kept = fixed;  // What is at the front of the result; never more than was read.
    // Right behind "x:" there is the rest of a name: "x:.." does not lead upward.
    bool mayBeDots = !path.substr(0, fixed).ends_with(':');
    for (std::string_view rest = path.substr(fixed); !rest.empty(); mayBeDots = true) {
        const std::string_view element = takeElement(rest);
        if (element.empty() || (mayBeDots && element == ".")) continue;
        if (mayBeDots && element == "..") {
            if (kept == fixed)
                throw Contract_InvalidPath(
                    messages::contractInvalidPath.view(), TarvikCorelib::here(),
                    valuesFor(messages::contractInvalidPath, std::string(path)));
            kept = withoutLast(result, fixed, kept);
            continue;
        }
        if (kept > fixed) result[kept++] = '/';
        kept += element.copy(&result[kept], npos);
    }
    result.resize(kept);
    return result;
}

bool PathTools::contract(std::string& path) {
    return assign(path, getContracted(path));
}

}  // namespace TarvikFilelib
