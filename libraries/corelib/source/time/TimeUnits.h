/// The time scale: what a count of milliseconds means, and its units.
#pragma once

namespace TarvikCorelib {

/// An instant: milliseconds in GMT, on a scale where day 1 is 1 January 1900. So midnight of that
/// day is 86400000, and counts below it lie on day 0. No leap seconds.
using TimeType = unsigned long long;

inline constexpr long long millisecondsPerSecond = 1000;
inline constexpr long long millisecondsPerMinute = 60 * millisecondsPerSecond;
inline constexpr long long millisecondsPerHour = 60 * millisecondsPerMinute;
inline constexpr long long millisecondsPerDay = 24 * millisecondsPerHour;
inline constexpr long long millisecondsPerWeek = 7 * millisecondsPerDay;

/// 1970-01-01T00:00:00Z, where the clocks of the system begin.
inline constexpr TimeType unixEpoch = 25568ULL * millisecondsPerDay;

}  // namespace TarvikCorelib
