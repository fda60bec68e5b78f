#include "shared/library/common/FileOps.h"

#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace Tarvik {
namespace {

TEST(FileOpsTest, WhatCountsAsExisting) {
    const tarvik_test::TempDir dir;
    const std::string file = dir.write("plain", "1234");
    dir.write("star*", "");
    ASSERT_EQ(symlink(file.c_str(), (dir.path() + "/link").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", (dir.path() + "/broken").c_str()), 0);

    EXPECT_TRUE(FileOps::exists(file));
    EXPECT_TRUE(FileOps::exists(dir.path()));
    EXPECT_TRUE(FileOps::exists(file + "/")) << "one trailing slash is ignored";
    EXPECT_FALSE(FileOps::exists(file + "//")) << "but not a second one";
    EXPECT_FALSE(FileOps::exists("/")) << "so nothing is left";
    EXPECT_TRUE(FileOps::exists(dir.path() + "/link"));
    EXPECT_FALSE(FileOps::exists(dir.path() + "/broken"));
    EXPECT_FALSE(FileOps::exists(dir.path() + "/star*")) << "a wildcard names no file";
    EXPECT_FALSE(FileOps::exists(""));

    FileInfoT info;
    EXPECT_TRUE(FileOps::getFileInfo(file, info));
    EXPECT_EQ(info.size, 4U);
}

}  // namespace
}  // namespace Tarvik
