#include "libraries/filelib/source/directory/DirTools.h"

#include "test/support/FileFaults.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace TarvikFilelib {
namespace {

namespace fs = std::filesystem;

class DirToolsTest : public testing::Test {
protected:
    DirToolsTest() {
        directory.write("source/sub/a", "new");
        directory.write("source/b", "new");
        directory.write("target/sub/a", "old");
        directory.write("target/sub/only", "old");
        fs::create_directory_symlink("source", at("link"));
    }
    std::string at(const std::string& name) const { return directory.path() + "/" + name; }
    std::string content(const std::string& name) const {
        return fs::exists(at(name)) ? directory.read(name) : "";
    }
    // "Name: text" with the directory as "@"; blank without a failure.
    std::string failureOf(const std::function<void()>& run) const {
        try {
            run();
        } catch (const TarvikCorelib::Exception& failure) {
            std::string text = failure.getFullMessage(true);
            for (std::size_t found = 0; (found = text.find(directory.path())) != std::string::npos;)
                text.replace(found, directory.path().size(), "@");
            return text;
        }
        return {};
    }

    const tarvik_test::TempDir directory;
};

TEST_F(DirToolsTest, ReadDirGivesTheNamesThatMatch) {
    for (const char* name : {"list/a.conf", "list/.b.conf", "list/d.conf/x", "list/c"})
        directory.write(name, "1234");
    fs::create_directory_symlink("d.conf", at("list/link"));
    fs::create_symlink("nowhere", at("list/broken"));
    const std::string list = at("list");
    using Names = DirTools::Names;
    EXPECT_EQ(DirTools::getFiles(list), (Names{".b.conf", "a.conf", "broken", "c"}));
    EXPECT_EQ(DirTools::getSubDirs(list, " "), (Names{"d.conf", "link"}));
    EXPECT_EQ(DirTools::readDir(list, "*.conf"), (Names{".b.conf", "a.conf", "d.conf"}));
    EXPECT_EQ(DirTools::readDir(list, "[ab].conf"), Names{});
    EXPECT_FALSE(DirTools::isEmpty(list));
    EXPECT_EQ(DirTools::getSize(list), 16U);
    EXPECT_EQ(DirTools::getFileTree(list + "/")->getAsString(0),
              "list/\n  .b.conf\n  a.conf\n  broken\n  c\n  d.conf/\n    x\n  link\n");
}

TEST_F(DirToolsTest, FailuresSayWhatWasDoneAndChangeNothing) {
    ASSERT_EQ(mkfifo(at("pipe").c_str(), 0600), 0);
    EXPECT_EQ(failureOf([&] { DirTools::getFiles(at("no")); }),
              R"(NoSuchDir: Trying to access "@/no", but no such dir (readDir))");
    EXPECT_EQ(failureOf([&] { DirTools::clear(""); }),
              R"(TargetExists: Parameter "path" must not be empty (clear))");
    EXPECT_EQ(failureOf([&] { DirTools::clear(at("link/")); }),
              R"(NoSuchDir: Trying to access "@/link/", but no such dir (clear))");
    EXPECT_EQ(failureOf([&] { DirTools::remove(at("source/."), 1); }),
              R"(AccessDenied: Trying to access "@/source/.", but was denied (remove))");
    EXPECT_EQ(
        failureOf([&] { DirTools::remove(at("source")); }),
        R"(Remove_DirNotEmpty: Cannot remove directory "@/source" because it is not empty (remove))");
    EXPECT_EQ(failureOf([&] { DirTools::createDir(at("source")); }),
              R"(CreateDir_Failed: Failed to create directory "@/source" (createDir))");
    EXPECT_EQ(
        failureOf([&] { DirTools::ensureParentExists(at("source/b/c/d")); }),
        R"(EnsureParent_InvalidPath: Trying to ensure existence of directory "@/source/b", but the path is invalid (is not dir))");
    EXPECT_EQ(failureOf([&] { DirTools::rename(at("source"), at("target")); }),
              R"(TargetExists: "@/target" must not exists prior to operation (rename))");
    EXPECT_EQ(failureOf([&] { DirTools::rename(at("source"), at("pipe"), CopyOverwrite); }),
              R"(Rename_Failed: Failed to rename from "@/source" to "@/pipe" (errno=20))");
    EXPECT_EQ(failureOf([&] { DirTools::copy(at("source"), at("target")); }),
              R"(Copy_Failed: Failed to copy "@/source" to "@/target" (target exists))");
    EXPECT_THROW(DirTools::copy(at("source"), at("pipe"), CopyOverwrite), DirTools::Copy_Failed);
    EXPECT_THROW(DirTools::ensureParentExists(""), TargetExists);
    const std::string name = at("source") + std::string("\0x", 2);
    EXPECT_THROW(DirTools::remove(name, DirTools::RemoveRecursive), DirTools::NoSuchDir);
    EXPECT_THROW(DirTools::copy(at("source"), name, CopyOverwrite), DirTools::Copy_Failed);
    EXPECT_EQ(DirTools::getFileTree(at("."))->getTreeSize(), 11U);
}

TEST_F(DirToolsTest, ParentsAreMadeUpToTheLastSlash) {
    DirTools::ensureParentExists(at("link/k/l/"));
    DirTools::ensureParentExists(at("link/k/m/n"));
    EXPECT_EQ(DirTools::getFileTree(at("source/k"))->getAsString(0), "k/\n  l/\n  m/\n");
}

TEST_F(DirToolsTest, TheFlagsSettleWhatBecomesOfATargetThatExists) {
    struct Case {
        int flags;
        const char* old;       // "a" and "only" in the target.
        const char* numbered;  // "b" in the numbered one.
    };
    for (const Case& row : {Case{1, "old,old", ""}, Case{2, "new,", ""}, Case{3, "old,old", "new"},
                            Case{8 + 1, "old,old", ""}, Case{8 + 2, "new,old", ""}}) {
        for (const bool moves : {false, true}) {
            SCOPED_TRACE(std::to_string(row.flags) + (moves ? " moved" : " copied"));
            fs::create_directory(at("again"));
            fs::copy(at("source"), at("again/from"), fs::copy_options::recursive);
            fs::copy(at("target"), at("again/to"), fs::copy_options::recursive);
            fs::create_directory_symlink(at("target"), at("again/to.cpytmp"));
            const auto operation = [&](auto... arguments) {
                return moves ? DirTools::move(arguments...) : DirTools::copy(arguments...);
            };
            operation(at("again/from"), at("again/to/"), row.flags);
            EXPECT_EQ(content("again/to/sub/a") + "," + content("again/to/sub/only"), row.old);
            EXPECT_EQ(content("again/to-0001/b"), row.numbered);
            // What is skipped or copied stays where it is.
            EXPECT_EQ(fs::exists(at("again/from")), !moves || row.flags == 1 || row.flags > 8);
            EXPECT_EQ(content("target/sub/a"), "old");
            fs::remove_all(at("again"));
        }
    }
}

TEST_F(DirToolsTest, NothingIsLostToACopyOntoItself) {
    for (const int flags : {1, 2, 8, 8 + 2}) {
        DirTools::copy(at("link"), at("source/"), flags);
        DirTools::move(at("source"), at("source/../source"), flags);
        DirTools::rename(at("source"), at("source/"), flags == 1 ? 1 : 2);
    }
    fs::rename(at("source"), at("target.cpytmp"));
    EXPECT_NE(failureOf([&] { DirTools::copy(at("target.cpytmp/sub"), at("target"), 2); }), "");
    EXPECT_NE(failureOf([&] { DirTools::copy(at("target/sub"), at("target"), 2); }), "");
    EXPECT_EQ(content("target.cpytmp/sub/a") + content("target/sub/a"), "newold");
}

// Writes down the reports, and gives one answer to all questions.
struct Notes : ProgressReporter {
    void reportOperationStart(const std::string& name, unsigned long long total) override {
        text += "+" + name + std::to_string(total) + " ";
    }
    void reportOperationUpdate(const std::string& /*name*/, unsigned long long amount) override {
        text += std::to_string(amount) + " ";
    }
    void reportOperationEnd(const std::string& name, OperationStatus status,
                            const std::string& reason) override {
        text += "-" + name + std::to_string(static_cast<int>(status)) + reason + " ";
    }
    std::string askQuestion(const std::string& /*operation*/, const std::string& /*question*/,
                            const std::string& /*answers*/) override {
        text += "? ";
        return answer;
    }

