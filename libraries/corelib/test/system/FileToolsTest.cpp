#include "libraries/corelib/source/system/FileTools.h"

#include "libraries/corelib/source/system/FileNames.h"
#include "test/support/FileFaults.h"
#include "test/support/ScopedEnv.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <tuple>

namespace TarvikCorelib {
namespace {

namespace fs = std::filesystem;

// All tests run with narrow and with wide names.
template <class Char>
class FileToolsTest : public testing::Test {
protected:
    using Text = std::basic_string<Char>;
    using Names = std::set<Text>;
    using Tools = BasicFileTools<Char>;

    static Text as(const std::string& text) { return textAs<Char>(std::string(text)); }
    static Names names(const std::set<std::string>& narrow) {
        return textsAs<Char>(std::set<std::string>(narrow));
    }

    std::string under(const std::string& name) const { return directory.path() + "/" + name; }
    Text at(const std::string& name) const { return as(under(name)); }
    // Blank for what is missing.
    std::string content(const std::string& name) const {
        return fs::exists(under(name)) ? directory.read(name) : "";
    }

    const tarvik_test::TempDir directory;
};

using Characters = testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(FileToolsTest, Characters, );

TYPED_TEST(FileToolsTest, ReadDirSeparatesDirectoriesFromAllElse) {
    this->directory.write("b.conf", "");
    this->directory.write("d.conf/inner.conf", "");
    fs::create_symlink("d.conf", this->under("e.conf"));
    fs::create_symlink("b.conf", this->under("f.conf"));
    typename TestFixture::Names files;
    typename TestFixture::Names dirs;
    EXPECT_TRUE(FileTools::readDir(this->at(""), this->as("*.conf"), &files, &dirs));
    EXPECT_EQ(files, this->names({"b.conf", "f.conf"}));
    EXPECT_EQ(dirs, this->names({"d.conf", "e.conf"}));
    EXPECT_TRUE(FileTools::readDir(this->at(""), this->as("*"), {}, &dirs));
    EXPECT_EQ(dirs, this->names({"d.conf", "e.conf"})) << "its own names are left out";
    for (const auto& path : {this->as(""), this->at("b.conf"), this->at("b.conf/missing")})
        EXPECT_FALSE(FileTools::readDir(path, this->as("*"), &files, &dirs));
    EXPECT_EQ(FileTools::getFiles(this->at(""), this->as("[b].conf")), this->names({}));
    EXPECT_EQ(FileTools::getFiles(this->at(""), this->as("b.*")), this->names({"b.conf"}));
    EXPECT_EQ(FileTools::getSubDirs(this->at(""), this->as("?.conf")), dirs);
    EXPECT_EQ(FileTools::count(this->at("x"), this->as("*")), -1);
}

TYPED_TEST(FileToolsTest, OnlyTheTestsForLinksAndNamesDoNotFollowLinks) {
    const auto file = this->as(this->directory.write("file", "123"));
    const auto link = this->at("link");
    EXPECT_TRUE(FileTools::createLink(this->as("file"), link));
    EXPECT_FALSE(FileTools::createLink(this->as("nowhere"), link));
    EXPECT_TRUE(FileTools::isLink(link) && FileTools::exists(link) && FileTools::isFile(link));
    EXPECT_EQ(FileTools::size(link), 3);
    EXPECT_FALSE(FileTools::isLink(file) || FileTools::isDir(file));
    fs::remove(this->under("file"));
    EXPECT_TRUE(FileTools::isLink(link) && FileTools::exists(link));
    EXPECT_FALSE(FileTools::isFile(link) || FileTools::exists(file));
    EXPECT_EQ(FileTools::size(link), -1);
    EXPECT_TRUE(FileTools::isDir(this->at("")));
    EXPECT_FALSE(FileTools::exists(this->at(std::string("link\0x", 6)))) << "it is no name at all";
}

TYPED_TEST(FileToolsTest, AFilesModeChangesInTheBitsNamed) {
    const auto path = this->as(this->directory.write("file", ""));
    EXPECT_TRUE(FileTools::setPermissions(path, 0640));
    EXPECT_TRUE(FileTools::setStatus(path, 04000));
    EXPECT_FALSE(FileTools::isAllowed(path, 1));
    EXPECT_TRUE(FileTools::setPermissions(path, 0700));
    EXPECT_TRUE(FileTools::checkStatus(path, 04700));
    EXPECT_FALSE(FileTools::checkStatus(path, 04040));
}

TYPED_TEST(FileToolsTest, TimesAreSetOneByOneToTheMillisecond) {
    const auto path = this->as(this->directory.write("file", "kept"));
    for (const TimeType time : {unixEpoch - 1, unixEpoch + 1'234'567'890'123}) {
        EXPECT_TRUE(FileTools::setLastModified(path, DateTime(time)));
        EXPECT_TRUE(FileTools::setLastAccessed(path, DateTime(time + 1)));
        EXPECT_EQ(FileTools::lastModified(path).time(), time);
        EXPECT_EQ(FileTools::lastAccessed(path).time(), time + 1);
    }
    EXPECT_FALSE(FileTools::setFirstCreated(path, FileTools::firstCreated(this->at("missing"))));
    EXPECT_TRUE(FileTools::touch(path));
    EXPECT_FALSE(FileTools::createFile(path));
    EXPECT_EQ(this->content("file"), "kept");
    EXPECT_GT(FileTools::lastModified(path).time(), unixEpoch + 1'700'000'000'000);
    EXPECT_TRUE(FileTools::touch(this->at("new")) && FileTools::isFile(this->at("new")));
}

TYPED_TEST(FileToolsTest, TheSystemIsAskedForItsDirectories) {
    EXPECT_GT(FileTools::freeSpace(this->at("")), 0);
    EXPECT_EQ(TestFixture::Tools::getFileSystems().count(this->as("/")), 1U);
    const auto before = TestFixture::Tools::getCurrentDir();
    EXPECT_TRUE(FileTools::setCurrentDir(this->at("")));
    EXPECT_EQ(TestFixture::Tools::getCurrentDir(), this->as(this->directory.path()));
    EXPECT_TRUE(FileTools::setCurrentDir(before));
}

TYPED_TEST(FileToolsTest, ItemsAreWrittenAndReadLineByLine) {
    using Text = typename TestFixture::Text;
    const std::list<Text> items = {this->as(""), this->as("b\r"), this->as(""), this->as("a")};
    const auto path = this->at("items");
    EXPECT_TRUE(FileTools::listToFile(path, items, 0));
    EXPECT_EQ(this->content("items"), "\nb\r\n\na\n");
    std::list<Text> list;
    std::set<Text> set;
    EXPECT_TRUE(FileTools::fileToList(path, list) && FileTools::fileToSet(path, set));
    EXPECT_EQ(list, items);
    EXPECT_EQ(set, this->names({"", "a", "b\r"}));

    EXPECT_TRUE(FileTools::textToFile(path, this->as("k=1=\nk=2\nlast"), CopyOverwrite));
    std::map<Text, Text> map;
    EXPECT_TRUE(FileTools::fileToMap(path, map, this->as("=")));
    EXPECT_EQ(map, (std::map<Text, Text>{{this->as("k"), this->as("1=")}, {this->as("last"), {}}}));
    EXPECT_TRUE(FileTools::mapToFile(path, map, this->as(": "), CopyOverwrite));
    EXPECT_EQ(this->content("items"), "k: 1=\nlast: \n");
    EXPECT_FALSE(FileTools::fileToMap(this->at("missing"), map, this->as("=")));
    EXPECT_EQ(map.size(), 2U) << "a failure changes nothing";
}

TYPED_TEST(FileToolsTest, FlagsSettleWhatBecomesOfAnExistingTarget) {
    using Tools = typename TestFixture::Tools;
    // Flags, the result, what is in the target and under its numbered name after it.
    for (const auto& [flags, succeeds, target, numbered] :
         std::to_array<std::tuple<int, bool, const char*, const char*>>({
             {0, false, "old", ""},
             {CopySkipExisting, true, "old", ""},
             {CopyOverwrite, true, "new", ""},
             {CopyEnumerate, true, "old", "new"},
         })) {
        const bool isDone = flags >= CopyOverwrite;
        for (const auto operation : {Tools::copy, Tools::move, Tools::textToFile}) {
            const bool isText = operation == Tools::textToFile;
            const auto a = this->as(this->directory.write("a", "new"));
            const auto b = this->as(this->directory.write("b.c", "old"));
            EXPECT_EQ(isText ? operation(b, this->as("new"), flags) : operation(a, b, flags),
                      succeeds);
            EXPECT_EQ(this->content("b.c"), target) << flags;
            EXPECT_EQ(this->content("b-0001.c"), numbered) << flags;
            EXPECT_EQ(this->content("a"), operation == Tools::move && isDone ? "" : "new") << flags;
            fs::remove(this->under("b-0001.c"));
        }
    }
}

TYPED_TEST(FileToolsTest, NoFileIsLostThroughASecondName) {
    const auto one = this->as(this->directory.write("one", "1"));
    for (const int flags : {CopySkipExisting, CopyOverwrite}) {
        EXPECT_TRUE(FileTools::copy(one, this->at("./one"), flags));
        EXPECT_TRUE(FileTools::move(one, this->at("./one"), flags));
    }
    EXPECT_EQ(this->content("one"), "1");
    fs::create_symlink("one", this->under("way"));
    EXPECT_TRUE(FileTools::move(this->at("way"), one, CopyOverwrite));
    fs::create_hard_link(this->under("one"), this->under("two"));
    EXPECT_TRUE(FileTools::move(one, this->at("two"), CopyOverwrite));
    EXPECT_EQ(this->content("one") + this->content("two"), "1") << "the old name goes";
    this->directory.write("two.cpytmp", "source");
    fs::create_symlink("two.cpytmp", this->under("link"));
    EXPECT_FALSE(FileTools::copy(this->at("link"), this->at("two"), CopyOverwrite));
    EXPECT_EQ(this->content("two.cpytmp"), "source") << "it is where the copy would be made";
}

TYPED_TEST(FileToolsTest, LinksAreReplacedAndMovedThemselves) {
    const auto a = this->as(this->directory.write("a", "a"));
    this->directory.write("b", "b");
    fs::create_symlink("b", this->under("link"));
    EXPECT_TRUE(FileTools::copy(a, this->at("link"), CopyOverwrite));
    EXPECT_FALSE(FileTools::isLink(this->at("link")));
    fs::create_symlink("b", this->under("other"));
    EXPECT_TRUE(FileTools::move(this->at("other"), a, CopyOverwrite));
    EXPECT_TRUE(FileTools::isLink(a));
    EXPECT_EQ(this->content("a") + this->content("b"), "bb");
    ASSERT_EQ(mkfifo(this->under("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(FileTools::copy(this->at("pipe"), this->at("b"), CopyOverwrite));
    EXPECT_FALSE(FileTools::copy(a, this->as(""), CopyOverwrite));
}

TYPED_TEST(FileToolsTest, ADirectoryIsCopiedAndMovedWhole) {
    this->directory.write("a/x/f", "1");
    fs::create_symlink("x", this->under("a/link"));
    EXPECT_TRUE(FileTools::copyDir(this->at("a/"), this->at("b"), 0));
    EXPECT_TRUE(FileTools::compareDirs(this->at("a"), this->at("b")));
    this->directory.write("b/x/f", "2");
    EXPECT_FALSE(FileTools::compareDirs(this->at("a"), this->at("b")));
    for (const int flags : {0, int{CopyOverwrite}, CopyMerge + 0})
        EXPECT_FALSE(FileTools::copyDir(this->at("a"), this->at("b"), flags)) << flags;
    EXPECT_TRUE(FileTools::moveDir(this->at("a"), this->at("b"), CopyMerge + CopySkipExisting));
    EXPECT_EQ(this->content("a/x/f") + this->content("b/x/f"), "12") << "what is skipped stays";
    EXPECT_TRUE(FileTools::moveDir(this->at("a"), this->at("b"), CopyMerge + CopyOverwrite));
    EXPECT_EQ(this->content("a") + this->content("b/x/f"), "1");
    EXPECT_TRUE(FileTools::moveDir(this->at("b/"), this->at("c/"), 0));
    EXPECT_TRUE(FileTools::copyDir(this->at("c"), this->at("c/inner"), 0)) << "it ends";
    EXPECT_FALSE(FileTools::exists(this->at("c/inner/inner")));
}

TYPED_TEST(FileToolsTest, NoDirectoryIsMovedIntoItselfOrOntoItsParent) {
    this->directory.write("a/a/f", "inner");
    this->directory.write("a/b/f", "f");
    const int merge = CopyMerge + CopyOverwrite;
    EXPECT_FALSE(FileTools::moveDir(this->at("a"), this->at("a/b"), merge));
    EXPECT_FALSE(FileTools::moveDir(this->at("a/a"), this->at("a"), merge));
    EXPECT_FALSE(FileTools::moveDir(this->at("a"), this->at("a/new"), 0));
    EXPECT_TRUE(FileTools::moveDir(this->at("a"), this->at("a/b/.."), merge));
    fs::create_directory_symlink("a", this->under("link"));
    EXPECT_FALSE(FileTools::moveDir(this->at("link/"), this->at("new"), 0));
    EXPECT_EQ(this->content("a/a/f") + this->content("a/b/f"), "innerf");
}

TYPED_TEST(FileToolsTest, AcrossFileSystemsTheSourceGoesOnlyWhenTheCopyIsThere) {
    this->directory.write("a/f", "1");
    mkfifo(this->under("a/pipe").c_str(), 0600);
    EXPECT_TRUE(FileTools::setPermissions(this->as(this->directory.write("b", "2")), 0600));
    const auto target = this->at("c");
    tarvik_test::FileFaults faults;
    faults.failFrom(1, EXDEV, "renameat2");
    EXPECT_FALSE(FileTools::moveDir(this->at("a"), target, 0)) << "a pipe cannot be copied";
    EXPECT_EQ(this->content("a/f"), "1");
    EXPECT_FALSE(FileTools::exists(target));
    fs::remove(this->under("a/pipe"));
    EXPECT_TRUE(FileTools::moveDir(this->at("a"), target, 0));
    EXPECT_EQ(this->content("a") + this->content("c/f"), "1");
    faults.failAt(faults.count("renameat2") + 1, EXDEV, "renameat2");
    EXPECT_TRUE(FileTools::move(this->at("b"), this->at("d"), 0));
    EXPECT_EQ(this->content("b") + this->content("d"), "2");
    EXPECT_FALSE(FileTools::checkStatus(this->at("d"), 0040)) << "what is private stays so";
}

TYPED_TEST(FileToolsTest, AFaultAtAnyCallLeavesTheOldContentOrTheNew) {
    const std::array<std::function<bool()>, 3> operations{
        [&] { return FileTools::copy(this->at("a"), this->at("b"), CopyOverwrite); },
        [&] { return FileTools::move(this->at("a"), this->at("b"), CopyOverwrite); },
        [&] { return FileTools::textToFile(this->at("b"), this->as("new"), CopyOverwrite); }};
    for (const auto& operation : operations) {
        bool isHit = true;
        for (std::size_t call = 1; isHit; ++call) {
            SCOPED_TRACE(call);
            this->directory.write("a", "new");
            this->directory.write("b", "old");
            {
                tarvik_test::FileFaults faults;
                faults.failAt(call, EIO);
                const bool succeeds = operation();
                isHit = faults.hit();
                EXPECT_TRUE(succeeds || isHit);
            }
            const std::string left = this->content("b");
            EXPECT_TRUE(left == "new" || (isHit && left == "old")) << left;
            EXPECT_TRUE(this->content("a") == "new" || left == "new");
            EXPECT_FALSE(fs::exists(this->under("b.cpytmp")));
        }
    }
}

TYPED_TEST(FileToolsTest, RemovalStopsAtLinks) {
    this->directory.write("outside/f", "kept");
    this->directory.write("a/b/f", "");
    fs::create_directory_symlink(this->under("outside"), this->under("a/b/link"));
    fs::create_directory_symlink("outside", this->under("link"));
    EXPECT_FALSE(FileTools::removeDir(this->at("a"), false));
    EXPECT_FALSE(FileTools::removeDir(this->at("link"), true));
    EXPECT_FALSE(FileTools::clearDir(this->at("link")));
    for (const auto& path : {this->as(""), this->at("missing")}) {
        EXPECT_FALSE(FileTools::removeDir(path, true) || FileTools::removeDir(path, false));
        EXPECT_FALSE(FileTools::clearDir(path) || FileTools::remove(path));
    }
    EXPECT_FALSE(FileTools::remove(this->at("outside")));
    EXPECT_TRUE(FileTools::clearDir(this->at("a")));
    EXPECT_TRUE(FileTools::removeDir(this->at("a"), false));
    EXPECT_TRUE(FileTools::remove(this->at("link")));
    EXPECT_EQ(this->content("outside/f"), "kept");
    EXPECT_TRUE(FileTools::removeDir(this->at("outside"), true));
}

TYPED_TEST(FileToolsTest, EnsurePathMakesWhatIsMissing) {
    this->directory.write("file", "");
    EXPECT_FALSE(FileTools::makeDir(this->at("a/b")));
    EXPECT_TRUE(FileTools::ensurePath(this->at("a/b//c/")));
    EXPECT_TRUE(FileTools::isDir(this->at("a/b/c")));
    EXPECT_FALSE(FileTools::ensurePath(this->at("file/a")));
    EXPECT_FALSE(FileTools::ensurePath(this->as("")));
}

TYPED_TEST(FileToolsTest, FilesAreFoundByNameAndContent) {
    this->directory.write("a/x.c", "one two");
    this->directory.write("b/a/x.h", "two three");
    fs::create_directory_symlink("b", this->under("link"));
    const auto root = this->at("");
    EXPECT_EQ(FileTools::findName(root, this->as("a")), this->names({"a", "b/a"}));
    EXPECT_EQ(FileTools::findNameGlob(root, this->as("x.*")), this->names({"a/x.c", "b/a/x.h"}));
    EXPECT_EQ(FileTools::findContents(root, this->as("two")), this->names({"a/x.c", "b/a/x.h"}));
    EXPECT_EQ(FileTools::findContentsGlob(root, this->as("o t?r")), this->names({"b/a/x.h"}));
    EXPECT_EQ(FileTools::find(this->as("x.h"), {root, this->at("b/a/")}), this->at("b/a/x.h"));
    const tarvik_test::ScopedEnv path("PATH", this->under("a") + ":" + this->under("b/a"));
    EXPECT_EQ(FileTools::findPath(this->as("x.h")), this->at("b/a/x.h"));
    EXPECT_EQ(FileTools::findExe(this->as("x.h")), this->as(""));
    EXPECT_TRUE(FileTools::setPermissions(this->at("b/a/x.h"), 0755));
    EXPECT_EQ(FileTools::findExe(this->as("x.h")), this->at("b/a/x.h"));
    EXPECT_EQ(FileTools::findExe(this->at("a")), this->as("")) << "a directory is no program";
}

TYPED_TEST(FileToolsTest, VariablesAndLinksArePutIntoPaths) {
    const tarvik_test::ScopedEnv variable("FILE_TOOLS_TEST", "v");
    fs::create_symlink("b/../c", this->under("link"));
    fs::create_symlink("circle", this->under("circle"));
    for (const auto& [path, flags, result] :
         std::to_array<std::tuple<std::string, int, std::string>>(
             {{"\\a//%FILE_TOOLS_TEST%", ProcessExpand, "/a//v"},
              {"$FILE_TOOLS_TEST/$$/%%/%NO/SUCH%/$NOSUCH", ProcessExpand,
               "v/$/%/%NO/SUCH%/$NOSUCH"},
              {"a//./b", ProcessClean, "a/./b"},
              {"../a", ProcessContract, "../a"},
              {this->under("link"), ProcessTrace, this->under("b/../c")},
              {this->under("circle/x"), ProcessTrace, this->under("circle/x")}})) {
        EXPECT_EQ(FileTools::processPath(this->as(path), flags), this->as(result)) << path;
    }
}

TEST(FileToolsNamesTest, AWideNameIsNeverCutToAnotherFile) {
    const tarvik_test::TempDir directory;
    const std::wstring inside = wideText(directory.path()) + L"/";
    EXPECT_FALSE(FileTools::createFile(inside + L"a\u0141")) << "its low byte is the letter A";
    directory.write("\xE9", "");
    std::set<std::wstring> names;
    EXPECT_TRUE(FileTools::readDir(inside, L"*", &names, nullptr));
    EXPECT_EQ(names, (std::set<std::wstring>{L"\u00E9"}));
    EXPECT_TRUE(FileTools::isFile(inside + *names.begin()));
    EXPECT_EQ(FileTools::fileDelimiter() + FileTools::BOM(), "/\xEF\xBB\xBF");
    EXPECT_EQ(FileTools::fileDelimiterW() + FileTools::BOMW(), L"/\uFEFF");
}

}  // namespace
}  // namespace TarvikCorelib
