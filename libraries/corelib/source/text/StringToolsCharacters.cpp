#include "libraries/corelib/source/text/StringToolsCharacters.h"

namespace TarvikCorelib::StringTools {

const std::string& whitespace() {
    static const std::string characters = " \r\n\t\v\b\f";
    return characters;
}

const std::wstring& whitespaceW() {
    static const std::wstring characters = L" \r\n\t\v\b\f";
    return characters;
}

}  // namespace TarvikCorelib::StringTools
