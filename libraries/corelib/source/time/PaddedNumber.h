/// Numbers with leading zeros, written into a buffer: the digits of dates, clocks and offsets.
#pragma once

#include <cstddef>
#include <limits>

namespace TarvikCorelib {

/// The most characters that `writePadded` writes for a width up to this.
inline constexpr std::size_t maxPaddedNumber =
    std::numeric_limits<unsigned long long>::digits10 + 2;

/// Writes at least `width` digits and returns where they end. There must be room.
inline char* writeDigits(char* out, unsigned long long value, int width) {
    char* const end = out + width;
    unsigned long long rest = value;
    for (char* at = end; at != out; rest /= 10)
        *--at = static_cast<char>('0' + rest % 10);
    // A number that is too long is rare, so it is not measured first.
    return rest == 0 ? end : writeDigits(out, value, width + 1);
}

/// The same with a "-" for negative numbers, which counts as one of the digits, as in `printf`.
/// `width` is at least 1, and there must be room for `maxPaddedNumber` characters.
inline char* writePadded(char* out, long long value, int width) {
    const auto bits = static_cast<unsigned long long>(value);
    if (value >= 0) return writeDigits(out, bits, width);
    *out++ = '-';
    return writeDigits(out, 0 - bits, width - 1);
}

}  // namespace TarvikCorelib
