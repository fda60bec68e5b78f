/// Whether the process is to stop, and why.
#pragma once

#include <atomic>
#include <csignal>
#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// The first stop wins; later ones change nothing until `reset`.
///
/// `setSignal` may interrupt any of the others on their own thread. Whoever brings `SCode` from 0
/// to another value owns `SReason` from then on, so the two never write it at once.
class GlobalData {
public:
    enum StopCode : std::int32_t { RunOn = 0, Quit = 1, Restart = 2, StoppedBySignal = 3 };

    /// Blocks all signals while it lives: for those who rewrite what a signal handler reads.
    class SignalBlock {
    public:
        SignalBlock();
        SignalBlock(const SignalBlock&) = delete;
        SignalBlock& operator=(const SignalBlock&) = delete;
        ~SignalBlock();

    private:
        sigset_t before{};
    };

    /// Sets memory aside in which `setSignal` stores its reason.
    static void prepare();

    static void quit(std::string_view reason);
    static void restart(std::string_view reason);
    /// For signal handlers: never allocates. A reason that is longer than the memory set aside is
    /// cut. The number is not stored, on purpose: a run that a signal reached ends as any other.
    static void setSignal(int number, std::string_view reason);

    /// True if the process is to stop; `reason` is left unchanged if not.
    static bool mustQuit(std::string& reason);
    static void reset();

    /// Process-wide. One of `StopCode`.
    static std::atomic<std::int32_t> SCode;
    static_assert(std::atomic<std::int32_t>::is_always_lock_free);
    /// Process-wide. Holds while `SCode` is not 0. No `constinit`: one of the compilers cannot.
    static std::string SReason;
    /// Process-wide. `main` reads it; nothing gives it another value than 0, on purpose.
    static std::int32_t Signal;

private:
    static bool claim(StopCode code);
};

}  // namespace TarvikCorelib
