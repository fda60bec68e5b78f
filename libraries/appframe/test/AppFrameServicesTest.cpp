// Several processes are in the test of examples/agent.

#include "libraries/appframe/source/AppFrame.h"
#include "libraries/corelib/source/services/FileRegistry.h"
#include "libraries/corelib/source/system/SystemTools.h"
#include "test/support/AppFrameStateGuard.h"
#include "test/support/RegistryDir.h"
#include "test/support/ScopedEnv.h"

#include <gtest/gtest.h>

#include <string>

namespace TarvikCorelib {
namespace {

using tarvik_test::ScopedEnv;

class Application : public AppFrame {
public:
    explicit Application(const std::string& name = "Frame-Test")
        : AppFrame("Some Tool", name, "1", "", true, "Vendor") {
        commandLine.specifyOptionWithValueArg("", 'r', "filereg", {});
    }
    bool construct() override { return true; }
    bool destruct() override { return true; }
    int run() override { return 0; }
    bool parse(const std::string& line) { return commandLine.parse(line, answer, ""); }

private:
    std::string answer;
};

class AppFrameServicesTest : public testing::Test {
protected:
    tarvik_test::AppFrameStateGuard guard;
    ScopedEnv directory{"TARVIK_FREG_DIR"};
    tarvik_test::RegistryDir registry;
};

TEST_F(AppFrameServicesTest, TheRegistryIsWhereTheOptionOrElseTheVariableSays) {
    const auto rootBy = [](const std::string& line) {
        Application application;
        EXPECT_TRUE(application.parse(line) && application.configure());
        return FileRegistry::getRootDir();
    };
    const ScopedEnv unset("TARVIK_FREG");
    EXPECT_EQ(rootBy("tool"), registry.path());
    const ScopedEnv set("TARVIK_FREG", "/v");
    EXPECT_EQ(rootBy("tool --filereg /o"), "/o");
    EXPECT_EQ(rootBy("tool"), "/v");
    const ScopedEnv blank("TARVIK_FREG", "");
    EXPECT_EQ(rootBy("tool"), "");
}

TEST_F(AppFrameServicesTest, ANameForConfigurationIsInLowerCaseBehindItsFirstColon) {
    const auto nameOf = [](const char* name) {
        SystemTools::setAppName(name);
        return AppFrame::getAppNameForConf();
    };
    EXPECT_EQ(nameOf("suite:App"), "app");
    EXPECT_EQ(nameOf("App"), "app");
    EXPECT_EQ(nameOf("A:B:C"), "b:c");
}

struct NumberCase {
    const char* before;
    int first;
    int number;
    const char* with;
    const char* without;
};

TEST_F(AppFrameServicesTest, AnInstanceHasTheLowestFreeNumberUntilItEnds) {
    const std::string list = "Frame-Test-enum/list";
    for (const NumberCase& row : {NumberCase{"10;3; 1;0;3", 0, 2, "0;1;2;3;10\n", "0;1;3;10\n"},
                                  {"6;5", 5, 7, "5;6;7\n", "5;6\n"},
                                  {"1", 999999, 999999, "1;999999\n", "1\n"},
                                  {"999999", 999999, 1000000, "999999\n", "999999\n"}}) {
        registry.write(list, row.before);
        AppFrame::AppInstance = {AppInstanceDefs::Untold, "", row.first};
        {
            Application application;
            EXPECT_TRUE(application.useEnum());
            EXPECT_EQ(AppFrame::AppInstance.id, row.number);
            EXPECT_EQ(registry.read(list), row.with);
        }
        EXPECT_EQ(registry.read(list), row.without);
    }
}

TEST_F(AppFrameServicesTest, AFailureTakesNoNumber) {
    registry.write("Frame-Test-enum/string", "0");
    EXPECT_THROW(Application().useEnum(), ConfAgent::GetLocal_WrongType);
    EXPECT_NO_THROW(Application().removeEnum());
    EXPECT_EQ(AppFrame::AppInstance.type, AppInstanceDefs::Untold);
    Application withoutLock(std::string(300, 'x'));
    EXPECT_THROW(withoutLock.useEnum(), ProcessLock::LockFailed);
    EXPECT_THROW(withoutLock.removeEnum(), ProcessLock::LockFailed);
    AppFrame::AppInstance.type = AppInstanceDefs::Enumerated;  // The destructor gives up.
}

}  // namespace
}  // namespace TarvikCorelib