    std::string answer;
    std::string text;
};

TEST_F(DirToolsTest, ACopyReportsItsStepsAndAsks) {
    fs::remove(at("source/b"));
    const auto notesOf = [&](const char* answer) {
        Notes notes;
        notes.answer = answer;
        CopyParams params(&notes, CopyAsk, 2);
        failureOf([&] { DirTools::copy(at("source"), at("target"), params); });
        return notes.text;
    };
    EXPECT_EQ(notesOf("Abort"), "+copydir(source)1 ? -copydir(source)3copy failed ");
    EXPECT_EQ(content("target/sub/a"), "old");
    EXPECT_EQ(notesOf("Yes"),
              "+copydir(source)1 ? +scandir(source)1 -scandir(source)0 +copytree(source)3 "
              "+copyfile(a)2 1 1 -copyfile(a)0 1 1 -copytree(source)0 -copydir(source)0 ");
    EXPECT_EQ(content("target/sub/a") + content("target/sub/only"), "new");
}

// Each call fails in turn, as on a broken device and as on one that knows only the plain calls.
TEST_F(DirToolsTest, AFailureLeavesTheOldOrTheNewDirectory) {
    const auto failsAt = [&](std::size_t call, int error, const std::function<void()>& run) {
        fs::create_directory(at("now"));
        fs::copy(at("source"), at("now/from"), fs::copy_options::recursive);
        fs::copy(at("target"), at("now/to"), fs::copy_options::recursive);
        tarvik_test::FileFaults faults;
        faults.failAt(call, error);
        const std::string failure = failureOf(run);
        const std::string changed = content("now/to/sub/a");
        const bool isWholeOld = changed == "old" && content("now/to/sub/only") == "old";
        EXPECT_TRUE(changed == "new" || (isWholeOld && !failure.empty())) << failure;
        EXPECT_TRUE(content("now/to/b") == "new" || !failure.empty());
        EXPECT_FALSE(fs::exists(at("now/to.cpytmp")));
        EXPECT_FALSE(fs::exists(at("now/to._tmpmove_")) && failure.empty());
        fs::remove_all(at("now"));
        return faults.hit() && !HasFailure();
    };
    const std::vector<std::function<void()>> operations = {
        [&] { DirTools::rename(at("now/from"), at("now/to"), CopyOverwrite); },
        [&] { DirTools::move(at("now/from"), at("now/to"), CopyOverwrite); },
        [&] { DirTools::copy(at("now/from"), at("now/to"), CopyOverwrite); },
        [&] { DirTools::copy(at("now/from"), at("now/to"), CopyOverwrite + CopyMerge); },
    };
    for (const int error : {EIO, EINVAL}) {
        for (std::size_t operation = 0; operation < operations.size(); ++operation) {
            std::size_t call = 1;
            while (failsAt(call, error, operations[operation]))
                ++call;
            EXPECT_FALSE(HasFailure()) << "operation " << operation << ", call " << call;
        }
    }
}

TEST_F(DirToolsTest, AMoveToAnotherDeviceCopiesAndLeavesTheSource) {
    tarvik_test::FileFaults faults;
    faults.failFrom(1, EXDEV, "renameat2");
    DirTools::move(at("source"), at("moved"));
    EXPECT_EQ(content("moved/sub/a") + content("source/sub/a"), "newnew");
}

TEST_F(DirToolsTest, WhatFailedIsCountedAndTheFirstIsNamed) {
    ASSERT_EQ(mkfifo(at("source/sub/pipe").c_str(), 0600), 0);
    EXPECT_EQ(failureOf([&] { DirTools::copy(at("source"), at("new")); }),
              R"(Copy_Failed: Failed to copy "@/source" to "@/new" (1 files/sub-dirs failed))"
              "\n"
              R"(Copy_Failed: Failed to copy "@/source/sub/pipe" to "@/new/sub/pipe" (errno#95))");
    tarvik_test::FileFaults faults;
    faults.failAt(2, EIO, "unlinkat");
    EXPECT_EQ(failureOf([&] { DirTools::clear(at("source")); }),
              "Clear_Failed: Failed to clear directory \"@/source\" (1 files/sub-dirs failed)");
}

}  // namespace
}  // namespace TarvikFilelib
