#include "libraries/corelib/source/system/FileTools.h"

#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace TarvikCorelib {
namespace {

using Names = std::set<std::string>;

TEST(FileToolsTest, ReadDirSeparatesDirectoriesFromAllElse) {
    const tarvik_test::TempDir directory;
    const std::string file = directory.write("b.conf", "");
    directory.write("d.conf/inner.conf", "");
    std::filesystem::create_symlink("d.conf", directory.path() + "/e.conf");
    std::filesystem::create_symlink("b.conf", directory.path() + "/f.conf");
    Names files;
    Names dirs;
    EXPECT_TRUE(FileTools::readDir(directory.path(), "*.conf", &files, &dirs));
    EXPECT_EQ(files, (Names{"b.conf", "f.conf"}));
    EXPECT_EQ(dirs, (Names{"d.conf", "e.conf"}));
    EXPECT_TRUE(FileTools::readDir(directory.path(), "*", nullptr, &dirs));
    EXPECT_EQ(dirs, (Names{"d.conf", "e.conf"})) << "the directory and its parent are left out";
    for (const std::string& path : {std::string(), file, file + "/missing"})
        EXPECT_FALSE(FileTools::readDir(path, "*", &files, &dirs)) << path;
}

}  // namespace
}  // namespace TarvikCorelib
