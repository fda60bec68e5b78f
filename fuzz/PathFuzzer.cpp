// Any texts as paths: taken apart and joined, cleaned, made legal, contracted, expanded and traced.

#include "libraries/filelib/source/path/PathTools.h"

#include "fuzz/Feed.h"

namespace {

using fuzz::check;
using TarvikFilelib::PathTools;

void checkParts(const std::string& path) {
    check(PathTools::getRoot(path) + PathTools::getRootRemoved(path) == path);
    check(PathTools::getBaseRemoved(path) + PathTools::getBase(path) == path);
    check(PathTools::isRoot(path) == (!path.empty() && PathTools::getRootRemoved(path).empty()));
    const PathTools::Elements elements = PathTools::split(path);
    check(PathTools::join(elements) == path);

    std::string fromFront = path;
    std::string fromBack = path;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        check(PathTools::chopFirst(fromFront) == elements[i]);
        check(PathTools::chopLast(fromBack) == elements[elements.size() - 1 - i]);
    }
    check(fromFront.empty() && fromBack.empty());
}

void checkSuffix(const std::string& path) {
    const bool have = PathTools::haveSuffix(path);
    const std::string without = PathTools::getSuffixRemoved(path);
    const std::string suffix = PathTools::getSuffix(path);
    check(have ? PathTools::getReplaceSuffix(path, suffix) == path : without == path);
    check(PathTools::getSuffix(PathTools::getReplaceSuffix(path, "z")) == "z");
}

void checkForms(const std::string& path) {
    const std::string clean = PathTools::getClean(path);
    check(PathTools::getClean(clean) == clean);
    check(PathTools::isClean(clean) == (path.find('~') == std::string::npos));
    const std::string legal = PathTools::getLegal(path);
    check(PathTools::getLegal(legal) == legal);
    check(legal.empty() || PathTools::isLegal(legal));
    std::string expanded = path;
    check(PathTools::expand(expanded) == (expanded != path));
    try {
        const std::string contracted = PathTools::getContracted(path);
        check(contracted.size() <= path.size());
        check(PathTools::getContracted(contracted) == contracted);
        check(PathTools::haveRoot(contracted) || !PathTools::haveRoot(path));
    } catch (const PathTools::Contract_InvalidPath&) {
        check(path.find("..") != std::string::npos);
    }
}

// The way from one path to the other leads there.
void checkRelative(const std::string& path, const std::string& root) {
    if (root.empty() || root.ends_with('/')) return;
    const std::string relative = PathTools::getRelative(path, root);
    if (PathTools::getFirstElement(path) != PathTools::getFirstElement(root)) {
        check(relative == path);
        return;
    }
    check(path.empty() || !relative.starts_with('/'));
}

}  // namespace

// The flags of a valid path, and two paths, each ended by a zero byte.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Feed feed(data, size);
    const std::uint32_t flags = feed.byte();
    const std::string path = feed.text();
    const std::string other = feed.text();
    checkParts(path);
    checkSuffix(path);
    checkForms(path);
    checkRelative(path, other);
    try {
        check(PathTools::getValid(path, flags).empty() || !path.empty());
        // With these two alone nothing new is put in.
        const std::uint32_t cleaning = flags & (PathTools::Clean | PathTools::Contract);
        const std::string cleaned = PathTools::getValid(path, cleaning);
        check(PathTools::getValid(cleaned, cleaning) == cleaned);
    } catch (const PathTools::Contract_InvalidPath&) {
        check(path.find("..") != std::string::npos);
    }
    return 0;
}
