/// The matching of globs, for those that stand below the exceptions of `GlobMatcher`.
///
/// In a glob "*" stands for any run of characters, also an empty one, and "?" for exactly one. All
/// other characters stand for themselves: there is no escape and no class, and a directory
/// separator is a character like others. All functions exist for `char` and `wchar_t`, never throw
/// on their own, and are safe to call from any thread.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace TarvikCorelib {

/// The state of one attempt. All positions count from the beginning of the text or of the glob.
template <class Char>
struct GlobParam {
    std::size_t start = 0;
    bool found = false;
    bool exact = false;  ///< The whole text must match, not only a beginning from `start` on.
    std::size_t textPos = 0;
    std::size_t textEnd = 0;
    std::size_t globPos = 0;
    std::size_t globEnd = 0;
    bool starSeen = false;
    std::size_t retryTextPos = 0;  ///< Both retry positions belong to the last star seen.
    std::size_t retryGlobPos = 0;
    std::size_t length = 0;      ///< Of the match, from `start` on.
    const Char* text = nullptr;  ///< Borrowed from the caller.
    std::basic_string<Char> glob;
};

/// The glob with each run of stars reduced to one.
template <class Char>
[[nodiscard]] std::basic_string<Char> processGlob(std::basic_string_view<Char> glob);

/// Whether the text from `pos` on, all of it, matches the glob. From its end on it matches "" and
/// "*" only. Before that a `count` of 0 matches nothing, and any other, on purpose, is ignored.
template <class Char>
[[nodiscard]] bool matchGlob(std::basic_string_view<Char> text, std::basic_string_view<Char> glob,
                             std::size_t pos, std::size_t count);

/// Start and length of the first match among the `count` characters from `pos` on, all ones meaning
/// all that are left. A star takes as little as it can, but one that ends the glob takes all.
/// Nothing if there is no match, as for an empty glob, and if `pos` or `count` leave no character.
template <class Char>
[[nodiscard]] std::optional<std::pair<std::size_t, std::size_t>> findGlob(
    std::basic_string_view<Char> text, std::basic_string_view<Char> glob, std::size_t pos,
    std::size_t count);

}  // namespace TarvikCorelib
