#include "libraries/corelib/source/text/ParamStream.h"

namespace TarvikCorelib {

ParamStream& ParamStream::operator<<(const std::string& value) {
    values.push_back(value);
    return *this;
}

std::string ParamStream::format(std::string_view text) const {
    if (values.empty()) return std::string(text);
    std::string result;
    auto next = values.begin();
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] != '%') {
            result += text[index];
            const bool shields = text[index] == '\\' && index + 1 < text.size();
            if (shields) result += text[++index];
        } else if (next != values.end()) {
            result += *next++;
        }
    }
    return result;
}

}  // namespace TarvikCorelib
