#include "shared/library/common/FileOps.h"

#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace Tarvik {
namespace {

TEST(FileOpsTest, OneTrailingSlashIsIgnoredAndAWildcardNamesNoFile) {
    const tarvik_test::TempDir dir;
    dir.write("plain", "1234");
    dir.write("star*", "");
    ASSERT_EQ(symlink("plain", (dir.path() + "/link").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", (dir.path() + "/broken").c_str()), 0);
    for (const char* const name : {"", "/plain", "/plain/", "/link"})
        EXPECT_TRUE(FileOps::exists(dir.path() + name)) << name;
    for (const char* const name : {"/plain//", "/broken", "/star*"})
        EXPECT_FALSE(FileOps::exists(dir.path() + name)) << name;
    EXPECT_FALSE(FileOps::exists("/")) << "without the slash nothing is left";
    EXPECT_FALSE(FileOps::exists(""));

    FileInfoT info;
    EXPECT_TRUE(FileOps::getFileInfo(dir.path() + "/plain", info));
    EXPECT_EQ(info.size, 4U);
}

}  // namespace
}  // namespace Tarvik
