#include "libraries/corelib/source/system/FileNames.h"

#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <cwchar>

namespace TarvikCorelib {

// `convert` cuts a character that the locale lacks to its low byte, which may even be a "/". What
// does not come back the same is refused.
bool narrowText(const std::wstring& text, std::string& bytes) {
    bytes = StringTools::convert(text);
    return wideText(bytes) == text;
}

std::string systemName(const std::string& name) {
    return name.find('\0') == std::string::npos ? name : std::string();
}

std::string systemName(const std::wstring& name) {
    std::string bytes;
    return narrowText(name, bytes) ? systemName(bytes) : std::string();
}

std::wstring wideText(std::string_view bytes) {
    std::wstring result;
    result.reserve(bytes.size());
    while (!bytes.empty()) {
        std::mbstate_t state{};
        wchar_t c = 0;
        std::size_t size = std::mbrtowc(&c, bytes.data(), bytes.size(), &state);
        const bool isCharacter = size <= bytes.size();  // The two codes for failures are larger.
        if (!isCharacter) c = static_cast<unsigned char>(bytes.front());
        if (!isCharacter || size == 0) size = 1;
        result += c;
        bytes.remove_prefix(size);
    }
    return result;
}

}  // namespace TarvikCorelib
