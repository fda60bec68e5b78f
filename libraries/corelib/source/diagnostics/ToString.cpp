#include "libraries/corelib/source/diagnostics/ToString.h"

#include <array>
#include <cstring>

namespace TarvikCorelib {

std::string ToString::fromInt(long long number) {
    return std::to_string(number);
}

std::string ToString::fromErrno(int number) {
    // The GNU variant, which is safe in any thread: it returns a text of its own or the buffer.
    std::array<char, 256> buffer{};
    const char* const known = strerror_r(number, buffer.data(), buffer.size());
    const std::string text = known != nullptr ? known : "";
    const std::string digits = fromInt(number);
    return "errno=" + digits + ": " + (text.empty() ? "Unknown error " + digits : text);
}

}  // namespace TarvikCorelib
