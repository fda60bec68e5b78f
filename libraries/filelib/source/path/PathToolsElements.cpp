// The parts of a path: root, parent, base and suffix, elements; and one path against another.

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/system/FilePathText.h"
#include "libraries/corelib/source/system/FileProperties.h"
#include "libraries/filelib/source/path/PathTools.h"

#include <algorithm>

namespace TarvikFilelib {

namespace {

using Text = TarvikCorelib::FilePathText<char>;
using Properties = TarvikCorelib::FileProperties<char>;

constexpr auto npos = std::string_view::npos;

// Where the base starts.
std::size_t baseStart(std::string_view path) {
    return path.rfind('/') + 1;  // Without a "/" this is 0.
}

// Where the "." of the suffix is; the length of the path if it has none.
std::size_t suffixStart(std::string_view path) {
    const std::size_t dot = path.find_last_of("/.");
    return dot != npos && path[dot] == '.' ? dot : path.size();
}

}  // namespace

// --- root

std::size_t PathTools::rootLength(std::string_view path) {
    if (path.starts_with("//")) return std::min(path.find('/', 2), path.size());
    if (path.starts_with('/')) return 1;
    if (!haveRoot(path)) return 0;
    return path.substr(2).starts_with('/') ? 3 : 2;
}

std::size_t PathTools::fixedLength(std::string_view path) {
    return path.starts_with("//") ? 2 : rootLength(path);
}

bool PathTools::haveRoot(std::string_view path) {
    return Text::isComplete(path);
}

bool PathTools::isRoot(std::string_view path) {
    return !path.empty() && rootLength(path) == path.size();
}

std::string PathTools::getRoot(std::string_view path) {
    return std::string(path.substr(0, rootLength(path)));
}

std::string PathTools::getRootRemoved(std::string_view path) {
    return std::string(path.substr(rootLength(path)));
}

bool PathTools::removeRoot(std::string& path) {
    return assign(path, getRootRemoved(path));
}

// --- parent, base and suffix

std::string PathTools::getParent(std::string_view path) {
    const std::size_t start = baseStart(path);
    return std::string(path.substr(0, start == 0 ? 0 : start - 1));
}

bool PathTools::removeParent(std::string& path) {
    return assign(path, getBase(path));
}

bool PathTools::haveBase(std::string_view path) {
    return !path.empty() && path.back() != '/';
}

std::string PathTools::getBase(std::string_view path) {
    return std::string(path.substr(baseStart(path)));
}

std::string PathTools::getBaseRemoved(std::string_view path) {
    return std::string(path.substr(0, baseStart(path)));
}

bool PathTools::removeBase(std::string& path) {
    return assign(path, getBaseRemoved(path));
}

bool PathTools::haveSuffix(std::string_view path) {
    return suffixStart(path) < path.size();
}

std::string PathTools::getSuffix(std::string_view path) {
    return std::string(path.substr(std::min(suffixStart(path) + 1, path.size())));
}

std::string PathTools::getSuffixRemoved(std::string_view path) {
    return std::string(path.substr(0, suffixStart(path)));
}

bool PathTools::removeSuffix(std::string& path) {
    return assign(path, getSuffixRemoved(path));
}

std::string PathTools::getBaseWithoutSuffix(std::string_view path) {
    return getSuffixRemoved(path.substr(baseStart(path)));
}

std::string PathTools::getReplaceSuffix(std::string_view path, std::string_view suffix) {
    return getSuffixRemoved(path).append(1, '.').append(suffix);
}

bool PathTools::replaceSuffix(std::string& path, std::string_view suffix) {
    return assign(path, getReplaceSuffix(path, suffix));
}

// --- elements

std::string_view PathTools::takeElement(std::string_view& path) {
    const std::string_view element = path.substr(0, path.find('/'));
    path.remove_prefix(std::min(element.size() + 1, path.size()));
    return element;
}

PathTools::Elements PathTools::split(std::string_view path) {
    return Text::split(path);
}

std::string PathTools::join(const Elements& elements) {
    return Text::join(elements);
}

std::string PathTools::getFirstElement(std::string_view path) {
    return std::string(takeElement(path));
}

std::string PathTools::getFirstChopped(std::string_view path) {
    takeElement(path);
    return std::string(path);
}

std::string PathTools::getLastElement(std::string_view path) {
    return getBase(path);
}

std::string PathTools::getLastChopped(std::string_view path) {
    return getParent(path);
}

std::string PathTools::chopFirst(std::string& path) {
    std::string element = getFirstElement(path);
    path = getFirstChopped(path);
    return element;
}

std::string PathTools::chopLast(std::string& path) {
    std::string element = getLastElement(path);
    path = getLastChopped(path);
    return element;
}

// --- against another path

std::string PathTools::getComplete(std::string_view path, std::string_view base) {
    std::string result(path);
    makeComplete(result, base);
    return result;
}

bool PathTools::makeComplete(std::string& path, std::string_view base) {
    return Text::makeComplete(path, base);
}

std::string PathTools::getComplete(std::string_view path) {
    return getComplete(path, Properties::getCurrentDir());
}

bool PathTools::makeComplete(std::string& path) {
    return makeComplete(path, Properties::getCurrentDir());
}

std::string PathTools::getRelative(std::string_view path, std::string_view root) {
    if (root.ends_with('/')) throw MakeRelative_InvalidRoot("", TarvikCorelib::here());
    std::string result(path);
    // With an empty element in front it would start with "/": another path altogether.
    if (Text::makeRelative(result, root)) result.erase(0, result.find_first_not_of('/'));
    return result;
}

bool PathTools::makeRelative(std::string& path, std::string_view root) {
    return assign(path, getRelative(path, root));
}

}  // namespace TarvikFilelib
