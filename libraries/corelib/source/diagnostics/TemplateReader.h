/// The reading of message templates.
#pragma once

#include <string>
#include <string_view>

namespace TarvikCorelib {

/// Takes the text out of a template of the form `@key{text};`.
///
/// Programs of the suite rely on the result for every text, so its odd ends are kept on purpose: a
/// "}" comes back in front of what follows it, also behind a closed tag; ";" between tags goes; a
/// second tag keeps its key; an escape is not forgotten at "@", and "@" goes from any text.
std::string readTemplate(std::string_view text);
std::wstring readTemplate(std::wstring_view text);

}  // namespace TarvikCorelib
