#include "libraries/corelib/source/system/SystemTools.h"

#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/time/TimeSpan.h"
#include "test/support/CorelibStateGuard.h"
#include "test/support/FileFaults.h"
#include "test/support/ScopedEnv.h"
#include "test/support/TempDir.h"
#include "test/support/TimeStateGuard.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <stdexcept>
#include <thread>

namespace TarvikCorelib {
namespace {

class SystemToolsTest : public testing::Test {
protected:
    SystemToolsTest() { SystemTools::resetDetails(); }

    // Detail 3 is "03".
    static void fillDetails() {
        for (int code = 0; code <= 18; ++code)
            SystemTools::Details()[SystemTools::DetailCode{code}] = "0" + std::to_string(code);
    }

    const tarvik_test::CorelibStateGuard state;
    const tarvik_test::TimeStateGuard time{"UTC"};
    const tarvik_test::ScopedEnv noHost{"tarvik_hostname", ""};
    const tarvik_test::ScopedEnv noLanguage{"LANG"};
};

TEST_F(SystemToolsTest, AWordInAnyCaseNamesADirectory) {
    EXPECT_EQ(SystemTools::mapDirCode("ALL_appdata"), SystemTools::DirAllAppData);
    EXPECT_EQ(SystemTools::mapDirCode("cur_temp "), SystemTools::DirUnknown);
    EXPECT_EQ(SystemTools::obtainDir(SystemTools::DirSysTemp), "/tmp");
    const tarvik_test::TempDir home;
    home.write("tmp/tmp", "");
    const tarvik_test::ScopedEnv variable("HOME", home.path());
    EXPECT_EQ(SystemTools::obtainDir(SystemTools::DirCurPersonal), home.path());
    EXPECT_EQ(SystemTools::obtainDir(SystemTools::DirCurTemp), home.path() + "/tmp");
    const tarvik_test::ScopedEnv noDirectory("HOME", home.path() + "/tmp");
    EXPECT_EQ(SystemTools::obtainDir(SystemTools::DirCurTemp), "/tmp") << "a file is none";
}

TEST_F(SystemToolsTest, AGivenHostNameIsTakenWholeAndNamesTheInstance) {
    const auto instanceFor = [](const std::string& host) {
        const tarvik_test::ScopedEnv variable("tarvik_hostname", host);
        SystemTools::resetDetails();
        EXPECT_EQ(SystemTools::getHostName(true), host);
        return SystemTools::getAppInstance();
    };
    const std::string own = SystemTools::getHostName(true);
    EXPECT_EQ(instanceFor(own + "X7"), "7") << "any character may part them";
    EXPECT_EQ(instanceFor("other"), "7") << "as before, from the environment";
    EXPECT_EQ(instanceFor(own), "") << "blank, but named";
    EXPECT_EQ(instanceFor("other#5#6"), "5#6");
    EXPECT_EQ(SystemTools::obtain(SystemTools::DetailAppInstance), "5#6");
}

TEST_F(SystemToolsTest, TheFactsOfTheHostAreInTheTable) {
    const tarvik_test::ScopedEnv display("DISPLAY");
    const tarvik_test::ScopedEnv none("LANG", "C");
    std::string facts;
    for (const int code : {2, 5, 6, 8, 9, 10, 13, 15, 16, 17, 99})
        facts += SystemTools::obtain(SystemTools::DetailCode{code}) + "|";
    EXPECT_EQ(facts, "|linux-64|linux|en_US.UTF-8|en:US|[undef]|||0.0|64||");
    EXPECT_EQ(SystemTools::getCurrentUser(false), SystemTools::getUserFromID(getuid()));
}

TEST_F(SystemToolsTest, ALanguageOfLessThanThreeBytesThrowsAndLeavesNothingHalfDone) {
    for (const char* text : {"", "en"}) {
        const tarvik_test::ScopedEnv language("LANG", text);
        EXPECT_THROW(SystemTools::getHostName(true), std::out_of_range) << text;
        EXPECT_TRUE(SystemTools::Details().empty()) << text;
    }
    // The lock is free.
    std::thread([] { SystemTools::setAppName("App"); }).join();
    const tarvik_test::ScopedEnv shortest("LANG", "fr_");
    EXPECT_EQ(SystemTools::obtain(SystemTools::DetailOsLanguage), "fr_");
    EXPECT_EQ(SystemTools::obtain(SystemTools::DetailAppName), "App");
}

TEST_F(SystemToolsTest, NamesForDisplayAreMadeOfFacts) {
    fillDetails();
    EXPECT_EQ(SystemTools::getCurrentUser(true), "013\\014");
    SystemTools::Details()[SystemTools::DetailUserDomain] = "[unknown]";
    EXPECT_EQ(SystemTools::getCurrentUser(true), "014");
    EXPECT_EQ(SystemTools::getAppNameSafe(), "00#001");
}

TEST_F(SystemToolsTest, AReportHasNoSizeAndNoLineEndForWhatIsNotKnown) {
    DateTimeDetails::modifySystemTime = [](DateTimeDetails& set) { set.set("2001-01-01"); };
    fillDetails();
    std::string report = SystemTools::getReport();
    EXPECT_TRUE(report.starts_with(
        "Version: 7.0.0.0 r25267\nApp: 00 #01\nHost: 03\nMachine: 04\nDomain: 012\nPlatform: 05\n"
        "OS: 06 (017bits v7 lang=08)\nArchitecture: 011\nNetworkmaster: 02\n\nUptime: P\n\n"
        "Memory usage (peak): "))
        << report;
    EXPECT_NE(report.find(" KiB\n\nCPU usage (total): P"), std::string::npos) << report;
    EXPECT_TRUE(report.ends_with("\nCPU utilization: 0 %\n")) << report;

    SystemTools::setNetworkMasterUrl("");
    tarvik_test::FileFaults faults;
    faults.failFrom(1, EACCES, "open");
    report = SystemTools::getReport();
    EXPECT_NE(report.find("011\n\nUptime"), std::string::npos) << report;
    EXPECT_NE(report.find("(current): N/AMemory usage (private): N/A\nCPU"), std::string::npos);
}

TEST_F(SystemToolsTest, ASpanIsOverAtItsVeryEnd) {
    DateTimeDetails::modifySystemTime = [](DateTimeDetails& set) { set.set("2024-03-01"); };
    EXPECT_TRUE(SystemTools::hasTimedOut(TimeSpan("P1M"), DateTime("2024-02-01")));
    EXPECT_FALSE(SystemTools::hasTimedOut(TimeSpan("P29DT0.001S"), DateTime("2024-02-01")));
}

TEST_F(SystemToolsTest, UsersAndGroupsHaveNames) {
    EXPECT_EQ(SystemTools::getUserFromID(0), "root");
    EXPECT_EQ(SystemTools::lookupUserName(0xfffffff0), "");
    EXPECT_EQ(SystemTools::getGroupFromID(0xfffffff0), "[unknown]");
    EXPECT_TRUE(SystemTools::obtainGroups().contains("root"));
    EXPECT_TRUE(SystemTools::obtainGroupUsers("root").contains("root")) << "by the first group";
    EXPECT_TRUE(SystemTools::obtainUserGroups("root").contains("root"));
    EXPECT_TRUE(SystemTools::obtainGroupUsers("no such group").empty());
}

// Ends the process with what the one that goes on has of one without a terminal, as bits.
void detach(std::string argument, int argc = 2) {
    std::array<char*, 2> arguments{argument.data(), argument.data()};
    dup2(0, 60);
    umask(0);
    if (!SystemTools::detachFromParent(argc, arguments.data())) {
        int status = 0;
        wait(&status);
        _exit(WEXITSTATUS(status) | 8);
    }
    bool isFree = getsid(0) == getpid();
    for (const char* stream : {"/proc/self/fd/0", "/proc/self/fd/1", "/proc/self/fd/2"})
        isFree = isFree && std::filesystem::read_symlink(stream) == "/dev/null";
    _exit((isFree ? 1 : 0) | (umask(0) == 022 ? 2 : 0) | (fcntl(60, F_GETFD) == -1 ? 4 : 0));
}

TEST_F(SystemToolsTest, AProcessStaysInTheForegroundForAnyPartOfTheArgument) {
    for (const char* argument : {"--nodetach", "detach", ""})
        EXPECT_EXIT(detach(argument), testing::ExitedWithCode(2), "") << argument;
    EXPECT_EXIT(detach("--nodetach=1"), testing::ExitedWithCode(15), "");
    EXPECT_EXIT(detach("", 1), testing::ExitedWithCode(15), "") << "no argument";
}

}  // namespace
}  // namespace TarvikCorelib
