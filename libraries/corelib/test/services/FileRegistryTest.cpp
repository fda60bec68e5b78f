#include "libraries/corelib/source/services/FileRegistry.h"

#include "test/support/RegistryDir.h"
#include "test/support/ScopedEnv.h"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <list>
#include <set>
#include <string>
#include <tuple>

namespace TarvikCorelib {
namespace {

namespace fs = std::filesystem;
using Text = std::string;
using Texts = std::list<Text>;

class FileRegistryTest : public testing::Test {
protected:
    template <class Value>
    void expectRead(const Text& type, const Text& content, const Value& expected) const {
        dir.write("k/" + type, content);
        Value value{};
        EXPECT_EQ(FileRegistry::get("k", value), 0) << content;
        EXPECT_EQ(value, expected) << content;
    }
    template <class Value>
    void expectStored(const Text& type, const Text& line, const Value& value) const {
        EXPECT_EQ(FileRegistry::set("k", value), 0) << line;
        EXPECT_EQ(dir.read("k/" + type), line + "\n");
        expectRead(type, line + "\n", value);
    }

    tarvik_test::RegistryDir dir;
};

TEST_F(FileRegistryTest, AValueIsALineInAFileNamedAfterItsType) {
    expectStored<Text>("string", R"(\n\t\v\b\r\f\a\"\'\\;:0)", "\n\t\v\b\r\f\a\"'\\;:0");
    expectStored<Text>("string", R"(\\n\\0)", R"(\n\0)");
    expectStored("uint32", "4294967295", UINT_MAX);
    expectStored("int64", "-9223372036854775808", LLONG_MIN);
    expectStored("list", R"(;a\:b:;\\\:;\n)", Texts{"", "a;b:", "\\;", "\n"});
    expectStored("list", "", Texts());
}

TEST_F(FileRegistryTest, AFileIsReadWhoeverWroteIt) {
    expectRead<Text>("string", "no line feed", "no line feed");
    expectRead<Text>("string", "two\n\n", "two\n");
    expectRead<Text>("string", R"(no such code\0\:)", R"(no such code\0\:)");
    expectRead("list", R"(\0;\:;)", Texts{"\\0", ";"});
    expectRead("int32", " 12x\n", 12);
}

// A name, a key, a type, and what reading and writing answer.
using Refusal = std::tuple<const char*, Text, int, int, int>;

TEST_F(FileRegistryTest, RefusalsComeInTheirOrder) {
    dir.write("k/double/int32", "1\n");
    fs::create_symlink("/dev/null", dir.path() + "/k/list");
    for (const auto& [name, key, type, read, write] :
         {Refusal{"type before key", "", 7, 1, 1},
          {"a negative type", "k", -1, 1, 1},
          {"an empty key", "", 0, 2, 2},
          {"no name", "/<>/", 0, 5, 2},
          {"up behind the contraction", "<..>/k", 0, 5, 2},
          {"beyond the root", "../k", 0, 5, 2},
          {"a NUL", {"k\0", 2}, 0, 5, 2},
          {"a file in the way", "k/double/int32/a", 0, 5, 2},
          {"a sub-key instead of the value", "k", FileRegistry::Double, 6, 4},
          {"a device instead of the value", "k", FileRegistry::List, 6, 4},
          {"another type", "k", FileRegistry::Int64, 6, 0},
          {"no key yet", "new/a", FileRegistry::List, 5, 0}}) {
        Text value = "before";
        EXPECT_EQ(FileRegistry::getRaw(key, type, value, false), read) << name;
        EXPECT_EQ(value, "before") << name;
        EXPECT_EQ(FileRegistry::setRaw(key, type, "1", false), write) << name;
    }
}

TEST_F(FileRegistryTest, AKeyIsMadeAValidPath) {
    const tarvik_test::ScopedEnv variable("TARVIK_TEST_KEY", "x/y");
    EXPECT_EQ(FileRegistry::set(R"(/$TARVIK_TEST_KEY\c//./f/../<g>/)", 1), 0);
    EXPECT_EQ(dir.read("x/y/c/g/int32"), "1\n");
}

TEST_F(FileRegistryTest, SumsWrapAroundAndMakeNoKey) {
    EXPECT_EQ(FileRegistry::set("k", INT_MAX) + FileRegistry::modify("k", 2), 0);
    EXPECT_EQ(dir.read("k/int32"), "-2147483647\n");
    EXPECT_EQ(FileRegistry::set("k", ULLONG_MAX) + FileRegistry::modify("k", 2ULL), 0);
    EXPECT_EQ(dir.read("k/uint64"), "1\n");
    EXPECT_EQ(FileRegistry::modify("other", 1), 5);
}

TEST_F(FileRegistryTest, KeysAreListedAndRemovedWithAllBelow) {
    dir.write("kept/d/int32", "1\n");
    dir.write("k/a/b/int32", "1\n");
    dir.write("k/string", "\n");
    fs::create_directory_symlink(dir.path() + "/kept", dir.path() + "/k/link");
    std::set<Text> names{"before"};
    EXPECT_EQ(FileRegistry::getSubKeys("k", names), 0);
    EXPECT_EQ(names, (std::set<Text>{"a", "link"}));

    EXPECT_EQ(FileRegistry::removeKey("k/link/d"), 4);
    EXPECT_EQ(FileRegistry::removeDirContents(dir.path() + "/k/a"), 0);
    EXPECT_TRUE(fs::is_empty(dir.path() + "/k/a"));
    EXPECT_EQ(FileRegistry::removeKey("k"), 0);
    EXPECT_FALSE(fs::exists(dir.path() + "/k"));
    EXPECT_EQ(dir.read("kept/d/int32"), "1\n");
}

TEST_F(FileRegistryTest, TheRootIsTakenFromTheEnvironmentByTheFirstCallAlone) {
    EXPECT_EQ(FileRegistry::getRootDir(), dir.path());
    const tarvik_test::ScopedEnv late("TARVIK_FREG_DIR", "/elsewhere");
    FileRegistry::setRootDir("");
    EXPECT_EQ(FileRegistry::getRootDir(), "");
}

}  // namespace
}  // namespace TarvikCorelib
