#include "libraries/corelib/source/text/GlobMatching.h"

#include <algorithm>

namespace TarvikCorelib {

namespace {

// By characters, since the glob may be wide.
template <class Char>
bool isGlob(const GlobParam<Char>& param, std::string_view glob) {
    return std::equal(param.glob.begin(), param.glob.end(), glob.begin(), glob.end());
}

// `end` is where the match ends in the text.
template <class Char>
void succeed(GlobParam<Char>& param, std::size_t end) {
    param.found = true;
    param.length = end - param.start;
}

// True if the attempt is decided, because it starts at or past the end of the text.
template <class Char>
bool handleTrivialEmpty(GlobParam<Char>& param) {
    if (param.start < param.textEnd) return false;
    param.found = isGlob(param, "") || isGlob(param, "*");
    return true;
}

// True if the attempt is decided. There is text, which an empty glob never matches
// and these two globs always do, all of it, without a walk.
template <class Char>
bool handleTrivial(GlobParam<Char>& param) {
    if (isGlob(param, "")) return true;
    if (!isGlob(param, "*") && !isGlob(param, "?*")) return false;
    succeed(param, param.textEnd);
    return true;
}

template <class Char>
bool atStrOrGlobEnd(const GlobParam<Char>& param) {
    return param.textPos == param.textEnd || param.globPos == param.globEnd;
}

template <class Char>
bool isBeforeFirstStar(const GlobParam<Char>& param) {
    return !atStrOrGlobEnd(param) && param.glob[param.globPos] != '*';
}

template <class Char>
bool isCurrentCharMatching(const GlobParam<Char>& param) {
    const Char wanted = param.glob[param.globPos];
    return wanted == '?' || wanted == param.text[param.textPos];
}

template <class Char>
void advancePositions(GlobParam<Char>& param) {
    ++param.textPos;
    ++param.globPos;
}

// False on a mismatch: without a star there is nothing to retry. Where text or glob ends before
// one, `handleGlobMatch` decides.
template <class Char>
bool handleUpToFirstStar(GlobParam<Char>& param) {
    while (isBeforeFirstStar(param)) {
        if (!isCurrentCharMatching(param)) return false;
        advancePositions(param);
    }
    return true;
}

// One step of `handleGlobMatch` is one character of the text, one of the glob, or both. Each
// returns whether another step follows; an attempt that ends without `succeed` has failed.

// Lets the star match nothing for now, unless it ends the glob.
template <class Char>
bool matchStar(GlobParam<Char>& param) {
    ++param.globPos;
    if (param.globPos == param.globEnd) {
        succeed(param, param.textEnd);
        return false;
    }
    param.starSeen = true;
    param.retryGlobPos = param.globPos;
    param.retryTextPos = param.textPos + 1;
    return true;
}

// Lets the last star take one more character.
template <class Char>
bool updateOnMisMatchingChar(GlobParam<Char>& param) {
    if (!param.starSeen) return false;
    param.globPos = param.retryGlobPos;
    param.textPos = param.retryTextPos++;
    return true;
}

// A star that ends the glob may match nothing here. The glob has no two stars in a row.
template <class Char>
bool stepAtTextEnd(GlobParam<Char>& param) {
    const std::size_t left = param.globEnd - param.globPos;
    if (left == 0 || (left == 1 && param.glob.back() == '*')) succeed(param, param.textEnd);
    return false;
}

// The glob ends before the text does. It does not end in a star here: `matchStar` would have given
// that star the rest of the text.
template <class Char>
bool stepAtGlobEnd(GlobParam<Char>& param) {
    if (param.exact) return updateOnMisMatchingChar(param);
    succeed(param, param.textPos);
    return false;
}

template <class Char>
bool step(GlobParam<Char>& param) {
    if (param.textPos == param.textEnd) return stepAtTextEnd(param);
    if (param.globPos == param.globEnd) return stepAtGlobEnd(param);
    if (param.glob[param.globPos] == '*') return matchStar(param);
    if (!isCurrentCharMatching(param)) return updateOnMisMatchingChar(param);
    advancePositions(param);
    return true;
}

template <class Char>
void handleGlobMatch(GlobParam<Char>& param) {
    while (step(param)) {
    }
}

template <class Char>
void matchNonSimple(GlobParam<Char>& param) {
    if (handleUpToFirstStar(param)) handleGlobMatch(param);
}

template <class Char>
bool match(GlobParam<Char>& param) {
    if (!handleTrivial(param)) matchNonSimple(param);
    return param.found;
}

// Copies the glob, once for all attempts, and borrows the text.
template <class Char>
GlobParam<Char> makeParam(std::basic_string_view<Char> text, std::basic_string_view<Char> glob,
                          std::size_t start) {
    GlobParam<Char> param;
    param.start = start;
    param.textPos = start;
    param.textEnd = text.size();
    param.text = text.data();
    param.glob = processGlob(glob);
    param.globEnd = param.glob.size();
    return param;
}

// The next place from `pos` on where the glob can begin to match, or the end of the text. A glob
// that begins with a character of its own skips the places in between by a search for it, which is
// many times faster than an attempt at each.
template <class Char>
std::size_t nextStart(const GlobParam<Char>& param, std::size_t pos) {
    if (param.glob.empty()) return param.textEnd;
    const Char first = param.glob.front();
    if (first == '*' || first == '?') return pos;
    const std::basic_string_view<Char> text(param.text, param.textEnd);
    return std::min(text.find(first, pos), param.textEnd);
}

}  // namespace

template <class Char>
std::basic_string<Char> processGlob(std::basic_string_view<Char> glob) {
    std::basic_string<Char> processed(glob);
    const auto isStarPair = [](Char left, Char right) { return left == '*' && right == '*'; };
    processed.erase(std::unique(processed.begin(), processed.end(), isStarPair), processed.end());
    return processed;
}

template <class Char>
bool matchGlob(std::basic_string_view<Char> text, std::basic_string_view<Char> glob,
               std::size_t pos, std::size_t count) {
    GlobParam<Char> param = makeParam(text, glob, pos);
    param.exact = true;
    if (handleTrivialEmpty(param)) return param.found;
    return count != 0 && match(param);
}

template <class Char>
std::optional<std::pair<std::size_t, std::size_t>> findGlob(std::basic_string_view<Char> text,
                                                            std::basic_string_view<Char> glob,
                                                            std::size_t pos, std::size_t count) {
    // The text ends where the range does: what follows can neither match nor be taken by a star.
    if (pos >= text.size()) return std::nullopt;
    GlobParam<Char> param =
        makeParam(text.substr(0, pos + std::min(count, text.size() - pos)), glob, pos);
    for (std::size_t start = nextStart(param, pos); start < param.textEnd;
         start = nextStart(param, start + 1)) {
        // The attempt before saw no star, so these three positions are all that it changed.
        param.start = start;
        param.textPos = start;
        param.globPos = 0;
        if (match(param)) return std::pair(start, param.length);
        // The part behind the star was not found anywhere, so a later start cannot help.
        if (param.starSeen) break;
    }
    return std::nullopt;
}

template std::string processGlob(std::string_view);
template std::wstring processGlob(std::wstring_view);
template bool matchGlob(std::string_view, std::string_view, std::size_t, std::size_t);
template bool matchGlob(std::wstring_view, std::wstring_view, std::size_t, std::size_t);
template std::optional<std::pair<std::size_t, std::size_t>> findGlob(std::string_view,
                                                                     std::string_view, std::size_t,
                                                                     std::size_t);
template std::optional<std::pair<std::size_t, std::size_t>> findGlob(std::wstring_view,
                                                                     std::wstring_view, std::size_t,
                                                                     std::size_t);

}  // namespace TarvikCorelib
