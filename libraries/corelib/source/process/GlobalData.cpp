#include "libraries/corelib/source/process/GlobalData.h"

#include <cstddef>

namespace TarvikCorelib {

namespace {

// Enough for the words of a signal and a number.
constexpr std::size_t reasonCapacity = 256;

}  // namespace

constinit std::atomic<std::int32_t> GlobalData::SCode{GlobalData::RunOn};
std::string GlobalData::SReason;
constinit std::int32_t GlobalData::Signal = 0;

GlobalData::SignalBlock::SignalBlock() {
    sigset_t all{};
    sigfillset(&all);
    sigprocmask(SIG_SETMASK, &all, &before);
}

GlobalData::SignalBlock::~SignalBlock() {
    sigprocmask(SIG_SETMASK, &before, nullptr);
}

// The handler must not meet a string whose memory is being replaced.
void GlobalData::prepare() {
    const SignalBlock block;
    SReason.reserve(reasonCapacity);
}

void GlobalData::quit(std::string_view reason) {
    if (claim(Quit)) SReason.assign(reason);
}

void GlobalData::restart(std::string_view reason) {
    if (claim(Restart)) SReason.assign(reason);
}

void GlobalData::setSignal(int /*number*/, std::string_view reason) {
    if (claim(StoppedBySignal)) SReason.assign(reason.substr(0, SReason.capacity()));
}

bool GlobalData::mustQuit(std::string& reason) {
    if (SCode == RunOn) return false;
    reason = SReason;
    return true;
}

// `SCode` comes last: while it is not 0, no handler writes the reason. `clear` keeps the memory.
void GlobalData::reset() {
    SReason.clear();
    Signal = 0;
    SCode = RunOn;
}

bool GlobalData::claim(StopCode code) {
    std::int32_t expected = RunOn;
    return SCode.compare_exchange_strong(expected, code);
}

}  // namespace TarvikCorelib
