/// The matching of globs, for sources that `GlobMatcher` with its exceptions depends on.
///
///   glob = { "*" | "?" | character }
///
/// A "*" stands for any run of characters, also an empty one, and a "?" for exactly one. All other
/// characters stand for themselves: there is no escape and no class, a directory separator is a
/// character like others, and upper and lower case differ. All functions exist for `char` and
/// `wchar_t`, throw nothing but lack of memory, and are safe to call from any thread.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace TarvikCorelib {

/// The state of one attempt to match.
///
/// The attempt walks through text and glob side by side and remembers one place to retry from: the
/// last star seen, with the text behind which it ends for now. On a mismatch the star takes one
/// more character and the walk continues behind it. Earlier stars need no retry: they have matched
/// as early as they can, and a later match would leave less text for the rest of the glob. So there
/// is no recursion and no allocation in the loop; the time is quadratic at worst, and linear for
/// ordinary globs. All positions count from the beginning of the text or of the glob.
template <class Char>
struct GlobParam {
    std::size_t start = 0;  ///< Where the match is to begin.
    bool found = false;
    bool exact = false;  ///< The match must reach to the end of the text.
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

/// The glob with each run of stars reduced to one, which matches the same texts. The matching
/// relies on it: two stars in a row would hide that a star ends the glob.
template <class Char>
[[nodiscard]] std::basic_string<Char> processGlob(std::basic_string_view<Char> glob);

/// Whether the text from `pos` to its end matches the glob. If no text is left there, only "" and
/// "*" match. Otherwise a `count` of 0 matches nothing.
/// Quirk: any other `count` is ignored: it does not limit the text.
template <class Char>
[[nodiscard]] bool matchGlob(std::basic_string_view<Char> text, std::basic_string_view<Char> glob,
                             std::size_t pos, std::size_t count);

/// Start and length of the first match among the `count` characters from `pos` on, all ones meaning
/// the rest of the text. A star takes as few characters as it can, but one that ends the glob takes
/// them all. Nothing if there is no match, if the glob is empty, and if `pos` or `count` leave no
/// character.
template <class Char>
[[nodiscard]] std::optional<std::pair<std::size_t, std::size_t>> findGlob(
    std::basic_string_view<Char> text, std::basic_string_view<Char> glob, std::size_t pos,
    std::size_t count);

}  // namespace TarvikCorelib
