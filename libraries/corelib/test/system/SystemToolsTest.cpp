#include "libraries/corelib/source/system/SystemTools.h"

#include "test/support/ScopedEnv.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <array>

namespace TarvikCorelib {
namespace {

struct DirCase {
    const char* word;
    int code;
    const char* path;  // "~" stands for HOME.
};
constexpr auto dirCases = std::to_array<DirCase>({
    {"cur_personal", 1, "~"},
    {"CUR_TEMP", 7, "~/tmp"},
    {"all_appdata", 13, "~"},
    {"sys_temp", 19, "/tmp"},
    {"cur_temp ", 0, ""},
});

TEST(SystemToolsTest, AWordInAnyCaseNamesADirectory) {
    const tarvik_test::TempDir home;
    home.write("tmp/tmp", "");
    const tarvik_test::ScopedEnv variable("HOME", home.path());
    for (const DirCase& row : dirCases) {
        const SystemTools::DirCode code = SystemTools::mapDirCode(row.word);
        EXPECT_EQ(code, row.code) << row.word;
        std::string path = row.path;
        if (path.starts_with('~')) path.replace(0, 1, home.path());
        EXPECT_EQ(SystemTools::obtainDir(code), path) << row.word;
    }
    const tarvik_test::ScopedEnv noDirectory("HOME", home.path() + "/tmp");
    EXPECT_EQ(SystemTools::obtainDir(SystemTools::DirCurTemp), "/tmp") << "a file is none";
}

}  // namespace
}  // namespace TarvikCorelib
