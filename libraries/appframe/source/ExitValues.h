/// What the exit value of an application's process means. 0: it ended as it should.
#pragma once

namespace TarvikCorelib {

inline constexpr int exitRestart = 2;  ///< The parent process is to start the application again.
inline constexpr int exitAborted = 3;  ///< SIGABRT came.
inline constexpr int exitFailed = 4;   ///< Something made the run impossible.
inline constexpr int exitSigterm = 5;
inline constexpr int exitSigint = 6;

}  // namespace TarvikCorelib
