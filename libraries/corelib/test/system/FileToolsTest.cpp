#include "libraries/corelib/source/system/FileTools.h"

#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace TarvikCorelib {
namespace {

using Names = std::set<std::string>;

class FileToolsTest : public testing::Test {
protected:
    FileToolsTest() {
        directory.write("b.conf", "");
        directory.write(".conf", "");
        directory.write("c.conf.txt", "");
        directory.write("d.conf/inner.conf", "");
        link("d.conf", "e.conf");
        link("b.conf", "f.conf");
        link("nowhere", "g.conf");
    }
    void link(const std::string& target, const std::string& name) const {
        std::filesystem::create_symlink(target, directory.path() + "/" + name);
    }

    tarvik_test::TempDir directory;
    Names files;
    Names dirs;
};

TEST_F(FileToolsTest, ReadDirSeparatesDirectoriesFromAllElse) {
    EXPECT_TRUE(FileTools::readDir(directory.path(), "*.conf", &files, &dirs));
    EXPECT_EQ(files, (Names{".conf", "b.conf", "f.conf", "g.conf"}));
    EXPECT_EQ(dirs, (Names{"d.conf", "e.conf"}));
    EXPECT_TRUE(FileTools::readDir(directory.path(), "*", nullptr, &dirs));
    EXPECT_EQ(dirs, (Names{"d.conf", "e.conf"})) << "the directory and its parent are left out";
}

TEST_F(FileToolsTest, ReadDirOfWhatIsNoDirectoryFillsNothing) {
    for (const std::string& path :
         {std::string(), directory.path() + "/b.conf", directory.path() + "/missing"}) {
        EXPECT_FALSE(FileTools::readDir(path, "*", &files, &dirs)) << path;
    }
    EXPECT_TRUE(files.empty());
    EXPECT_TRUE(dirs.empty());
}

}  // namespace
}  // namespace TarvikCorelib
