#include "libraries/corelib/source/messaging/Logger.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"

#include <gtest/gtest.h>

#include <string>

namespace TarvikCorelib {
namespace {

TEST(LoggerTest, EachLevelHasANameThatIsReadInAnyCase) {
    std::string shown;
    int level = 0;
    for (const char* const name :
         {"NONE", "Fatal", "error", "warning", "info", "verbose", "debug", "trace", "FLOOD"}) {
        EXPECT_TRUE(Logger::isValidDebugLevel(name)) << name;
        EXPECT_EQ(Logger::mapDebugLevel(std::string(name)), level) << name;
        shown += Logger::mapDebugLevel(level++) + " ";
    }
    EXPECT_EQ(shown, "none fatal error warning info verbose debug trace flood ");
}

TEST(LoggerTest, AnUnknownLevelIsUndefinedAndAnUnknownNameSilencesAll) {
    EXPECT_EQ(Logger::mapDebugLevel(-1) + Logger::mapDebugLevel(9), "undefinedundefined");
    EXPECT_EQ(Logger::mapDebugLevel("undefined"), 0);
    for (const char* const name : {"", "undefined", "info ", "4"})
        EXPECT_FALSE(Logger::isValidDebugLevel(name)) << name;
}

TEST(LoggerTest, ItsRevisionShowsInLocationsMadeBelowItToo) {
    Logger::Revision = 12;
    EXPECT_EQ(Logger::formatSource("a/b", 7), " @logsrc{file=\"b\" line=7 rev=12};");
    EXPECT_EQ(here("a/b", 7), " @logsrc{file=\"b\" line=7 rev=12};");
    Logger::Revision = 0;
    const std::string place = here();
    constexpr int line = __LINE__ - 1;
    EXPECT_EQ(place, " @logsrc{file=\"LoggerTest.cpp\" line=" + std::to_string(line) + "};");
}

}  // namespace
}  // namespace TarvikCorelib
