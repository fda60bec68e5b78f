/// What the tests of messages share: agents that note what they get, and threads.
#pragma once

#include "libraries/corelib/source/messaging/Ims.h"
#include "libraries/corelib/source/messaging/Logger.h"
#include "test/support/CorelibStateGuard.h"

#include <gtest/gtest.h>

#include <functional>
#include <future>
#include <latch>
#include <mutex>
#include <thread>
#include <utility>

namespace TarvikCorelib {

/// Notes each message as its own name, the id of the hook and the message type, such as "a1m ", or
/// "a-m " for one that was sent to it alone. Of a log record that begins with `prefix` it notes the
/// words and the finished text behind the prefix, on a line.
class RecordingAgent : public ImsAgent {
public:
    RecordingAgent(const std::string& name, Ims& system, std::string& seen)
        : ImsAgent(name, system), seen(seen) {}
    int handleMessage(const ImsMessage& message) override { return note("-", message); }
    int hookMessage(unsigned long long id, const ImsMessage& message) override {
        return note(std::to_string(id), message);
    }

    int status = MsgIgnored;  ///< What it answers.
    std::function<void(const ImsMessage&)> action;
    std::string prefix;

private:
    int note(const std::string& how, const ImsMessage& message) {
        std::string text = getAgentName() + how + message.messageType + " ";
        if (auto* record = dynamic_cast<Logger::LogMessageParameter*>(message.parameter)) {
            text = record->params.format(record->text) + "\n";
            const bool isWanted = text.starts_with(prefix);
            text.replace(0, prefix.size(), message.groupType + message.messageType + " ");
            if (!isWanted) text.clear();
        }
        std::unique_lock held(Noting);
        seen += text;
        held.unlock();
        if (action) action(message);
        return status;
    }

    static inline std::mutex Noting;
    std::string& seen;
};

/// Three agents on a system of their own, and one for the log.
class MessagingTest : public testing::Test {
protected:
    void TearDown() override {
        log.action = {};
        log.removeMessageHook(logHook);
    }
    auto hook(RecordingAgent& agent, const char* glob = "", HookType type = HookTypeNormal,
              bool onlyOnce = false) {
        return ims.setMessageHook(agent, onlyOnce, "", "", glob, nullptr, type);
    }
    /// From now on all log records of the process are heard, those of level flood too.
    void listen(const char* prefix) {
        Logger::MainLevel = Logger::Flood;
        Ims::sendDefault({"debug", "level", "8"});
        logHook = log.setMessageHook(false, "debug", "", "", HookTypeNormal);
        log.prefix = prefix;
        seen.clear();
    }
    std::string take() { return std::exchange(seen, ""); }

    tarvik_test::CorelibStateGuard guard;
    Ims ims;
    Ims elsewhere;
    ImsMessage message{"g", "r", "m"};
    std::string seen;
    RecordingAgent a{"a", ims, seen};
    RecordingAgent b{"b", ims, seen};
    RecordingAgent c{"c", ims, seen};
    RecordingAgent log{"logger", Ims::getDefaultMessageSystem(), seen};
    unsigned long long logHook = 0;
};

/// Calls a function again and again on several threads, which begin together, and waits for them.
template <class Function>
void onThreads(int count, int rounds, Function function) {
    std::latch start(count);
    std::list<std::jthread> threads;
    for (int number = 0; number < count; ++number)
        threads.emplace_back([=, &start, &function] {
            start.arrive_and_wait();
            for (int round = 0; round < rounds; ++round)
                function(number);
        });
}

/// What a function returns on another thread.
template <class Function>
auto onAnotherThread(Function function) {
    return std::async(std::launch::async, function).get();
}

}  // namespace TarvikCorelib
