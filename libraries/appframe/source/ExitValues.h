/// The exit values of an application's process. 0 stands for a run that came to its end, whatever
/// it found.
#pragma once

namespace TarvikCorelib {

inline constexpr int exitRestart = 2;  ///< The parent process is to start the application again.
inline constexpr int exitAborted = 3;  ///< SIGABRT came.
inline constexpr int exitFailed = 4;   ///< Something made the run impossible.
inline constexpr int exitSigterm = 5;  ///< SIGTERM stopped the run.
inline constexpr int exitSigint = 6;   ///< SIGINT stopped the run.

}  // namespace TarvikCorelib
