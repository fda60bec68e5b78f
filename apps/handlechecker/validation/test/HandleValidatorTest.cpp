// What the cases cannot show: names, single lines, and one validator over several files.

#include "apps/handlechecker/validation/HandleValidator.h"

#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

struct NameCase {
    const char* name;
    const char* handle;
    const char* declared;
    const char* scanned = declared;
};

constexpr auto nameCases = std::to_array<NameCase>({
    {"a value holds further equals signs", "handle\n{\nname = a = b\n", "a = b"},
    {"letters of several bytes go at the end", "handle\n{\nname = caf\xC3\xA9\n", "caf"},
    {"reported missing, stored all the same", "handle\n{\nfilter\n{\n}\nname = late", "late"},
    {"only the scan keeps comments", "handle\n{\nname=x # y # z\n", "x # y", "x # y # z"},
    {"only the scan looks into sections", "handle\n{\nname=a\nfilter\n{\nname = b\n", "a", "b"},
    {"a commented name is none", "handle\n{\nname=a\n# name = b\n#\n", "a"},
    {"outside of the handle there is none but for the scan", "name = a\n", "", "a"},
});

TEST(HandleValidatorTest, DeclaredAndScannedNamesFollowRulesOfTheirOwn) {
    const tarvik_test::TempDir dir;
    Tarvik::HandleValidator validator;
    for (const NameCase& row : nameCases) {
        std::string path = dir.write("a.conf", row.handle);
        std::string scanned;
        ASSERT_TRUE(validator.loadHandle(path));
        validator.nameScanner(scanned);
        Tarvik::BasicFile other;
        other.open(path, Tarvik::AccessRead);
        ASSERT_TRUE(validator.loadHandle(other)) << "by the path of another file";
        validator.validate();
        EXPECT_EQ(scanned, row.scanned) << row.name;
        EXPECT_EQ(validator.getScannedName(), row.scanned) << row.name;
        EXPECT_EQ(validator.getName(), row.declared) << row.name;
    }
}

TEST(HandleValidatorTest, ValidatingForgetsTheFaultsAndTheLinesOfTheFileBefore) {
    const tarvik_test::TempDir dir;
    const std::string body = "executables\n{\nmain = [type=include,exe=a]\n}\n";
    std::string faulty = dir.write("a.conf", "x\nhandle\n{\nname = a\n" + body + "filter\n");
    std::string faultless = dir.write("b.conf", "handle\n{\nname = b\n" + body + "}\n");
    Tarvik::HandleValidator validator;
    validator.loadHandle(faulty);
    EXPECT_FALSE(validator.validate());
    validator.loadHandle(faultless);
    EXPECT_TRUE(validator.validate());
    EXPECT_EQ(validator.getErrors(), "");
    EXPECT_EQ(validator.getNameLine(), 3U);
}

struct LineCase {
    const char* name;
    const char* line;
    int result;
};

// In turn, of one handle.
constexpr auto lineCases = std::to_array<LineCase>({
    {"a comment", "  # handle", 2},
    {"a line of blanks", " \t", 2},
    {"nothing is inside yet", "name = a", 0},
    {"the head, blanks and a comment around it", " handle # {", 2},
    {"the brace", "{", 2},
    {"the name", "name = a", 2},
    {"an unknown element", "bogus", 0},
    {"the closing brace", "}", 1},
});

TEST(HandleValidatorTest, ALineIsRejectedOrAcceptedOrClosesTheHandle) {
    Tarvik::HandleValidator validator;
    for (const LineCase& row : lineCases)
        EXPECT_EQ(validator.parseLine(row.line), row.result) << row.name;
}

}  // namespace
