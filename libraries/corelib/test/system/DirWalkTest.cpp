#include "libraries/corelib/source/system/DirWalk.h"

#include "test/support/FileFaults.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace TarvikCorelib {
namespace {

namespace fs = std::filesystem;

constexpr mode_t allPermissions = 0777;

Descriptor openPath(const std::string& path) {
    return openDir(AT_FDCWD, path.c_str());
}

WalkFailures removePath(const std::string& path, bool widen = false) {
    return removeTree(AT_FDCWD, path.c_str(), widen);
}

class DirWalkTest : public testing::Test {
protected:
    std::string at(const std::string& name) const { return directory.path() + "/" + name; }
    bool exists(const std::string& name) const { return fs::exists(fs::symlink_status(at(name))); }
    WalkFailures copy(int flags, const std::string& from = "source",
                      const std::string& to = "target") const {
        fs::create_directory(at(to));
        return TreeCopy(flags).copy(openPath(at(from)), openPath(at(to)));
    }
    // "tree/1/2/.../levels", a file "f" in the last one.
    void makeChain(int levels) const {
        fs::create_directory(at("tree"));
        Descriptor dir = openPath(at("tree"));
        for (int level = 1; level <= levels; ++level) {
            const std::string name = std::to_string(level);
            mkdirat(dir.get(), name.c_str(), allPermissions);
            dir = openDir(dir.get(), name.c_str());
        }
        const Descriptor file(openat(dir.get(), "f", O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    }

    const tarvik_test::TempDir directory;
};

std::size_t countSteps(TreeWalk walk) {
    std::size_t steps = 0;
    for (; walk.next(); ++steps)
        if (walk.kind() == EntryKind::Directory && !walk.isLeaving()) walk.enter();
    return steps;
}

TEST_F(DirWalkTest, TreesDeeperThanAnyPathNeedFewDescriptors) {
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit few{48, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &few);
    makeChain(1500);
    EXPECT_EQ(copy(0, "tree").count, 0U);
    EXPECT_EQ(countSteps(TreeWalk(openPath(at("target")))), 3001U);
    EXPECT_EQ(removePath(at("tree")).count, 0U);
    EXPECT_EQ(removePath(at("target")).count, 0U);
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_TRUE(fs::is_empty(directory.path()));
}

TEST_F(DirWalkTest, AllKindsOfNamesAreCopied) {
    for (const std::string& name : {std::string(255, 'x'), std::string("a\nb\\\x01\xff"),
                                    std::string(" -rf *"), std::string("...")}) {
        directory.write("source/" + name, name);
        directory.write("source/sub/" + name, name);
    }
    fs::create_symlink("nowhere", at("source/dangling"));
    fs::create_directory_symlink("/", at("source/sub/root"));
    for (const int flags : {0, 2 + 8}) {  // A name of 255 bytes has no room for a suffix.
        EXPECT_EQ(copy(flags).count, 0U);
        const std::string trees = at("source") + " " + at("target");
        // NOLINTNEXTLINE(cert-env33-c, concurrency-mt-unsafe)
        EXPECT_EQ(std::system(("diff -r --no-dereference " + trees).c_str()), 0);
    }
}

TEST_F(DirWalkTest, ACopyIntoItselfEnds) {
    directory.write("source/a", "x");
    EXPECT_EQ(copy(0, "source", "source/copy").count, 0U);
    EXPECT_TRUE(exists("source/copy/a"));
    EXPECT_FALSE(exists("source/copy/copy"));
}

TEST_F(DirWalkTest, LinksAreRemovedAndNotFollowed) {
    directory.write("outside/keep", "x");
    directory.write("tree/file", "x");
    fs::create_directory_symlink("../outside", at("tree/link"));
    fs::create_directory_symlink("outside", at("link"));
    EXPECT_FALSE(openPath(at("link")).isOpen());
    EXPECT_EQ(removePath(at("tree")).count, 0U);
    EXPECT_EQ(removePath(at("link")).count, 0U);
    EXPECT_FALSE(exists("tree"));
    EXPECT_TRUE(exists("outside/keep"));
}

// Somebody renames directories right before a step of a walk: nothing outside is touched or copied.
TEST_F(DirWalkTest, ARenamingAttackerLeadsNoWalkOutOfItsTree) {
    const std::string middle = at("tree/1/2/3");
    const auto putLink = [&] {
        fs::rename(middle, at("stolen"));
        fs::create_directory_symlink(at("outside"), middle);
    };
    const auto moveOut = [&] { fs::rename(middle, at("outside/3")); };
    const auto removeIt = [&] { removePath(at("tree")); };
    const auto copyIt = [&] { copy(0, "tree"); };
    const auto copyOnto = [&] { copy(2 + 8, "unattacked", "tree"); };
    struct Case {
        const char* name;
        std::function<void()> attack;
        std::function<void()> walk;
        const char* step = "openat";
    };
    const std::vector<Case> cases = {
        {"a link, removing", putLink, removeIt},
        {"a link, removing names", putLink, removeIt, "unlinkat"},
        {"a link, copying", putLink, copyIt},
        {"a link, copying onto it", putLink, copyOnto},
        {"moved out, removing", moveOut, removeIt},
        {"moved out, copying onto it", moveOut, copyOnto},
    };
    for (const Case& row : cases) {
        const auto attackAt = [&](std::size_t call) {
            makeChain(12);
            fs::copy(at("tree"), at("unattacked"), fs::copy_options::recursive);
            directory.write("outside/2/keep", "x");
            directory.write("outside/f", "x");
            tarvik_test::FileFaults faults;
            const auto attack = [&] {
                if (fs::exists(middle)) row.attack();
            };
            faults.runAt(call, attack, row.step);
            row.walk();
            EXPECT_TRUE(exists("outside/2/keep"));
            EXPECT_TRUE(exists("outside/f"));
            EXPECT_FALSE(exists("outside/4"));
            EXPECT_TRUE(fs::is_symlink(at("target/1/2/3")) || !exists("target/1/2/3/f"));
            for (const char* name : {"tree", "unattacked", "outside", "stolen", "target"})
                fs::remove_all(at(name));
            return faults.hit() && !HasFailure();
        };
        std::size_t call = 1;
        while (attackAt(call))
            ++call;
        EXPECT_FALSE(HasFailure()) << row.name << ", step " << call;
    }
}

TEST_F(DirWalkTest, OnlyWithLeaveArePermissionsWidenedAndNeverThroughALink) {
    if (geteuid() != 0) GTEST_SKIP() << "needs root, to become nobody";
    constexpr uid_t nobody = 65534;
    directory.write("outside/keep", "x");
    directory.write("tree/closed/file", "x");
    directory.write("tree/read/file", "x");
    fs::create_directory_symlink("../outside", at("tree/link"));
    for (const char* name : {"", "tree", "tree/closed", "tree/read", "outside"})
        ASSERT_EQ(chown(at(name).c_str(), nobody, nobody), 0);
    ASSERT_EQ(chmod(at("tree/closed").c_str(), 0), 0);
    ASSERT_EQ(chmod(at("tree/read").c_str(), 0500), 0);
    ASSERT_EQ(chmod(at("outside").c_str(), 0500), 0);
    ASSERT_EQ(seteuid(nobody), 0);
    const WalkFailures without = removePath(at("tree"));
    const WalkFailures with = removePath(at("tree"), true);
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_EQ(without.count, 2U);  // The closed directory, and the file in the other.
    EXPECT_EQ(with.count, 0U);
    EXPECT_EQ(fs::status(at("outside")).permissions(), fs::perms(0500));
}

}  // namespace
}  // namespace TarvikCorelib
