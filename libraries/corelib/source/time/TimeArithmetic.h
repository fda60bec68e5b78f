/// Integer arithmetic of the time classes: it stops at the ends of a type instead of overflowing.
#pragma once

#include "libraries/corelib/source/time/TimeUnits.h"

#include <limits>

namespace TarvikCorelib::TimeArithmetic {

inline constexpr long long lowest = std::numeric_limits<long long>::min();
inline constexpr long long highest = std::numeric_limits<long long>::max();

/// The exact result, or the end of the range on its side.
constexpr long long saturatingAdd(long long a, long long b) {
    long long sum = 0;
    if (!__builtin_add_overflow(a, b, &sum)) return sum;
    return a < 0 ? lowest : highest;
}

constexpr long long saturatingSubtract(long long a, long long b) {
    long long difference = 0;
    if (!__builtin_sub_overflow(a, b, &difference)) return difference;
    return a < 0 ? lowest : highest;
}

constexpr long long saturatingMultiply(long long a, long long b) {
    long long product = 0;
    if (!__builtin_mul_overflow(a, b, &product)) return product;
    return (a < 0) == (b < 0) ? highest : lowest;
}

/// The count that lies `milliseconds` later, earlier if negative. Stops at 0 and at all ones.
constexpr TimeType moved(TimeType count, long long milliseconds) {
    TimeType result = 0;
    if (!__builtin_add_overflow(count, milliseconds, &result)) return result;
    return milliseconds < 0 ? 0 : std::numeric_limits<TimeType>::max();
}

/// The same to the other side.
constexpr TimeType movedBack(TimeType count, long long milliseconds) {
    TimeType result = 0;
    if (!__builtin_sub_overflow(count, milliseconds, &result)) return result;
    return milliseconds > 0 ? 0 : std::numeric_limits<TimeType>::max();
}

/// Milliseconds from `from` to `to`, negative if `to` is earlier. Counts more than 2^63 apart, some
/// 290 million years, wrap around.
constexpr long long difference(TimeType to, TimeType from) {
    return static_cast<long long>(to - from);
}

/// Division that rounds down, and its remainder, which is never negative; for positive divisors.
constexpr long long floorDivide(long long value, long long divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

constexpr long long floorModulo(long long value, long long divisor) {
    const long long rest = value % divisor;
    return rest < 0 ? rest + divisor : rest;
}

}  // namespace TarvikCorelib::TimeArithmetic
