/// Whether the process has been asked to stop, and why.
#pragma once

#include <atomic>
#include <csignal>
#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// The first stop wins: it is the cause, and later ones, which are often its consequences, change
/// nothing until `reset`.
///
/// A signal handler cannot take a lock, since the thread it interrupts may hold it. So a stop is
/// claimed instead: whoever changes `SCode` from 0 to another value, in one atomic step, owns
/// `SReason` from then on, and all others leave it alone. `setSignal` may therefore interrupt any
/// of the other operations at any point. Any thread may ask for a stop; the reason is shown once it
/// is whole. `reset` is for a moment in which nobody asks.
///
///     extern "C" void onSignal(int number) { GlobalData::setSignal(number, "interrupted"); }
///     GlobalData::prepare();
///     std::signal(SIGINT, &onSignal);
///     std::string reason;
///     while (!GlobalData::mustQuit(reason)) work();
class GlobalData {
public:
    enum StopCode : std::int32_t { RunOn = 0, Quit = 1, Restart = 2, StoppedBySignal = 3 };

    /// Blocks all signals of this thread while it lives. For code that changes what a signal
    /// handler reads.
    class SignalBlock {
    public:
        SignalBlock();
        SignalBlock(const SignalBlock&) = delete;
        SignalBlock& operator=(const SignalBlock&) = delete;
        ~SignalBlock();

    private:
        sigset_t before{};
    };

    /// Reserves the memory in which `setSignal` stores its reason. Call it before handlers are set.
    static void prepare();

    /// Ask for an end or a restart. Not for signal handlers: they may allocate.
    static void quit(std::string_view reason);
    static void restart(std::string_view reason);
    /// For signal handlers: never allocates. A reason longer than the reserved memory is cut.
    /// Quirk: the number is not stored, so a run that caught a signal ends like any other.
    static void setSignal(int number, std::string_view reason);

    /// Returns true and sets `reason` if a stop is pending. Otherwise `reason` is left unchanged.
    static bool mustQuit(std::string& reason);
    /// Forgets the stop. Keeps the reserved memory.
    static void reset();

    /// Process-wide. One of `StopCode`.
    static std::atomic<std::int32_t> SCode;
    static_assert(std::atomic<std::int32_t>::is_always_lock_free);
    /// Process-wide. Valid while `SCode` is not 0. No `constinit`: one compiler rejects it.
    static std::string SReason;
    /// Process-wide. `main` reads it for the exit status.
    /// Quirk: nothing sets it, so it is always 0.
    static std::int32_t Signal;

private:
    /// True for the one caller that made this stop the first.
    static bool claim(StopCode code);
};

}  // namespace TarvikCorelib
