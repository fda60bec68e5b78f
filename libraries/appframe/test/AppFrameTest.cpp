#include "libraries/appframe/source/AppFrame.h"

#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/process/GlobalData.h"
#include "libraries/corelib/source/system/SystemTools.h"
#include "test/support/AppFrameStateGuard.h"
#include "test/support/ScopedEnv.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <string>

namespace TarvikCorelib {
namespace {

class Application : public AppFrame {
public:
    using Work = int (*)();

    explicit Application(Work work = nullptr)
        : AppFrame("Some Tool", "tool", "1", "", true, "Vendor"), work(work) {}

    bool setAppInstance() override { return AppInstance.type != AppInstanceDefs::Untold; }
    bool construct() override { return true; }
    bool destruct() override { return true; }
    int run() override { return work(); }
    using AppFrame::unknownExceptionRecord;

private:
    Work work;
};

class AppFrameTest : public testing::Test {
protected:
    template <class Action>
    static std::string printedBy(const Action& action) {
        testing::internal::CaptureStdout();
        action();
        return testing::internal::GetCapturedStdout();
    }

    tarvik_test::AppFrameStateGuard guard;
    tarvik_test::ScopedEnv instance{"tarvik_application_instance"};
};

struct RunCase {
    const char* name;
    Application::Work work;
    int result;
    const char* printed;
};

constexpr auto runs = std::to_array<RunCase>({
    {"an end", [] { return 7; }, 7, ""},
    {"a quit", [] { return GlobalData::quit("enough"), 7; }, 7, ""},
    {"a restart", [] { return GlobalData::restart("again"), 7; }, 2, ""},
    {"a standard one", []() -> int { throw std::runtime_error("bad"); }, 4, "STD ERROR: bad\n"},
    {"a literal", []() -> int { throw "bad"; }, 4, "ERROR: bad\n"},
    {"a null pointer", []() -> int { throw nullptr; }, 4, "ERROR: \n"},
    {"a string", []() -> int { throw std::string("bad"); }, 4, "ERROR: bad\n"},
    {"anything", []() -> int { throw 42; }, 4, "ERROR: Unknown exception\n"},
});

TEST_F(AppFrameTest, WhateverLeavesTheRunBecomesTextAndAnExitValue) {
    for (const RunCase& row : runs) {
        GlobalData::reset();
        Application application(row.work);
        int result = 0;
        EXPECT_EQ(printedBy([&] { result = application.runApp(); }), row.printed) << row.name;
        EXPECT_EQ(result, row.result) << row.name;
    }
}

TEST_F(AppFrameTest, AnUnknownExceptionIsLoggedWithAFixedLocation) {
    EXPECT_EQ(Application::unknownExceptionRecord(),
              R"(@unknown-exception{Unknown exception}; @logsrc{file="AppFrame" line=831};)");
}

TEST_F(AppFrameTest, ABadCommandLineIsReportedToTheCaller) {
    std::string tool = "tool";
    std::string word = "--version";
    std::array<char*, 2> words{tool.data(), word.data()};
    AppFrame::CommandLineC = 2;
    AppFrame::CommandLineV = words.data();
    Application application;
    EXPECT_EQ(printedBy([&] { EXPECT_TRUE(application.parseCmd()); }), "Version=7.0.0.0");
    word = "-x";
    words[1] = word.data();
    EXPECT_EQ(printedBy([&] { EXPECT_FALSE(application.parseCmd()); }),
              "ERROR: Unknown option 'x'\n");
}

TEST_F(AppFrameTest, OutputNamesTheProgramAfterASignal) {
    const Application application;
    EXPECT_EQ(printedBy([] { AppFrame::output("50%s\n", true); }), "50%s\n");
    EXPECT_EQ(printedBy([] { AppFrame::output({"cut\0off", 7}, true); }), "cut");
    AppFrame::NoPopupOutput = true;
    EXPECT_EQ(printedBy([] { AppFrame::output(L"wide\n", false); }), "Some Tool: wide\n");
}

struct InstanceCase {
    const char* name;
    AppInstanceDefs instance;
    std::string text;
};

TEST_F(AppFrameTest, AnInstanceIsNamedAsTheApplicationSays) {
    const auto cases = std::to_array<InstanceCase>({
        {"not at all", {0, "x", 5}, "0"},
        {"by its name", {1, "x", 5}, "x"},
        {"by its process", {2, "x", 5}, std::to_string(getpid())},
        {"by its number", {4, "x", 5}, "5"},
        {"in an unknown way", {3, "x", 5}, "0"},
    });
    {
        const tarvik_test::ScopedEnv inherited("tarvik_application_instance", "7");
        EXPECT_EQ(SystemTools::getAppInstance(), "7") << "the parent process names it";
    }
    for (const InstanceCase& row : cases) {
        AppFrame::AppInstance = row.instance;
        Application().setup();
        std::string exported;
        EXPECT_EQ(EnvTools::get("tarvik_application_instance", exported), row.instance.type != 0);
        EXPECT_EQ(exported, row.instance.type != 0 ? row.text : "") << row.name;
        const tarvik_test::ScopedEnv unset("tarvik_application_instance");
        EXPECT_EQ(SystemTools::getAppInstance(), row.text) << row.name;
    }
}

TEST_F(AppFrameTest, ASignalPrintsOneTextAndRequestsAStop) {
    AppFrame::AppInstance = {AppInstanceDefs::Named, "east", 0};
    Application application;
    application.setup();
    EXPECT_EQ(printedBy([] {
                  errno = EDOM;
                  AppFrame::signalQuit(SIGCHLD);
                  AppFrame::signalQuit(SIGINT);
                  AppFrame::signalQuit(SIGTERM);
                  EXPECT_EQ(errno, EDOM);
              }),
              "\b\bSome Tool: tool#east: Intercepted signal 2\n"
              "Some Tool: tool#east: Intercepted signal 15\n");
    EXPECT_TRUE(AppFrame::NoPopupOutput);
    std::string reason;
    EXPECT_TRUE(GlobalData::mustQuit(reason));
    EXPECT_EQ(reason, "Intercepted signal 2");
    EXPECT_EQ(GlobalData::SCode, GlobalData::StoppedBySignal);
}

TEST_F(AppFrameTest, ALongInstanceNameLeavesRoomForWhatHappened) {
    Application application;
    AppFrame::AppInstance = {AppInstanceDefs::Named, std::string(1024, 'x'), 0};
    application.setup();
    EXPECT_EQ(printedBy([] { AppFrame::signalQuit(SIGTERM); }),
              "Some Tool: tool#" + std::string(987, 'x') + ": Intercepted signal 15\n");
}

}  // namespace
}  // namespace TarvikCorelib
