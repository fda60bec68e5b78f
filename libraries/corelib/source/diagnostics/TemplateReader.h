/// The reading of message templates.
#pragma once

#include <string>
#include <string_view>

namespace TarvikCorelib {

/// Takes the text out of a template of the form `@key{text};`.
///
/// Programs of the suite rely on the result for every text, so its odd ends are kept on purpose:
/// - A "}" comes back in front of what follows it, also behind a closed tag: "@a{x}; y" is "x} y".
/// - "@" goes from any text, and so does ";" behind a "}" or at the beginning. Two "@" in a row, or
///   one at the beginning, open a key, which hides all up to the next "{".
/// - A second tag keeps its key, unless nothing but ";" stands between it and the first.
/// - A backslash is not forgotten at "@".
std::string readTemplate(std::string_view text);
std::wstring readTemplate(std::wstring_view text);

}  // namespace TarvikCorelib
