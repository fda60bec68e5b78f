/// What the tests of messages share: agents that note what they get, and threads.
#pragma once

#include "libraries/corelib/source/messaging/Ims.h"
#include "libraries/corelib/source/messaging/ImsAgent.h"
#include "libraries/corelib/source/messaging/Logger.h"
#include "test/support/CorelibStateGuard.h"

#include <functional>
#include <future>
#include <latch>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace tarvik_test {

/// Notes each message as its own name, the id of the hook and the message type, such as "a1m ", or
/// "a-m " for one that was sent to it alone.
class RecordingAgent : public TarvikCorelib::ImsAgent {
public:
    RecordingAgent(const std::string& name, TarvikCorelib::Ims& system, std::string& seen)
        : ImsAgent(name, system), seen(seen) {}
    int handleMessage(const TarvikCorelib::ImsMessage& message) override {
        return note("-", message);
    }
    int hookMessage(unsigned long long id, const TarvikCorelib::ImsMessage& message) override {
        return note(std::to_string(id), message);
    }

    int status = MsgIgnored;  ///< What it answers.
    std::function<void(const TarvikCorelib::ImsMessage&)> action;

private:
    int note(const std::string& how, const TarvikCorelib::ImsMessage& message) {
        std::unique_lock held(Noting);
        seen += getAgentName() + how + message.messageType + " ";
        held.unlock();
        if (action) action(message);
        return status;
    }

    static inline std::mutex Noting;
    std::string& seen;
};

/// Hears all log records of the process, those of level flood too. Of those that begin with a
/// prefix it keeps the levels and the finished texts without it, one a line.
class LogListener : public TarvikCorelib::ImsAgent {
public:
    explicit LogListener(std::string_view prefix) : ImsAgent("logger"), prefix(prefix) {
        TarvikCorelib::Logger::MainLevel = TarvikCorelib::Logger::Flood;
        TarvikCorelib::Ims::sendDefault({"debug", "level", "8"});
        hook = setMessageHook(false, "debug", "", "", TarvikCorelib::HookTypeNormal);
        heard.clear();
    }
    LogListener(const LogListener&) = delete;
    LogListener& operator=(const LogListener&) = delete;
    ~LogListener() override {
        removeMessageHook(hook);
        TarvikCorelib::Ims::sendDefault({"debug", "level", "7"});
    }
    int hookMessage(unsigned long long /*id*/, const TarvikCorelib::ImsMessage& message) override {
        auto& record =
            dynamic_cast<TarvikCorelib::Logger::LogMessageParameter&>(*message.parameter);
        const std::string text = record.params.format(record.text);
        if (text.starts_with(prefix))
            heard += message.messageType + " " + text.substr(prefix.size()) + "\n";
        if (action) action();
        return MsgHandled;
    }
    std::string take() { return std::exchange(heard, ""); }

    std::function<void()> action;

private:
    CorelibStateGuard guard;
    std::string prefix;
    std::string heard;
    unsigned long long hook = 0;
};

/// Runs a function on several threads, which begin together, and waits for them.
template <class Function>
void onThreads(int count, Function function) {
    std::latch start(count);
    std::list<std::jthread> threads;
    for (int number = 0; number < count; ++number)
        threads.emplace_back([&start, &function, number] {
            start.arrive_and_wait();
            function(number);
        });
}

/// What a function returns on another thread.
template <class Function>
auto onAnotherThread(Function function) {
    return std::async(std::launch::async, function).get();
}

}  // namespace tarvik_test
