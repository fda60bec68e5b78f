#include "libraries/corelib/source/process/GlobalData.h"

#include <cstddef>

namespace TarvikCorelib {

namespace {

// Enough for the words of a signal and a number.
constexpr std::size_t reasonCapacity = 256;

// Those who are about to claim a stop or to write its reason. A signal handler may be among them.
constinit std::atomic<int> writers{0};
static_assert(std::atomic<int>::is_always_lock_free);

class Writing {
public:
    Writing() { ++writers; }
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;
    ~Writing() { --writers; }
};

}  // namespace

constinit std::atomic<std::int32_t> GlobalData::SCode{GlobalData::RunOn};
std::string GlobalData::SReason;
constinit std::int32_t GlobalData::Signal = 0;

GlobalData::SignalBlock::SignalBlock() {
    sigset_t all{};
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
}

GlobalData::SignalBlock::~SignalBlock() {
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

// The handler must not meet a string whose memory is being replaced.
void GlobalData::prepare() {
    const SignalBlock block;
    SReason.reserve(reasonCapacity);
}

void GlobalData::quit(std::string_view reason) {
    const Writing writing;
    if (claim(Quit)) SReason.assign(reason);
}

void GlobalData::restart(std::string_view reason) {
    const Writing writing;
    if (claim(Restart)) SReason.assign(reason);
}

void GlobalData::setSignal(int /*number*/, std::string_view reason) {
    const Writing writing;
    if (claim(StoppedBySignal)) SReason.assign(reason.substr(0, SReason.capacity()));
}

// A stop that another thread is just requesting is reported by the next call, with its reason.
bool GlobalData::mustQuit(std::string& reason) {
    if (SCode == RunOn || writers != 0) return false;
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
