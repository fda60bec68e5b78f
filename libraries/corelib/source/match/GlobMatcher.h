/// Matches texts with globs, and finds globs in texts.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"
#include "libraries/corelib/source/text/GlobMatching.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace TarvikCorelib {

/// Adds exceptions and the ignoring of case to the functions of `GlobMatching.h`, which describes
/// globs. Those never throw, so code below the exceptions can match too. They keep one retry point,
/// the last star, instead of recursing: at worst the time is the product of both lengths, and the
/// only memory is a copy of the glob. All operations are safe to call from any thread.
///
///     GlobMatcher::match("a/b.txt", "*.txt");          // true: "/" is no separator
///     GlobMatcher::matchIgnoreCase("A.TXT", "?.txt");  // true
///     GlobMatcher::find("say hello, you", "h*o");      // 4, 5: as little as will do
///     GlobMatcher::find("say hello, you", "h*");       // 4, 10: all, for a star at the end
class GlobMatcher {
public:
    /// The state of one attempt, for narrow and wide texts.
    using GlobParamString = GlobParam<char>;
    using GlobParamWString = GlobParam<wchar_t>;

    /// Both carry no text: the name says it all.
    using Find_NotFound = NamedException<GlobMatcher, "Find_NotFound">;
    using Find_OutOfBounds = NamedException<GlobMatcher, "Find_OutOfBounds">;

    /// All ones: as many characters as there are.
    static constexpr auto NoLimit = std::string_view::npos;

    /// Whether the whole text from index `pos` on matches. From its end on, only "" and "*" match;
    /// before that, "" matches nothing.
    /// Quirk: `count` is ignored unless it is 0, which matches nothing.
    [[nodiscard]] static bool match(std::string_view text, std::string_view glob,
                                    std::size_t pos = 0, std::size_t count = NoLimit);
    [[nodiscard]] static bool match(std::wstring_view text, std::wstring_view glob,
                                    std::size_t pos = 0, std::size_t count = NoLimit);

    /// The same with text and glob in lower case, by the process locale. Copies both.
    [[nodiscard]] static bool matchIgnoreCase(std::string_view text, std::string_view glob,
                                              std::size_t pos = 0, std::size_t count = NoLimit);
    [[nodiscard]] static bool matchIgnoreCase(std::wstring_view text, std::wstring_view glob,
                                              std::size_t pos = 0, std::size_t count = NoLimit);

    /// Start and length of the first match among the `count` characters from index `pos` on. Throws
    /// `Find_OutOfBounds` if there is no character to search, and `Find_NotFound` if there is no
    /// match; an empty glob never matches.
    [[nodiscard]] static std::pair<std::size_t, std::size_t> find(std::string_view text,
                                                                  std::string_view glob,
                                                                  std::size_t pos = 0,
                                                                  std::size_t count = NoLimit);
    [[nodiscard]] static std::pair<std::size_t, std::size_t> find(std::wstring_view text,
                                                                  std::wstring_view glob,
                                                                  std::size_t pos = 0,
                                                                  std::size_t count = NoLimit);

    /// The glob with each run of stars replaced by one star.
    [[nodiscard]] static std::string processGlob(std::string_view glob);
    [[nodiscard]] static std::wstring processGlob(std::wstring_view glob);

    /// Returns the smaller of the two.
    [[nodiscard]] static std::size_t validateSize(std::size_t a, std::size_t b);
};

}  // namespace TarvikCorelib
