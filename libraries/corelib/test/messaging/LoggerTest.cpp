#include "libraries/corelib/source/messaging/Logger.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/messaging/SharedLogger.h"
#include "libraries/corelib/source/process/GlobalData.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/test/messaging/MessagingTools.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace TarvikCorelib {
namespace {

TEST(LoggerTest, EachLevelHasANameThatIsReadInAnyCaseAndAnUnknownOneSilencesAll) {
    std::string shown;
    int level = 0;
    for (const char* const name :
         {"NONE", "Fatal", "error", "warning", "info", "verbose", "debug", "trace", "FLOOD"}) {
        EXPECT_TRUE(Logger::isValidDebugLevel(name)) << name;
        EXPECT_EQ(Logger::mapDebugLevel(std::string(name)), level) << name;
        shown += Logger::mapDebugLevel(level++) + " ";
    }
    EXPECT_EQ(shown, "none fatal error warning info verbose debug trace flood ");
    EXPECT_EQ(Logger::mapDebugLevel(-1) + Logger::mapDebugLevel(9), "undefinedundefined");
    EXPECT_EQ(Logger::mapDebugLevel("undefined"), 0);
    EXPECT_FALSE(Logger::isValidDebugLevel("undefined") || Logger::isValidDebugLevel("info "));
}

TEST(LoggerTest, ItsRevisionShowsInLocationsMadeBelowItToo) {
    const tarvik_test::CorelibStateGuard guard;
    Logger::Revision = 12;
    EXPECT_EQ(Logger::formatSource("a/b", 7), " @logsrc{file=\"b\" line=7 rev=12};");
    EXPECT_EQ(here("a/b", 7), " @logsrc{file=\"b\" line=7 rev=12};");
}

// A logger with a target of its own, whose records are kept with their words and finished texts.
class LogTargetTest : public testing::Test {
protected:
    LogTargetTest() {
        target.action = [this](const ImsMessage& message) {
            auto& record = dynamic_cast<Logger::LogMessageParameter&>(*message.parameter);
            records += message.groupType + " " + message.messageType + ": " +
                       record.params.format(record.text) + "\n";
        };
    }

