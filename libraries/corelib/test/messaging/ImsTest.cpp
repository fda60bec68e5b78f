#include "libraries/corelib/source/messaging/Ims.h"

#include "libraries/corelib/source/text/StringToolsSearch.h"
#include "libraries/corelib/test/messaging/MessagingTools.h"

#include <gtest/gtest.h>

namespace TarvikCorelib {
namespace {

using tarvik_test::RecordingAgent;

// Three agents on a system of their own.
class ImsTest : public testing::Test {
protected:
    auto hook(RecordingAgent& agent, const char* glob = "", bool onlyOnce = false) {
        return ims.setMessageHook(agent, onlyOnce, "", "", glob, nullptr, HookTypeNormal);
    }

    Ims ims;
    std::string seen;
    RecordingAgent a{"a", ims, seen};
    RecordingAgent b{"b", ims, seen};
    RecordingAgent c{"c", ims, seen};
};

TEST_F(ImsTest, AHookMatchesTheWholeOfEachWordAndItsSource) {
    const auto matches = [&](const char* general, const char* group, const char* type) {
        ims.setMessageHook(a, false, general, group, type, &c, HookTypeNormal);
        ImsMessage message("system", "query", "key");
        seen.clear();
        EXPECT_FALSE(b.sendMessage(message) || c.sendMessage(message));
        EXPECT_EQ(ims.hasHookFor("system", "query", "key", &c), !seen.empty()) << general << type;
        EXPECT_FALSE(ims.hasHookFor("system", "query", "key", &b));
        ims.removeMessageHook(1);
        return seen == "a1key ";
    };
    EXPECT_TRUE(matches("", "", "") && matches("system", "query", "key"));
    EXPECT_TRUE(matches("s*", "*", "k?y"));
    EXPECT_FALSE(matches("query", "", "") || matches("", "quer", "") || matches("", "", "k?"));
    EXPECT_EQ(ImsMessage("a", "\x80", "").compare({"a", "z", "z"}), 1) << "byte by byte";
}

TEST_F(ImsTest, AHookForOneMessageIsSpentByAHandlerAheadThoughItIgnoresTheMessage) {
    hook(a);
    hook(b, "", true);
    for (const int status : {1, 2, 1}) {
        a.status = status;
        EXPECT_EQ(ims.send({"g", "r", "m"}), status == 2);
    }
    EXPECT_EQ(seen, "a1m b2m a1m b2m a1m ");
}

// The records of the system's locks come in the middle of an operation. At that level locks are
// taken in any order, as `ThreadLock.h` says, so the preset `thread` leaves this test out.
TEST_F(ImsTest, WhoHearsTheLocksMaySetAndRemoveTheSameHookMeanwhile) {
    tarvik_test::LogListener log("ThreadLock::lock: ");
    log.action = [&] { EXPECT_THROW(while (true) hook(a), Ims::Hook_Duplicate); };
    EXPECT_THROW(hook(a), Ims::Hook_Duplicate);
    log.action = [&] {
        if (log.take().ends_with("Already locked\n")) ims.removeMessageHook(1);
    };
    EXPECT_FALSE(ims.removeMessageHook(1));
    EXPECT_FALSE(tarvik_test::onAnotherThread([&] { return ims.removeMessageHook(1); })) << "free";
}

struct CountedParameter : ImsMessageParameter {
    explicit CountedParameter(std::shared_ptr<int> alive) : alive(std::move(alive)) {}
    std::shared_ptr<int> alive;
};

TEST_F(ImsTest, QueueingTakesTheParameterWithItsOwnershipWhichACopyNeverHas) {
    const auto alive = std::make_shared<int>();
    a.action = [&](const ImsMessage& message) {
        ImsMessage copy(message);
        copy = message;
        EXPECT_TRUE(copy.parameter != nullptr && !copy.deleteParameter);
    };
    for (const bool delivered : {true, false}) {
        Ims dying;
        const ImsMessage message("g", "r", "m",
                                 std::make_unique<CountedParameter>(alive).release());
        message.deleteParameter = true;
        dying.queue(a, message, 0);
        EXPECT_TRUE(message.parameter == nullptr && !message.deleteParameter);
        if (delivered) dying.update();
        EXPECT_EQ(alive.use_count(), delivered ? 1 : 2);
    }
    EXPECT_EQ(alive.use_count(), 1);
}

TEST_F(ImsTest, TheDefaultSystemHasShortCuts) {
    EXPECT_TRUE(Ims::queueDefault(b, {"g", "r", "1"}, 0) && Ims::queueDefault({"g", "r", ""}, 0));
    Ims::updateDefault();
    EXPECT_EQ(seen, "b-1 ");
}

TEST_F(ImsTest, ThreadsSendAndQueueWhileOthersSetAndRemoveHooksAndUpdate) {
    hook(a);
    c.status = ImsAgent::MsgHandled;
    tarvik_test::onThreads(4, [&](int number) {
        for (int round = 0; round < 5000; ++round) {
            if (number < 2) {
                ims.removeMessageHook(hook(c, number == 0 ? "m" : "*", true));
                ims.update();
            } else {
                ims.send({"g", "r", "m"});
                ims.queue(b, {"g", "r", "m"}, 0);
            }
        }
    });
    ims.update();
    EXPECT_EQ(StringTools::count(seen, "a1m "), 10000U);
    EXPECT_EQ(StringTools::count(seen, "b-m "), 10000U);
}

}  // namespace
}  // namespace TarvikCorelib
