#include "libraries/corelib/source/messaging/ImsAgent.h"

#include "libraries/corelib/source/messaging/SharedLogger.h"
#include "libraries/corelib/test/messaging/MessagingTools.h"

namespace TarvikCorelib {
namespace {

using ImsAgentTest = MessagingTest;

const std::string words = "\tGeneral type: g\n\tGroup type  : r\n\tMessage type: m";
const std::string from = "\tHook from source : b\n";
const std::string once = "\tHook only once   : true";
const std::string globs = "\n\tGeneral type glob: a\n\tGroup type glob  : \n\tMessage type glob: c";
const std::string hooking = "debug7 setMessageHook: Setting hook:\n";
const std::string hookingOn = "debug7 setMessageHook: Setting hook for specific IMS system:\n";

TEST_F(ImsAgentTest, EachOperationIsTracedAheadUnlessItIsALoggersOrOfALogRecord) {
    ImsAgent logger("logger", ims);
    ImsAgent target("b", ims);
    constexpr unsigned long long at = 3471476645006;
    const auto hook = [](ImsAgent& by, auto&... where) {
        by.setMessageHook(where..., true, "a", "", "c", HookTypeLast);
    };
    const std::vector<std::pair<std::string, std::function<void(ImsAgent&)>>> traces{
        {"debug8 sendMessage:\n" + words, [&](auto& by) { by.sendMessage(message); }},
        {"debug7 sendMessage: To \"b\":\n" + words,
         [&](auto& by) { by.sendMessage(target, message); }},
        {"debug7 sendMessageThroughEMS: To \"services@hosts\", from \"me\"\n" + words + "s",
         [&](auto& by) { by.sendMessageThroughEMS(message, "me", "service", "host"); }},
        {"debug7 queueMessageDelay: Delay 50 milliseconds\n" + words,
         [&](auto& by) { by.queueMessageDelay(message, 50); }},
        {"debug7 queueMessageDelay: To \"b\", delay 50 milliseconds\n" + words,
         [&](auto& by) { by.queueMessageDelay(target, message, 50); }},
        {"debug7 queueMessageDelay: Send at 2010-01-02T03:04:05.006Z\n" + words,
         [&](auto& by) { by.queueMessage(message, at); }},
        {"debug7 queueMessageDelay: To \"b\", send at 2010-01-02T03:04:05.006Z\n" + words,
         [&](auto& by) { by.queueMessage(target, message, at); }},
        {hooking + once + globs, [&](auto& by) { hook(by); }},
        {hookingOn + once + "s" + globs, [&](auto& by) { hook(by, elsewhere); }},
        {hooking + from + once + globs,
         [&](auto& by) { EXPECT_THROW(hook(by, target), ImsAgent::Hook_Duplicate); }},
        {hookingOn + from + once + "s" + globs,
         [&](auto& by) { EXPECT_THROW(hook(by, elsewhere, target), ImsAgent::Hook_Duplicate); }},
        {"debug7 removeMessageHook: Removing hook 99", [](auto& by) { by.removeMessageHook(99); }},
        {"debug7 removeMessageHook: Removing hook 99 from specific IMS system",
         [&](auto& by) { by.removeMessageHook(elsewhere, 99); }},
    };
    listen("ImsAgent::");
    for (const auto& [trace, operation] : traces) {
        const bool hasMessage = trace.find(words) != std::string::npos;
        operation(logger);
        message = ImsMessage("debug", "r", "m");
        if (hasMessage) operation(a);
        message = ImsMessage("g", "r", "m");
        operation(a);
        EXPECT_EQ(take(), trace + "\n");
        EXPECT_EQ(message.source, hasMessage ? &a : nullptr) << trace;
    }
    Log.load()->handleMessage({"debug", "level", "7"});
    a.sendMessage(message);
    EXPECT_EQ(take(), "") << "flood";
}

TEST_F(ImsAgentTest, AHookIsOnItsSystemAndForItsSource) {
    a.setMessageHook(elsewhere, false, "a", "", "", HookTypeNormal);
    a.setMessageHook(b, false, "b", "", "", HookTypeNormal);
    a.setMessageHook(elsewhere, b, false, "c", "", "", HookTypeNormal);
    EXPECT_TRUE(elsewhere.hasHookFor("a", "", "", &c) && ims.hasHookFor("b", "", "", &b));
    EXPECT_FALSE(ims.hasHookFor("b", "", "", &c) || elsewhere.hasHookFor("c", "", "", &c));
    EXPECT_TRUE(elsewhere.hasHookFor("c", "", "", &b) && a.removeMessageHook(elsewhere, 2));
    EXPECT_FALSE(elsewhere.hasHookFor("c", "", "", &b) || a.removeMessageHook(2));
}

TEST_F(ImsAgentTest, AHooksTypeAndWhetherItIsForOneMessageReachTheSystemAndARefusalIsWrapped) {
    a.setMessageHook(true, "", "", "", HookTypeLast);
    b.setMessageHook(false, "", "", "", HookTypeNormal);
    try {
        a.setMessageHook(false, "", "", "", HookTypeNormal);
        ADD_FAILURE();
    } catch (const ImsAgent::Hook_Duplicate& refused) {
        EXPECT_EQ(refused.getContained("Hook_Duplicate")->getMessageWithLocation(),
                  "@ims.hook.duplicate{Trying to set a hook identical to a hook already set};"
                  " @logsrc{file=\"Ims\" line=332};");
    }
    a.status = ImsAgent::MsgHandled;
    EXPECT_TRUE(a.sendMessage(message));
    EXPECT_FALSE(a.sendMessage(message));
    EXPECT_EQ(seen, "b2m a1m b2m ");
}

TEST_F(ImsAgentTest, ADirectMessagePassesAllHooksAndAnyStatusButOneCountsAsHandled) {
    b.setMessageHook(false, "g", "", "", HookTypeFirst);
    listen("ImsAgent::");
    for (const int status : {0, 1, 2, 3, 7}) {
        b.status = status;
        EXPECT_EQ(a.sendMessage(b, message), status != 1) << status;
        EXPECT_TRUE(take().ends_with("type: m\nb-m ")) << "traced ahead";
    }
    EXPECT_TRUE(!a.sendMessage(message) && take().ends_with("type: m\nb1m "));
}

TEST_F(ImsAgentTest, TheGatewayGetsAParameterOfItsOwnWhichTheMessageLosesBehindTheCall) {
    std::string shown;
    b.status = ImsAgent::MsgHandled;
    b.action = [&](const ImsMessage& sent) {
        const auto& outer = dynamic_cast<EmsMessageParameter&>(*sent.parameter);
        shown += outer.originalGeneralType + " " + outer.targetService + " " + outer.targetHost +
                 " " + outer.sender + " " + std::to_string(outer.innerWord) + ", ";
    };
    b.setMessageHook(false, "ems", "", "", HookTypeNormal);
    message.parameter = std::make_unique<ImsMessageParameter>().release();
    message.parameter->transferWord = 7;
    message.deleteParameter = true;
    EXPECT_TRUE(a.sendMessageThroughEMS(message, "me", "service", "host"));
    EXPECT_TRUE(message.parameter == nullptr && !message.deleteParameter);
    EXPECT_TRUE(a.sendMessageThroughEMS(message, "me", "", ""));
    EXPECT_EQ(shown, "g service host me 7, ems   me 0, ");
}

TEST_F(ImsAgentTest, ADelayCountsFromNowAndStopsAtTheLargestTime) {
    b.setMessageHook(a, false, "", "", "", HookTypeNormal);
    for (const unsigned long long delay : {~0ULL, 3'600'000ULL, 0ULL}) {
        a.queueMessageDelay(b, message, delay);
        a.queueMessageDelay(message, delay);
    }
    a.queueMessage(b, message, 0);
    a.queueMessage(message, 0);
    ims.update();
    EXPECT_EQ(seen, "b-m b1m b-m b1m ");
}

}  // namespace
}  // namespace TarvikCorelib
