#include "libraries/filelib/source/path/PathTools.h"

#include "test/support/ScopedEnv.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <tuple>

namespace TarvikFilelib {
namespace {

using std::string;
using tarvik_test::ScopedEnv;
using Tools = PathTools;

struct PartsCase {
    string path, root, parent, base, suffix, withoutSuffix;
};
const auto parts = std::to_array<PartsCase>({
    {"", "", "", "", "", ""},
    {"/", "/", "", "", "", "/"},
    {"a.b/", "", "a.b", "", "", "a.b/"},
    {"a.b/c", "", "a.b", "c", "", "a.b/c"},
    {"/c.tar.gz", "/", "", "c.tar.gz", "gz", "/c.tar"},
    {":", "", "", ":", "", ":"},
    {"x:b.", "x:", "", "x:b.", "", "x:b"},
    {"x:/b", "x:/", "x:", "b", "", "x:/b"},
    {"//s", "//s", "/", "s", "", "//s"},
    {"//s/.b", "//s", "//s", ".b", "b", "//s/"},
});

TEST(PathToolsTest, APathIsCutAtItsRootItsLastSlashAndTheLastDotOfItsBase) {
    for (const auto& [path, root, parent, base, suffix, withoutSuffix] : parts) {
        EXPECT_EQ(Tools::getRoot(path), root) << path;
        EXPECT_EQ(Tools::isRoot(path), !path.empty() && path == root) << path;
        EXPECT_EQ(Tools::getParent(path), parent) << path;
        EXPECT_EQ(Tools::getBase(path), base) << path;
        EXPECT_EQ(Tools::haveBase(path), !base.empty()) << path;
        EXPECT_EQ(Tools::getSuffix(path), suffix) << path;
        EXPECT_EQ(Tools::haveSuffix(path), path != withoutSuffix) << path;
        EXPECT_EQ(Tools::getReplaceSuffix(path, "z"), withoutSuffix + ".z") << path;
    }
    EXPECT_EQ(Tools::getBaseWithoutSuffix("a.b/c.d"), "c");
}

struct FormCase {
    string (*get)(std::string_view);
    bool (*make)(string&);
    string path, result;
};
const auto forms = std::to_array<FormCase>({
    {Tools::getWindowsPath, Tools::makeWindowsPath, "/a/b", "\\a\\b"},
    {Tools::getBase, Tools::removeParent, "a/b", "b"},
    {Tools::getRootRemoved, Tools::removeRoot, "x:/b", "b"},
    {Tools::getBaseRemoved, Tools::removeBase, "a/b", "a/"},
    {Tools::getClean, Tools::makeClean, "///~//b//", "//~/b/"},
    {Tools::getLegalName, Tools::makeLegalName, "a<>:\"\\/|?*\x1f\xff %~", "a\xff %~"},
    {Tools::getLegal, Tools::makeLegal, "/a?//*/b/", "a/b"},
    {Tools::getContracted, Tools::contract, "..", ".."},
    {Tools::getContracted, Tools::contract, "//..", "//.."},
    {Tools::getContracted, Tools::contract, "/a//./b/../../c/", "/c"},
    {Tools::getContracted, Tools::contract, "a/..", ""},
    {Tools::getContracted, Tools::contract, "//a/../b", "//b"},
    {Tools::getContracted, Tools::contract, "x:../.b", "x:../.b"},
    {Tools::getExpanded, Tools::expand, "%%/$$/%%%%", "%/$/%%"},
    {Tools::getExpanded, Tools::expand, "%NOSUCH%/x$NO/$", "%NOSUCH%/x$NO/$"},
    {Tools::getExpanded, Tools::expand, "%VALUE%x/$VALUE", "a/%HOME%x/a/%HOME%"},
    {Tools::getExpanded, Tools::expand, "%VAL/UE%/%b$VALUE", "%VAL/UE%/%ba/%HOME%"},
    {Tools::getExpanded, Tools::expand, "/c:/$SYS_Temp", "C://tmp"},
});

TEST(PathToolsTest, BothFormsOfAnOperationGiveTheSameAndOneTellsWhetherItChanges) {
    const ScopedEnv value("VALUE", "a/%HOME%");
    for (const auto& [get, make, path, result] : forms) {
        EXPECT_EQ(get(path), result) << path;
        string changed = path;
        EXPECT_EQ(make(changed), path != result) << path;
        EXPECT_EQ(changed, result) << path;
    }
}

TEST(PathToolsTest, AnEmptyElementIsIllegalAndATildeIsNotClean) {
    EXPECT_FALSE(Tools::isValid("a~") || Tools::isValid("\\") || Tools::isWindowsPath("a/"));
    EXPECT_TRUE(Tools::isClean("//a/b") && Tools::isLegal("a/\xff"));
    EXPECT_FALSE(Tools::isClean("a//b") || Tools::isClean("a~"));
    EXPECT_FALSE(Tools::isLegal("/a") || Tools::isLegal("a/") || Tools::isLegal(""));
    EXPECT_FALSE(Tools::isLegalName("a:b") || Tools::isLegalName(""));
}

TEST(PathToolsTest, ADotDotWithNothingBeforeItThrowsAndLeavesThePathAsItWas) {
    for (const string path : {"../a", "/..", "a/../..", "x:/..", "//a/../.."}) {
        string contracted = path;
        EXPECT_THROW(Tools::contract(contracted), Tools::Contract_InvalidPath) << path;
        EXPECT_EQ(contracted, path);
    }
}

TEST(PathToolsTest, APathIsCompletedByAndMadeRelativeToAnother) {
    EXPECT_EQ(Tools::getComplete("a", "b"), "b/a");
    EXPECT_EQ(Tools::getComplete("a"), std::filesystem::current_path().string() + "/a");
    EXPECT_EQ(Tools::getRelative("a//b", "a"), "b") << "not /b";
    EXPECT_THROW(Tools::getRelative("/a", "/a/"), Tools::MakeRelative_InvalidRoot);
}

TEST(PathToolsTest, LinksAreFollowedUpToFortyAlsoWhereTheyLeadNowhereButNotToAFileWithoutAName) {
    const tarvik_test::TempDir dir;
    const string top = std::filesystem::canonical(dir.path()).string() + "/";
    dir.write("d/0", "");
    std::filesystem::create_symlink("../missing", top + "d/up");
    std::filesystem::create_symlink("d/", top + "toDir");
    std::filesystem::create_symlink(top + "toDir/up", top + "absolute");
    for (int i = 1; i <= 41; ++i)
        std::filesystem::create_symlink(std::to_string(i - 1), top + "d/" + std::to_string(i));
    using Row = std::array<const char*, 2>;
    for (const auto& [path, result] :
         {Row{"d/./0//", "d/./0//"}, Row{"toDir/0", "d/0"}, Row{"absolute/x", "d/../missing/x"},
          Row{"d/40", "d/0"}, Row{"d/41", "d/41"}})
        EXPECT_EQ(Tools::getLinkTrace(top + path), top + result);

    const int fd = memfd_create("nameless", MFD_CLOEXEC);
    const string path = "/proc/thread-self/fd/" + std::to_string(fd);
    EXPECT_EQ(access(Tools::getLinkTrace(path).c_str(), R_OK), 0) << "not what the link says";
    close(fd);
}

TEST(PathToolsTest, GetValidTakesTheStepsOfItsFlagsInTheirOrder) {
    const ScopedEnv value("VALUE", "..//x:y");
    using Row = std::tuple<const char*, std::uint32_t, const char*>;
    for (const auto& [path, flags, result] :
         {Row{"", 63, ""}, Row{"a\\b//c", 1, "a/b/c"}, Row{"a\\b//../c", 2, "a/c"},
          Row{"/a/$VALUE", 7, "/a/..//x:y"}, Row{"/a/$VALUE", 55, "/a/../xy"},
          Row{"x:/a*\\b:", 55, "x:/a/b"}, Row{"//s?/a|", 32, "//s/a"}, Row{"a\\?//", 16, "a/?//"}})
        EXPECT_EQ(Tools::getValid(path, flags), result) << path << ' ' << flags;
}

}  // namespace
}  // namespace TarvikFilelib
