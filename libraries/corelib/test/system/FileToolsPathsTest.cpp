#include "libraries/corelib/source/system/FileTools.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>

// The operations that look at the text of a path alone. Each row runs on narrow and wide texts.

namespace TarvikCorelib {
namespace {

using Narrow = std::string;
using Wide = std::wstring;

Wide wide(const char* text) {
    return StringTools::convert(std::string_view(text));
}

// Path, drive, directory, parent, base and suffix.
constexpr auto partsRows = std::to_array<std::array<const char*, 6>>({
    {"a", "", "", "", "a", ""},
    {"a/c.tar.gz", "", "a", "a", "c.tar.gz", "gz"},
    {"a.b/c", "", "a.b", "a.b", "c", ""},
    {"a/b.c/", "", "a/b.c", "a/b.c", "", ""},
    {"/a", "", "/", "/", "a", ""},
    {"/", "", "/", "/", "", ""},
    {"/a/.conf", "", "/a", "/a", ".conf", "conf"},
    {"c:/a/b", "c:", "/a", "c:/a", "b", ""},
});

template <class As>
void expectParts(const std::array<const char*, 6>& row, As as) {
    const auto path = as(row[0]);
    EXPECT_EQ(FileTools::getDrive(path), as(row[1]));
    EXPECT_EQ(FileTools::getDir(path), as(row[2]));
    EXPECT_EQ(FileTools::getParent(path), as(row[3]));
    EXPECT_EQ(FileTools::getBase(path), as(row[4]));
    EXPECT_EQ(FileTools::getSuffix(path), as(row[5]));
    EXPECT_EQ(FileTools::findDriveStart(path), as(row[1]).empty() ? Narrow::npos : 0);
    EXPECT_EQ(FileTools::findBaseEnd(path), as(row[4]).empty() ? Narrow::npos : path.size());
}

TEST(FileToolsPathsTest, APathHasItsParts) {
    for (const auto& row : partsRows) {
        SCOPED_TRACE(row[0]);
        expectParts(row, [](const char* text) { return Narrow(text); });
        expectParts(row, wide);
    }
    EXPECT_EQ(FileTools::findSuffixStart("a."), 2U) << "an empty suffix is one";
}

struct SplitCase {
    const char* name;
    Narrow (*narrow)(Narrow&);
    Wide (*wide)(Wide&);
    const char* path;
    const char* part;
    const char* rest;
};

const auto splitRows = std::to_array<SplitCase>({
    {"drive", FileTools::splitDrive, FileTools::splitDrive, "c:/a", "c:", "/a"},
    {"directory", FileTools::splitDir, FileTools::splitDir, "c:/a/b", "/a", "c:b"},
    {"the root as directory", FileTools::splitDir, FileTools::splitDir, "/b", "/", "b"},
    {"base", FileTools::splitBase, FileTools::splitBase, "a/b", "b", "a"},
    {"base below the root", FileTools::splitBase, FileTools::splitBase, "/b", "b", "/"},
    {"no base", FileTools::splitBase, FileTools::splitBase, "a/", "", "a/"},
    {"suffix", FileTools::splitSuffix, FileTools::splitSuffix, "a.b/c.d", "d", "a.b/c"},
    {"last element below the root", FileTools::detach, FileTools::detach, "/b", "b", ""},
});

TEST(FileToolsPathsTest, APartIsTakenOutOfThePath) {
    for (const SplitCase& row : splitRows) {
        SCOPED_TRACE(row.name);
        Narrow path = row.path;
        EXPECT_EQ(row.narrow(path), row.part);
        EXPECT_EQ(path, row.rest);
        Wide widePath = wide(row.path);
        EXPECT_EQ(row.wide(widePath), wide(row.part));
        EXPECT_EQ(widePath, wide(row.rest));
    }
}

struct ChangeCase {
    bool (*narrow)(Narrow&);
    bool (*wide)(Wide&);
    const char* path;
    const char* result;
};

const auto changeRows = std::to_array<ChangeCase>({
    {FileTools::removeBase, FileTools::removeBase, "a/b", "a/"},
    {FileTools::removeSuffix, FileTools::removeSuffix, "a/b.c.d", "a/b.c"},
    {FileTools::correctSeparation, FileTools::correctSeparation, "a\\b/c\\", "a/b/c/"},
    {FileTools::trimDir, FileTools::trimDir, "a//", "a"},
    {FileTools::trimDir, FileTools::trimDir, "/", "/"},
    {FileTools::completeDir, FileTools::completeDir, "a", "a/"},
    {FileTools::prepDir, FileTools::prepDir, "a\\\\b", "a/b/"},
    {FileTools::cleanPath, FileTools::cleanPath, "///a//b", "//a/b"},
    {FileTools::contractPath, FileTools::contractPath, "a/b/../c/./d", "a/c/d"},
    {FileTools::contractPath, FileTools::contractPath, "/a//../..", "/a//../.."},
    {FileTools::contractPath, FileTools::contractPath, "/a/..", "/"},
    {FileTools::contractPath, FileTools::contractPath, "a/../../b", "a/../../b"},
    {FileTools::contractPath, FileTools::contractPath, "c:/a/../b", "c:/b"},
});

TEST(FileToolsPathsTest, APathIsChangedInPlace) {
    for (const ChangeCase& row : changeRows) {
        SCOPED_TRACE(Narrow(row.path) + " to " + row.result);
        Narrow path = row.path;
        const bool isOther = path != row.result;
        EXPECT_EQ(row.narrow(path), isOther);
        EXPECT_EQ(path, row.result);
        Wide widePath = wide(row.path);
        EXPECT_EQ(row.wide(widePath), isOther);
        EXPECT_EQ(widePath, wide(row.result));
    }
}

TEST(FileToolsPathsTest, APathIsChangedAgainstAnother) {
    const auto change = [](bool isRelative, auto& path, auto other) {
        return isRelative ? FileTools::makeRelative(path, other)
                          : FileTools::makeComplete(path, other);
    };
    for (const auto& [isRelative, start, other, result] :
         std::to_array<std::tuple<bool, Narrow, const char*, Narrow>>({
             {false, "a", "/b", "/b/a"},
             {false, "/a", "/b", "/a"},
             {false, "a", "", "a"},
             {true, "/a/b/c", "/a/x", "../b/c"},
             {true, "/a/b", "/a/", "/a/b"},
         })) {
        SCOPED_TRACE(start + " against " + other);
        Narrow path = start;
        EXPECT_EQ(change(isRelative, path, other), result != start);
        EXPECT_EQ(path, result);
        Wide widePath = wide(start.c_str());
        change(isRelative, widePath, wide(other));
        EXPECT_EQ(widePath, wide(result.c_str()));
    }
}

TEST(FileToolsPathsTest, ElementsAreJoinedAsTheyWereSplit) {
    using Elements = std::vector<Narrow>;
    EXPECT_EQ(FileTools::split("/a//b/"), (Elements{"", "a", "", "b", ""}));
    for (const char* path : {"", "/a/b", "a//b/", "/"}) {
        EXPECT_EQ(FileTools::join(FileTools::split(path)), path);
        EXPECT_EQ(FileTools::join(FileTools::split(wide(path))), wide(path));
    }
    EXPECT_EQ(FileTools::splitDelim("a::b:", "::"), (Elements{"a", "b:"}));
    EXPECT_EQ(FileTools::splitDelim("a/b", ""), (Elements{"a/b"}));
}

TEST(FileToolsPathsTest, AnElementIsAddedWithOneSeparator) {
    for (const auto& [path, element, result] : std::to_array<std::array<const char*, 3>>(
             {{"a", "b", "a/b"}, {"a/", "/b", "a/b"}, {"", "b", "b"}, {"/", "b", "/b"}})) {
        Narrow text = path;
        EXPECT_EQ(FileTools::append(text, element), result);
        Wide wideText = wide(path);
        EXPECT_EQ(FileTools::append(wideText, wide(element)), wide(result));
    }
    Narrow text = ":";
    EXPECT_EQ(FileTools::appendDelim(text, "b", "::"), ":::b");
    EXPECT_EQ(FileTools::detachDelim(text, "::"), "b");
}

TEST(FileToolsPathsTest, OnlyWideNamesMayHaveNoPercentSign) {
    EXPECT_EQ(FileTools::getValidName("a:b\x1F\xE9%/", "_"), "a_b_\xE9%_");
    EXPECT_EQ(FileTools::getValidName(L"a:b\x1F\xE9%/", L""), L"ab\xE9");
}

TEST(FileToolsPathsTest, PathsAreComparedWithTheirSeparatorsCorrected) {
    EXPECT_EQ(FileTools::compare("a\\b", "a/b"), 0);
    EXPECT_LT(FileTools::compare(L"a", L"b"), 0);
    EXPECT_GT(FileTools::compare("a", "B"), 0);
    EXPECT_LT(FileTools::iCompare("a", "B"), 0);
    EXPECT_EQ(FileTools::iCompare(L"A\\b", L"a/B"), 0);
    EXPECT_TRUE(FileTools::isComplete("c:a") && FileTools::isComplete(L"/"));
    EXPECT_FALSE(FileTools::isComplete("a/b") || FileTools::isComplete(L""));
}

}  // namespace
}  // namespace TarvikCorelib
