/// Reads message templates.
#pragma once

#include <string>
#include <string_view>

namespace TarvikCorelib {

/// Returns the text of a template of the form `@key{text};`.
///
/// Programs of the suite rely on the result for every text, so it is fixed to the byte:
/// - Quirk: a "}" reappears in front of the text after it, also after a closed tag: "@a{x}; y" is
///   "x} y".
/// - Quirk: "@" is dropped from any text, and so is ";" after a "}" or at the beginning. Two "@" in
///   a row, or one at the beginning, open a key, which hides everything up to the next "{".
/// - Quirk: a second tag keeps its key, unless there is nothing but ";" between it and the first.
/// - Quirk: a backslash in front of "@" waits for the second character after it: "a\@bc" is "ab\c".
std::string readTemplate(std::string_view text);
std::wstring readTemplate(std::wstring_view text);

}  // namespace TarvikCorelib
