#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/process/GlobalData.h"
#include "test/support/ScopedEnv.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace TarvikCorelib {
namespace {

TEST(ProcessTest, AMissingVariableEmptiesTheValue) {
    const tarvik_test::ScopedEnv scope("TARVIK_ENV_TEST", "old");
    std::string value = "unchanged";
    EXPECT_TRUE(EnvTools::set("TARVIK_ENV_TEST", "new"));
    EXPECT_TRUE(EnvTools::get("TARVIK_ENV_TEST", value));
    EXPECT_EQ(value, "new");
    EnvTools::remove("TARVIK_ENV_TEST");
    EXPECT_FALSE(EnvTools::get("TARVIK_ENV_TEST", value));
    EXPECT_EQ(value, "");
    EXPECT_FALSE(EnvTools::exists("TARVIK_ENV_TEST"));
    EXPECT_FALSE(EnvTools::set("A=B", "new"));
}

TEST(ProcessTest, TheFirstStopWins) {
    using Row = std::tuple<const char*, void (*)(), std::int32_t>;
    for (const auto& [name, stop, code] :
         {Row{"quit", [] { GlobalData::quit("first"); }, 1},
          {"restart", [] { GlobalData::restart("first"); }, 2},
          {"signal", [] { GlobalData::setSignal(15, "first"); }, 3}}) {
        std::string reason = "unchanged";
        EXPECT_FALSE(GlobalData::mustQuit(reason)) << name;
        EXPECT_EQ(reason, "unchanged") << name;
        stop();
        GlobalData::restart("second");
        GlobalData::quit("second");
        GlobalData::setSignal(2, "second");
        EXPECT_TRUE(GlobalData::mustQuit(reason)) << name;
        EXPECT_EQ(reason, "first") << name;
        EXPECT_EQ(GlobalData::SCode, code) << name;
        EXPECT_EQ(GlobalData::Signal, 0) << "the number of a signal is not stored";
        GlobalData::Signal = 15;
        GlobalData::reset();
        EXPECT_EQ(GlobalData::SReason, "") << name;
    }
}

TEST(ProcessTest, ASignalStoresWhatFitsIntoTheMemorySetAside) {
    GlobalData::prepare();
    GlobalData::reset();
    const char* memory = GlobalData::SReason.data();
    const std::size_t capacity = GlobalData::SReason.capacity();
    EXPECT_GE(capacity, 256U);
    GlobalData::setSignal(15, std::string(capacity + 1, 'x'));
    EXPECT_EQ(GlobalData::SReason, std::string(capacity, 'x'));
    EXPECT_EQ(GlobalData::SReason.data(), memory);
    GlobalData::reset();
}

}  // namespace
}  // namespace TarvikCorelib
