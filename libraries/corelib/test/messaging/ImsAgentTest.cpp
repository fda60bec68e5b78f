#include "libraries/corelib/source/messaging/ImsAgent.h"

#include "libraries/corelib/source/messaging/SharedLogger.h"
#include "libraries/corelib/test/messaging/MessagingTools.h"

#include <gtest/gtest.h>

namespace TarvikCorelib {
namespace {

using tarvik_test::RecordingAgent;

class ImsAgentTest : public testing::Test {
protected:
    Ims ims;
    Ims elsewhere;
    std::string seen;
    RecordingAgent agent{"agent", ims, seen};
    RecordingAgent target{"target", ims, seen};
    ImsMessage message{"g", "r", "m"};
};

const std::string words = "\tGeneral type: g\n\tGroup type  : r\n\tMessage type: m";
const std::string from = "\tHook from source : target\n";
const std::string once = "\tHook only once   : true";
const std::string globs = "\n\tGeneral type glob: a\n\tGroup type glob  : \n\tMessage type glob: c";
const std::string hooking = "7 setMessageHook: Setting hook:\n";
const std::string hookingOn = "7 setMessageHook: Setting hook for specific IMS system:\n";

TEST_F(ImsAgentTest, EachOperationIsTracedOnceUnlessItIsALoggersOrOfALogRecord) {
    constexpr unsigned long long at = 3471476645006;
    // One that is refused is traced too.
    const auto hook = [](ImsAgent& by, auto&... where) {
        try {
            by.setMessageHook(where..., true, "a", "", "c", HookTypeLast);
        } catch (const ImsAgent::Hook_Duplicate&) {
        }
    };
    const std::vector<std::pair<std::string, std::function<void(ImsAgent&)>>> traces{
        {"8 sendMessage:\n" + words, [&](auto& by) { by.sendMessage(message); }},
        {"7 sendMessage: To \"target\":\n" + words,
         [&](auto& by) { by.sendMessage(target, message); }},
        {"7 sendMessageThroughEMS: To \"services@hosts\", from \"me\"\n" + words + "s",
         [&](auto& by) { by.sendMessageThroughEMS(message, "me", "service", "host"); }},
        {"7 queueMessageDelay: Delay 50 milliseconds\n" + words,
         [&](auto& by) { by.queueMessageDelay(message, 50); }},
        {"7 queueMessageDelay: To \"target\", delay 50 milliseconds\n" + words,
         [&](auto& by) { by.queueMessageDelay(target, message, 50); }},
        {"7 queueMessageDelay: Send at 2010-01-02T03:04:05.006Z\n" + words,
         [&](auto& by) { by.queueMessage(message, at); }},
        {"7 queueMessageDelay: To \"target\", send at 2010-01-02T03:04:05.006Z\n" + words,
         [&](auto& by) { by.queueMessage(target, message, at); }},
        {hooking + once + globs, [&](auto& by) { hook(by); }},
        {hookingOn + once + "s" + globs, [&](auto& by) { hook(by, elsewhere); }},
        {hooking + from + once + globs, [&](auto& by) { hook(by, target); }},
        {hookingOn + from + once + "s" + globs, [&](auto& by) { hook(by, elsewhere, target); }},
        {"7 removeMessageHook: Removing hook 99", [](auto& by) { by.removeMessageHook(99); }},
        {"7 removeMessageHook: Removing hook 99 from specific IMS system",
         [&](auto& by) { by.removeMessageHook(elsewhere, 99); }},
    };
    RecordingAgent logger("logger", ims, seen);
    tarvik_test::LogListener log("ImsAgent::");
    for (const auto& [trace, operation] : traces) {
        operation(logger);
        EXPECT_EQ(log.take(), "") << trace;
        message = ImsMessage("g", "r", "m");
        operation(agent);
        EXPECT_EQ(log.take(), trace + "\n");
        const bool hasMessage = trace.find(words) != std::string::npos;
        EXPECT_EQ(message.source, hasMessage ? &agent : nullptr) << trace;
        message.generalType = "debug";
        if (hasMessage) operation(agent);
        EXPECT_EQ(log.take(), "") << trace;
    }
    Log.load()->handleMessage({"debug", "level", "7"});
    message.generalType = "g";
    agent.sendMessage(message);
    EXPECT_EQ(log.take(), "") << "flood";
}

TEST_F(ImsAgentTest, AHookIsOnItsSystemAndForItsSource) {
    agent.setMessageHook(elsewhere, false, "a", "", "", HookTypeNormal);
    agent.setMessageHook(target, false, "b", "", "", HookTypeNormal);
    agent.setMessageHook(elsewhere, target, false, "c", "", "", HookTypeNormal);
    const auto isHooked = [&](Ims& system, const char* word, bool forAny) {
        return system.hasHookFor(word, "", "", &target) &&
               system.hasHookFor(word, "", "", &agent) == forAny;
    };
    EXPECT_TRUE(isHooked(elsewhere, "a", true) && isHooked(ims, "b", false));
    EXPECT_TRUE(isHooked(elsewhere, "c", false) && agent.removeMessageHook(elsewhere, 2));
    EXPECT_FALSE(isHooked(elsewhere, "c", false) || agent.removeMessageHook(2));
}

TEST_F(ImsAgentTest, AHooksTypeAndWhetherItIsForOneMessageReachTheSystemAndARefusalIsWrapped) {
    agent.setMessageHook(true, "", "", "", HookTypeLast);
    target.setMessageHook(false, "", "", "", HookTypeNormal);
    try {
        agent.setMessageHook(false, "", "", "", HookTypeNormal);
        ADD_FAILURE();
    } catch (const ImsAgent::Hook_Duplicate& refused) {
        EXPECT_EQ(refused.getContained("Hook_Duplicate")->getMessageWithLocation(),
                  "@ims.hook.duplicate{Trying to set a hook identical to a hook already set};"
                  " @logsrc{file=\"Ims\" line=332};");
    }
    agent.status = 2;
    EXPECT_TRUE(agent.sendMessage(message));
    EXPECT_FALSE(agent.sendMessage(message));
    EXPECT_EQ(seen, "target2m agent1m target2m ");
}

TEST_F(ImsAgentTest, ADirectMessagePassesAllHooksAndAnyStatusButOneCountsAsHandled) {
    target.setMessageHook(false, "", "", "", HookTypeFirst);
    for (const int status : {0, 1, 2, 3, 7}) {
        target.status = status;
        EXPECT_EQ(agent.sendMessage(target, message), status != 1) << status;
    }
    EXPECT_EQ(seen, "target-m target-m target-m target-m target-m ");
}

TEST_F(ImsAgentTest, TheGatewayGetsAParameterOfItsOwnWhichTheMessageLosesBehindTheCall) {
    std::string shown;
    target.status = 2;
    target.action = [&](const ImsMessage& sent) {
        const auto& outer = dynamic_cast<EmsMessageParameter&>(*sent.parameter);
        shown += outer.originalGeneralType + " " + outer.targetService + " " + outer.targetHost +
                 " " + outer.sender + " " + std::to_string(outer.innerWord) + ", ";
    };
    target.setMessageHook(false, "ems", "", "", HookTypeNormal);
    message.parameter = std::make_unique<ImsMessageParameter>().release();
    message.parameter->transferWord = 7;
    message.deleteParameter = true;
    EXPECT_TRUE(agent.sendMessageThroughEMS(message, "me", "service", "host"));
    EXPECT_TRUE(message.parameter == nullptr && !message.deleteParameter);
    EXPECT_TRUE(agent.sendMessageThroughEMS(message, "me", "", ""));
    EXPECT_EQ(shown, "g service host me 7, ems   me 0, ");
}

TEST_F(ImsAgentTest, ADelayCountsFromNowAndStopsAtTheLargestTime) {
    target.setMessageHook(agent, false, "", "", "", HookTypeNormal);
    for (const unsigned long long delay : {~0ULL, 3'600'000ULL, 0ULL}) {
        agent.queueMessageDelay(target, message, delay);
        agent.queueMessageDelay(message, delay);
    }
    agent.queueMessage(target, message, 0);
    agent.queueMessage(message, 0);
    ims.update();
    EXPECT_EQ(seen, "target-m target1m target-m target1m ");
}

}  // namespace
}  // namespace TarvikCorelib
