/// Numbers as text, for messages.
#pragma once

#include <string>

namespace TarvikCorelib {

class ToString {
public:
    ToString() = delete;

    /// Plain decimal digits, behind a "-" if the number is negative.
    static std::string fromInt(long long number);
    /// The number and the operating system's text for it: "errno=2: No such file or directory".
    static std::string fromErrno(int number);
};

}  // namespace TarvikCorelib
