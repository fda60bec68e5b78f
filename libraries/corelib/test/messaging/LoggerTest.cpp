#include "libraries/corelib/source/messaging/Logger.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/messaging/SharedLogger.h"
#include "libraries/corelib/source/process/GlobalData.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/test/messaging/MessagingTools.h"

#include <unistd.h>

namespace TarvikCorelib {
namespace {

class LoggerTest : public MessagingTest {
protected:
    Logger logger{"log", &log};
};

TEST_F(LoggerTest, ANameOfALevelIsReadInAnyCaseAndAnUnknownOneSilencesAll) {
    EXPECT_TRUE(Logger::isValidDebugLevel("None") && Logger::mapDebugLevel(0) == "none");
    EXPECT_TRUE(Logger::isValidDebugLevel("FLOOD") && Logger::mapDebugLevel("FLOOD") == 8);
    EXPECT_EQ(Logger::mapDebugLevel(-1) + Logger::mapDebugLevel(9), "undefinedundefined");
    EXPECT_EQ(Logger::mapDebugLevel("undefined") + Logger::mapDebugLevel("none"), 0);
    EXPECT_FALSE(Logger::isValidDebugLevel("undefined") || Logger::isValidDebugLevel("info "));
}

TEST_F(LoggerTest, ItsRevisionShowsInLocationsMadeBelowItToo) {
    Logger::Revision = 12;
    EXPECT_EQ(Logger::formatSource("a/b", 7), " @logsrc{file=\"b\" line=7 rev=12};");
    EXPECT_EQ(here("a/b", 7), " @logsrc{file=\"b\" line=7 rev=12};");
}

TEST_F(LoggerTest, ARecordPassesIfBothLimitsReachItsLevelAndPlainLogAsksNeither) {
    const auto check = [&](const char* name, int level, const char* words, auto write) {
        EXPECT_EQ(Logger::mapDebugLevel(name), level) << name;
        EXPECT_EQ(Logger::mapDebugLevel(level), name);
        for (const auto& [own, main] : {std::pair(level - 1, 8), {8, level - 1}, {level, level}}) {
            Logger::MainLevel = 8;
            logger.hookMessage(0, {"debug", "level", std::to_string(own)});
            Logger::MainLevel = main;
            write("%");
            write("%", ParamStream() << 5);
            write(Exception("x"));
            EXPECT_EQ(logger.isHeard(level), own == main) << name;
        }
        std::string all = "W %\nW 5\nW Exception: x\n";
        EXPECT_EQ(take(), StringTools::substitute(all, "W", words));
    };
    check("fatal", 1, "functional1", [&](const auto&... what) { logger.fatal(what...); });
    check("error", 2, "functional2", [&](const auto&... what) { logger.error(what...); });
    check("warning", 3, "functional3", [&](const auto&... what) { logger.warning(what...); });
    check("info", 4, "debug4", [&](const auto&... what) { logger.info(what...); });
    check("verbose", 5, "debug5", [&](const auto&... what) { logger.verbose(what...); });
    check("debug", 6, "debug6", [&](const auto&... what) { logger.debug(what...); });
    check("trace", 7, "debug7", [&](const auto&... what) { logger.trace(what...); });
    check("flood", 8, "debug8", [&](const auto&... what) { logger.flood(what...); });
    Logger::MainLevel = Logger::None;
    logger.log(Logger::Flood, "x", {});
    EXPECT_EQ(seen, "debug8 x\n");
}

TEST_F(LoggerTest, ALoggerWithoutATargetIsHeardIfSomebodyHooksThatKindOfRecord) {
    const Logger plain;
    EXPECT_FALSE(plain.isHeard(Logger::Fatal));
    logHook = log.setMessageHook(false, "debug", "functional", "", HookTypeNormal);
    EXPECT_TRUE(plain.isHeard(Logger::Warning) && !plain.isHeard(Logger::Info));
}

TEST_F(LoggerTest, ARecordSaysWhoWroteItWhenAndWhere) {
    const unsigned long long before = DateTime::getCurrentTime();
    log.action = [&](const ImsMessage& message) {
        const auto& record = dynamic_cast<Logger::LogMessageParameter&>(*message.parameter);
        EXPECT_EQ(record.source + std::to_string(record.level), "01234567894");
        EXPECT_TRUE(record.threadId == gettid() && record.processId == getpid());
        EXPECT_TRUE(record.time >= before && record.time <= DateTime::getCurrentTime());
        EXPECT_TRUE(message.generalType == "debug" && message.source == &logger);
    };
    logger.setName("0123456789x");
    onAnotherThread([&] { logger.info("x"); });
    EXPECT_EQ(seen, "debug4 x\n");
}

TEST_F(LoggerTest, AMessageSetsTheLevelUpToTheLimitAndAnyOtherNumberIsHandledToo) {
    EXPECT_EQ(logger.getLevel(), 7);
    Logger::MainLevel = 6;
    const auto statusAndLevel = [&](const ImsMessage& message) {
        EXPECT_TRUE(Ims::sendDefault({"debug", "level", "3"}));
        const int status = logger.hookMessage(0, message);
        return std::pair(status, logger.getLevel());
    };
    EXPECT_EQ(statusAndLevel({"debug", "level", "6"}), std::pair(2, 6));
    EXPECT_EQ(statusAndLevel({"debug", "level", "7"}), std::pair(2, 3));
    EXPECT_EQ(statusAndLevel({"debug", "level", "-1"}), std::pair(2, 3));
    EXPECT_EQ(statusAndLevel({"debug", "level", "x"}), std::pair(2, 0));
    EXPECT_EQ(statusAndLevel({"system", "level", "5"}), std::pair(1, 3));
    EXPECT_EQ(statusAndLevel({"debug", "debug", "5"}), std::pair(1, 3));
}

TEST_F(LoggerTest, AFailureIsLoggedByItsKind) {
    for (const int kind : {0, 1, 2, 3, 4, 5})
        logger.fail(Logger::FailProcedure{kind}, "k", "t", "@", " %", ParamStream() << kind);
    logger.fail(Logger::FailWithDebug, "k", "t", "@", "%");
    EXPECT_EQ(seen,
              "debug6 k:  1\nfunctional3 @k{t}@ 2\nfunctional2 @k{t}@ 3\n"
              "functional1 @k{t}@ 4\ndebug6 k: %\n");
}

TEST_F(LoggerTest, AnExceptionOfASubscriberStopsTheProcessAndAnyOtherPasses) {
    log.action = [](const ImsMessage&) { throw Exception("@k{gone};"); };
    testing::internal::CaptureStdout();
    logger.info("x");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "FATAL ERROR: Exception: gone\n");
    std::string reason;
    EXPECT_TRUE(GlobalData::mustQuit(reason));
    EXPECT_EQ(reason, "Exception: gone");
    log.action = [](const ImsMessage&) { throw 1; };
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
    onThreads(4, 10000, [](int number) {
        const ImsAgent agent("agent");
        ASSERT_NE(Log, nullptr);
        number < 2 ? Log.load()->info("x") : void(Ims::sendDefault({"debug", "level", "4"}));
    });
    EXPECT_EQ(Log, nullptr);
    EXPECT_EQ(LogInstances, 0);
}

}  // namespace
}  // namespace TarvikCorelib