    tarvik_test::CorelibStateGuard guard;
    std::string seen;
    std::string records;
    tarvik_test::RecordingAgent target{"target", Ims::getDefaultMessageSystem(), seen};
    Logger logger{"log", &target};
};

TEST_F(LogTargetTest, ARecordPassesIfBothLimitsReachItsLevelAndPlainLogAsksNeither) {
    const auto check = [&](int level, const char* words, auto write) {
        const int below = level - 1;
        for (const auto& [own, main] : {std::pair(below, 8), {8, below}, {level, level}}) {
            Logger::MainLevel = 8;
            logger.hookMessage(0, {"debug", "level", std::to_string(own)});
            Logger::MainLevel = main;
            write("%");
            write("%", ParamStream() << 5);
            write(Exception("x"));
            EXPECT_EQ(logger.isHeard(level), own == main) << words;
        }
        std::string all = "W%\nW5\nWException: x\n";
        EXPECT_EQ(std::exchange(records, ""), StringTools::substitute(all, "W", words));
    };
    check(1, "functional 1: ", [&](const auto&... what) { logger.fatal(what...); });
    check(2, "functional 2: ", [&](const auto&... what) { logger.error(what...); });
    check(3, "functional 3: ", [&](const auto&... what) { logger.warning(what...); });
    check(4, "debug 4: ", [&](const auto&... what) { logger.info(what...); });
    check(5, "debug 5: ", [&](const auto&... what) { logger.verbose(what...); });
    check(6, "debug 6: ", [&](const auto&... what) { logger.debug(what...); });
    check(7, "debug 7: ", [&](const auto&... what) { logger.trace(what...); });
    check(8, "debug 8: ", [&](const auto&... what) { logger.flood(what...); });
    Logger::MainLevel = Logger::None;
    logger.log(Logger::Flood, "x", {});
    EXPECT_EQ(records, "debug 8: x\n");
}

TEST_F(LogTargetTest, ALoggerWithoutATargetIsHeardIfSomebodyHooksThatKindOfRecord) {
    const Logger plain;
    EXPECT_FALSE(plain.isHeard(Logger::Fatal));
    const auto hook = target.setMessageHook(false, "debug", "functional", "", HookTypeNormal);
    EXPECT_TRUE(plain.isHeard(Logger::Warning) && !plain.isHeard(Logger::Info));
    target.removeMessageHook(hook);
}

TEST_F(LogTargetTest, ARecordSaysWhoWroteItWhenAndWhere) {
    const unsigned long long before = DateTime::getCurrentTime();
    target.action = [&](const ImsMessage& message) {
        const auto& record = dynamic_cast<Logger::LogMessageParameter&>(*message.parameter);
        EXPECT_EQ(record.source + std::to_string(record.level), "01234567894");
        EXPECT_TRUE(record.threadId == gettid() && record.processId == getpid());
        EXPECT_TRUE(record.time >= before && record.time <= DateTime::getCurrentTime());
        EXPECT_TRUE(message.generalType == "debug" && message.source == &logger);
    };
    logger.setName("0123456789x");
    tarvik_test::onThreads(1, [&](int /*number*/) { logger.info("x"); });
    EXPECT_EQ(seen, "target-4 ");
}

TEST_F(LogTargetTest, AMessageSetsTheLevelUpToTheLimitAndAnyOtherNumberIsHandledToo) {
    EXPECT_EQ(logger.getLevel(), 7);
    Logger::MainLevel = 6;
    const auto statusAndLevel = [&](const char* general, const char* group, const char* type) {
        EXPECT_TRUE(Ims::sendDefault({"debug", "level", "3"}));
        const int status = logger.hookMessage(0, {general, group, type});
        return std::pair(status, logger.getLevel());
    };
    EXPECT_EQ(statusAndLevel("debug", "level", "6"), std::pair(2, 6));
    EXPECT_EQ(statusAndLevel("debug", "level", "7"), std::pair(2, 3));
    EXPECT_EQ(statusAndLevel("debug", "level", "-1"), std::pair(2, 3));
    EXPECT_EQ(statusAndLevel("debug", "level", "x"), std::pair(2, 0));
    EXPECT_EQ(statusAndLevel("system", "level", "5"), std::pair(1, 3));
    EXPECT_EQ(statusAndLevel("debug", "debug", "5"), std::pair(1, 3));
}

TEST_F(LogTargetTest, AFailureIsLoggedByItsKind) {
    for (const int kind : {0, 1, 2, 3, 4, 5})
        logger.fail(Logger::FailProcedure{kind}, "k", "t", "@", " %", ParamStream() << kind);
    logger.fail(Logger::FailWithDebug, "k", "t", "@", "%");
    EXPECT_EQ(records,
              "debug 6: k:  1\nfunctional 3: @k{t}@ 2\nfunctional 2: @k{t}@ 3\n"
              "functional 1: @k{t}@ 4\ndebug 6: k: %\n");
}

TEST_F(LogTargetTest, AnExceptionOfASubscriberStopsTheProcessAndAnyOtherPasses) {
    target.action = [](const ImsMessage&) { throw Exception("@k{gone};"); };
    testing::internal::CaptureStdout();
    logger.info("x");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "FATAL ERROR: Exception: gone\n");
    std::string reason;
    EXPECT_TRUE(GlobalData::mustQuit(reason));
    EXPECT_EQ(reason, "Exception: gone");
    target.action = [](const ImsMessage&) { throw 1; };
    EXPECT_THROW(logger.info("x"), int);
}

TEST(SharedLoggerTest, TheFirstAgentMakesItAndItOutlivesThatOne) {
    auto first = std::make_unique<ImsAgent>("first");
    const Logger* const made = Log;
    EXPECT_EQ(made->getName() + made->getAgentName(), "imsagentlogger");
    const auto second = std::make_unique<ImsAgent>("second");
    EXPECT_EQ(Logger().getName() + std::to_string(LogInstances), "anonymous2");
    first.reset();
    EXPECT_EQ(Log, made);
}

TEST(SharedLoggerTest, ThreadsMakeItLogSetItsLevelAndDestroyIt) {
    const tarvik_test::CorelibStateGuard guard;
    tarvik_test::onThreads(4, [](int number) {
        for (int round = 0; round < 10000; ++round) {
            const ImsAgent agent("agent");
            ASSERT_NE(Log, nullptr);
            number < 2 ? Log.load()->info("x") : void(Ims::sendDefault({"debug", "level", "4"}));
        }
    });
    EXPECT_EQ(Log, nullptr);
    EXPECT_EQ(LogInstances, 0);
}

}  // namespace
}  // namespace TarvikCorelib
