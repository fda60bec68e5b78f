#include "libraries/corelib/source/process/EnvTools.h"

#include "test/support/ScopedEnv.h"

#include <gtest/gtest.h>

namespace TarvikCorelib {
namespace {

TEST(EnvToolsTest, AMissingVariableEmptiesTheValue) {
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

}  // namespace
}  // namespace TarvikCorelib
