/// The values that fill the `%` of a message's template.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TarvikCorelib {

/// A list of values, kept as text.
class ParamStream {
public:
    ParamStream& operator<<(const std::string& value);
    ParamStream& operator<<(const char* value) { return *this << std::string(value); }
    ParamStream& operator<<(int value) { return *this << std::to_string(value); }
    ParamStream& operator<<(unsigned int value) { return *this << std::to_string(value); }
    ParamStream& operator<<(long long value) { return *this << std::to_string(value); }
    ParamStream& operator<<(unsigned long long value) { return *this << std::to_string(value); }

    /// Each `%` takes the next value; once they are used up it gives nothing, and values that are
    /// left over are ignored. A backslash shields the character behind it and stays. With no values
    /// at all the text is returned as it is, `%` included.
    [[nodiscard]] std::string format(std::string_view text) const;

private:
    std::vector<std::string> values;
};

}  // namespace TarvikCorelib
