/// Matches texts with globs, and finds globs in texts.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"
#include "libraries/corelib/source/text/GlobMatching.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace TarvikCorelib {

/// What a glob is, and what the operations do at the edges, is told with the functions of
/// `GlobMatching.h`, which these call. All are safe to call from any thread.
class GlobMatcher {
public:
    using GlobParamString = GlobParam<char>;
    using GlobParamWString = GlobParam<wchar_t>;

    using Find_NotFound = NamedException<GlobMatcher, "Find_NotFound">;
    using Find_OutOfBounds = NamedException<GlobMatcher, "Find_OutOfBounds">;

    /// All ones: as many characters as are left.
    static constexpr auto NoLimit = std::string_view::npos;

    /// Whether all of the text from `pos` on matches. Apart from 0, which matches no text, `count`
    /// is ignored on purpose.
    [[nodiscard]] static bool match(std::string_view text, std::string_view glob,
                                    std::size_t pos = 0, std::size_t count = NoLimit);
    [[nodiscard]] static bool match(std::wstring_view text, std::wstring_view glob,
                                    std::size_t pos = 0, std::size_t count = NoLimit);

    /// The same with both turned to lower case, by the process locale.
    [[nodiscard]] static bool matchIgnoreCase(std::string_view text, std::string_view glob,
                                              std::size_t pos = 0, std::size_t count = NoLimit);
    [[nodiscard]] static bool matchIgnoreCase(std::wstring_view text, std::wstring_view glob,
                                              std::size_t pos = 0, std::size_t count = NoLimit);

    /// Start and length of the first match among the `count` characters from `pos` on. Throws
    /// `Find_OutOfBounds` if that leaves no character, `Find_NotFound` if there is no match, as for
    /// an empty glob.
    [[nodiscard]] static std::pair<std::size_t, std::size_t> find(std::string_view text,
                                                                  std::string_view glob,
                                                                  std::size_t pos = 0,
                                                                  std::size_t count = NoLimit);
    [[nodiscard]] static std::pair<std::size_t, std::size_t> find(std::wstring_view text,
                                                                  std::wstring_view glob,
                                                                  std::size_t pos = 0,
                                                                  std::size_t count = NoLimit);

    /// The glob with each run of stars reduced to one.
    [[nodiscard]] static std::string processGlob(std::string_view glob);
    [[nodiscard]] static std::wstring processGlob(std::wstring_view glob);

    /// The smaller.
    [[nodiscard]] static std::size_t validateSize(std::size_t a, std::size_t b);
};

}  // namespace TarvikCorelib
