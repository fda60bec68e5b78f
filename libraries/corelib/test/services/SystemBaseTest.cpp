#include "libraries/corelib/source/services/SystemBase.h"

#include "libraries/corelib/source/messaging/Ims.h"
#include "libraries/corelib/source/services/ConfAgent.h"
#include "test/support/RegistryDir.h"

#include <gtest/gtest.h>

#include <list>
#include <memory>
#include <string>
#include <tuple>

namespace TarvikCorelib {
namespace {

// An operation, a key, a type and a scope; then the answer, the status, and what the value of the
// caller is, who had " mine".
using Request = std::tuple<const char*, const char*, int, int, const char*>;

TEST(SystemBaseTest, ARequestIsAnsweredWithAStatus) {
    const tarvik_test::RegistryDir dir;
    dir.write("text/string", " a b \n");
    dir.write("Resources/text/string", "resource\n");
    dir.write("InstallDir/string", "/install\n");
    dir.write("TempDir/string", "/temp \n");
    dir.write("a-directory/string/file", "");
    for (const auto& [operation, key, type, scope, outcome] :
         {Request{"query", "text", 24, 0, "3 1  a b "},
          {"query", "text", 24, 6, "3 1 a b"},
          {"query", "text:Client", 24, 0, "3 1 resource"},
          {"query", "text:Server", 24, 0, "3 1 resource"},
          {"query", "text:x:Client", 24, 0, "3 1  a b "},
          {"query", "none", 24, 0, "3 3  mine"},
          {"query", "a-directory", 24, 0, "3 4  mine"},
          {"query", "text", 19, 0, "2 5  mine"},
          {"query", "text", 26, 0, "2 5  mine"},
          {"set", "new", 24, 22, "3 1  mine"},
          {"set", "text/string/below-a-file", 24, 0, "3 3  mine"},
          {"set", "a-directory", 24, 0, "3 6  mine"},
          {"set", "os", 20, 0, "3 11  mine"},
          {"get", "text", 24, 0, "1 0  mine"},
          {"query", "OS", 20, 0, "2 3  mine"},
          {"query", "os.argument", 20, 0, "3 1 linux"},
          {"query", "osbits", 20, 0, "3 1 64"},
          {"query", "groupusers.no such group", 20, 0, "3 1 "},
          {"query", "keyboardtype", 20, 0, "3 1 [undef]"},
          {"query", "diskserial.x", 20, 0, "3 1 [unknown]"}}) {
        std::string value = " mine";
        SystemQueryParam param(key, type, &value, scope);
        const int answer = SystemBase().handleMessage({"system", operation, "", &param});
        std::string found = std::to_string(answer) + " " + std::to_string(param.status);
        EXPECT_EQ(found.append(" ").append(value), outcome) << key;
    }
    EXPECT_EQ(dir.read("new/string"), "mine\n");
    EXPECT_EQ(SystemBase::getConfDir() + SystemBase::getInstallDir() + SystemBase::getTempDir(),
              "/install/temp ");
}

TEST(SystemBaseTest, WhatCannotBeAnsweredIsRefusedOrIgnored) {
    SystemQueryParam param("os", SystemQueryParam::SystemText, nullptr, 0);
    const auto outcomeOf = [&](int answer) { return answer * 10 + param.status; };
    EXPECT_EQ(outcomeOf(SystemBase::queryLocalConf(param)), 23);
    EXPECT_EQ(outcomeOf(SystemBase::setLocalConf(param)), 29);
    EXPECT_EQ(outcomeOf(SystemBase::querySystem(param)), 26);
    param.type = SystemQueryParam::LocalList;
    EXPECT_EQ(outcomeOf(SystemBase::setLocalConf(param)), 26);
    EXPECT_EQ(SystemBase::query({"system", "query", ""}), 1);
    EXPECT_EQ(SystemBase().handleMessage({"conf", "query", "", &param}), 1);
    EXPECT_EQ(SystemBase().hookMessage(0, {"system", "query", "", &param}), 1);
}

TEST(SystemBaseTest, AConfigurationAgentReachesTheRegistry) {
    const tarvik_test::RegistryDir dir;
    const SystemBase base;
    const ConfAgent agent;
    for (int step = 0; step < 2; ++step) {
        agent.modifyLocalConf("sum", -5, 0);
        agent.modifyLocalConf("sum", 7U, 0);
        agent.modifyLocalConf("sum", std::list<std::string>{" a ", "b\n"}, 6);
        agent.setLocalConf("sum", 0.5, 0);
    }
    EXPECT_EQ(agent.getLocalConfInt("sum", 0), -10);
    EXPECT_EQ(agent.getLocalConfUInt("sum", 0), 14U);
    EXPECT_EQ(agent.getLocalConfFloat("sum", 0), 0.5);
    EXPECT_EQ(agent.getLocalConfList("sum", 0), (std::list<std::string>{"a", "b"}));
}

// An agent that died with a hook blocks the next one at its address.
TEST(SystemBaseTest, AFailureOfTheSecondHookRemovesTheFirst) {
    std::allocator<SystemBase> memory;
    SystemBase* const base = memory.allocate(1);
    auto* const dead = std::construct_at(static_cast<ImsAgent*>(base), "dead");
    const auto left = dead->setMessageHook(false, "system", "set", "", HookTypeNormal);
    std::destroy_at(dead);
    EXPECT_THROW(std::construct_at(base), SystemBase::SystemBase_FailedToSetIMSHook);
    EXPECT_FALSE(Ims::getDefaultMessageSystem().hasHookFor("system", "query", "", nullptr));
    Ims::getDefaultMessageSystem().removeMessageHook(left);
    memory.deallocate(base, 1);
}

}  // namespace
}  // namespace TarvikCorelib
