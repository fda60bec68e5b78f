#include "libraries/corelib/source/match/GlobMatcher.h"

#include "libraries/corelib/source/text/StringToolsEdit.h"

#include <algorithm>

namespace TarvikCorelib {

namespace {

// Takes copies, since `lower` changes its argument.
template <class Char>
bool matchLowered(std::basic_string<Char> text, std::basic_string<Char> glob, std::size_t pos,
                  std::size_t count) {
    StringTools::lower(text);
    StringTools::lower(glob);
    return GlobMatcher::match(text, glob, pos, count);
}

// `findGlob` returns nothing for both failures, so the range is checked here first. A `pos` past
// the end must not reach the subtraction.
template <class Char>
std::pair<std::size_t, std::size_t> findOrThrow(std::basic_string_view<Char> text,
                                                std::basic_string_view<Char> glob, std::size_t pos,
                                                std::size_t count) {
    if (pos >= text.size() || GlobMatcher::validateSize(count, text.size() - pos) == 0)
        throw GlobMatcher::Find_OutOfBounds();
    const auto found = findGlob(text, glob, pos, count);
    if (!found) throw GlobMatcher::Find_NotFound();
    return *found;
}

}  // namespace

bool GlobMatcher::match(std::string_view text, std::string_view glob, std::size_t pos,
                        std::size_t count) {
    return matchGlob(text, glob, pos, count);
}

bool GlobMatcher::match(std::wstring_view text, std::wstring_view glob, std::size_t pos,
                        std::size_t count) {
    return matchGlob(text, glob, pos, count);
}

bool GlobMatcher::matchIgnoreCase(std::string_view text, std::string_view glob, std::size_t pos,
                                  std::size_t count) {
    return matchLowered(std::string(text), std::string(glob), pos, count);
}

bool GlobMatcher::matchIgnoreCase(std::wstring_view text, std::wstring_view glob, std::size_t pos,
                                  std::size_t count) {
    return matchLowered(std::wstring(text), std::wstring(glob), pos, count);
}

std::pair<std::size_t, std::size_t> GlobMatcher::find(std::string_view text, std::string_view glob,
                                                      std::size_t pos, std::size_t count) {
    return findOrThrow(text, glob, pos, count);
}

std::pair<std::size_t, std::size_t> GlobMatcher::find(std::wstring_view text,
                                                      std::wstring_view glob, std::size_t pos,
                                                      std::size_t count) {
    return findOrThrow(text, glob, pos, count);
}

std::string GlobMatcher::processGlob(std::string_view glob) {
    return TarvikCorelib::processGlob(glob);
}

std::wstring GlobMatcher::processGlob(std::wstring_view glob) {
    return TarvikCorelib::processGlob(glob);
}

std::size_t GlobMatcher::validateSize(std::size_t a, std::size_t b) {
    return std::min(a, b);
}

}  // namespace TarvikCorelib
