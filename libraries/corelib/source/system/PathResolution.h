/// What paths are made of besides their text: variables and links.
#pragma once

#include <string>
#include <string_view>

namespace TarvikCorelib {

/// Puts in the values of "%NAME%", and of "$NAME", which reaches to the next "/" or the end. A name
/// is an environment variable, or one of the words for directories of `SystemTools`. "%%" and "$$"
/// stand for the character. What is unknown stays, and values are not expanded again. A leading
/// "/c:", in either case, becomes "C:".
std::string expandedPath(std::string_view path);

/// Puts the targets of symbolic links in their places, of dangling ones too, element by element. A
/// relative target starts at the directory of its link, and may leave ".." in the path. A path with
/// more than 40 links stays as it was: it may be a circle. So do links of which the system knows
/// more than their text, such as /dev/stdin on a pipe.
std::string tracedPath(std::string_view path);

}  // namespace TarvikCorelib
