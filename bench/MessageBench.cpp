// Sending a message among many hooks, and log calls that stop at the level, reach nobody, or reach
// one subscriber.

#include "libraries/corelib/source/messaging/Ims.h"
#include "libraries/corelib/source/messaging/ImsAgent.h"
#include "libraries/corelib/source/messaging/Logger.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

namespace {

using TarvikCorelib::HookTypeNormal;
using TarvikCorelib::Ims;
using TarvikCorelib::ImsAgent;
using TarvikCorelib::ImsMessage;
using TarvikCorelib::Logger;
using TarvikCorelib::ParamStream;

// Takes what it gets, as a subscriber that has nothing else to do.
class Subscriber : public ImsAgent {
public:
    using ImsAgent::ImsAgent;
    int hookMessage(unsigned long long /*id*/, const ImsMessage& /*message*/) override {
        return MsgHandled;
    }
};

// As many hooks as the argument says, of which the one in the middle matches.
void sendAmong(benchmark::State& state, const std::string& behindTheNumber) {
    Ims system;
    Subscriber subscriber("subscriber", system);
    for (std::int64_t number = 0; number < state.range(0); ++number)
        subscriber.setMessageHook(false, "system", "query",
                                  "key-" + std::to_string(number) + behindTheNumber,
                                  HookTypeNormal);
    const ImsAgent sender("sender", system);
    ImsMessage message("system", "query", "key-" + std::to_string(state.range(0) / 2) + "-name");
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(sender.sendMessage(message));
}

void sendAmongWords(benchmark::State& state) {
    sendAmong(state, "-name");
}

void sendAmongGlobs(benchmark::State& state) {
    sendAmong(state, "-*e");
}

// What one call of a logger costs.
template <class Call>
void logWith(benchmark::State& state, Call call) {
    const Logger logger("bench", nullptr);
    for ([[maybe_unused]] auto _ : state) {
        call(logger);
        benchmark::ClobberMemory();
    }
}

void logBelowTheLevel(benchmark::State& state) {
    logWith(state, [](const Logger& logger) { logger.flood("@bench.text{Key %};"); });
}

void logToNobody(benchmark::State& state) {
    logWith(state, [](const Logger& logger) { logger.info("@bench.text{Key %};"); });
}

void logToOne(benchmark::State& state) {
    Subscriber subscriber("subscriber");
    const unsigned long long hook =
        subscriber.setMessageHook(false, "debug", "debug", "", HookTypeNormal);
    logWith(state, [](const Logger& logger) {
        logger.info("@bench.text{Key %};", ParamStream() << "name");
    });
    subscriber.removeMessageHook(hook);
}

BENCHMARK(sendAmongWords)->Arg(0)->Arg(10)->Arg(1'000);
BENCHMARK(sendAmongGlobs)->Arg(0)->Arg(10)->Arg(1'000);
BENCHMARK(logBelowTheLevel);
BENCHMARK(logToNobody);
BENCHMARK(logToOne);

}  // namespace
