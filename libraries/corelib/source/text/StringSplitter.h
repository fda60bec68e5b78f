/// Splits texts: lists of words, and command lines.
#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <vector>

namespace TarvikCorelib {

class StringSplitter {
public:
    /// Bits of the flags; 2 means nothing.
    enum SplitFlag : int {
        SplitTrim = 1,
        SplitSkipEmpty = 4,
    };
    static constexpr auto NoLimit = static_cast<std::size_t>(-1);

    /// The items between the delimiters, of which at most `limit`: the last one then holds all that
    /// is left, delimiters included. A text that ends in a delimiter has no empty last item, an
    /// empty text no item at all.
    static std::list<std::string> toList(const std::string& text, char delimiter, int flags,
                                         std::size_t limit);

    /// Splits a command line into its arguments, as told at each step. With `decode` the escapes
    /// inside quotes are turned into the characters they stand for.
    static std::vector<std::string> splitArgString(const std::string& text, bool decode);
};

}  // namespace TarvikCorelib
