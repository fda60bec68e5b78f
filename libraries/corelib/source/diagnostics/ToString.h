/// Numbers as text, for messages.
#pragma once

#include <string>

namespace TarvikCorelib {

class ToString {
public:
    ToString() = delete;

    /// Decimal digits, with a "-" in front if the number is negative.
    static std::string fromInt(long long number);
    /// The number and the operating system's text for it: "errno=2: No such file or directory". A
    /// number without a text gives "Unknown error 99999".
    static std::string fromErrno(int number);
};

}  // namespace TarvikCorelib
