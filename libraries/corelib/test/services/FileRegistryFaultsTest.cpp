#include "libraries/corelib/source/process/ProcessLock.h"
#include "libraries/corelib/source/services/FileRegistry.h"
#include "test/support/FileFaults.h"
#include "test/support/RegistryDir.h"
#include "test/support/ScopedEnv.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <future>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace TarvikCorelib {
namespace {

namespace fs = std::filesystem;
using tarvik_test::FileFaults;

// The files below the current directory with their contents.
using State = std::map<std::string, std::string>;

State found() {
    State files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator("."))
        if (!entry.is_directory())
            files[entry.path().string().substr(2)] = tarvik_test::readFile(entry.path());
    return files;
}

auto openFiles() {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

// The root is the current directory, and the key is always the same.
class FileRegistryFaultsTest : public testing::Test {
protected:
    void SetUp() override { fs::current_path(root.path()); }
    void TearDown() override {
        fs::current_path("/");
        EXPECT_EQ(openFiles(), openBefore);
    }
    void reset(const State& state) const {
        fs::remove_all("a");
        for (const auto& [name, content] : state)
            root.write(name, content);
    }

    const long openBefore = openFiles();
    // In memory, if there is such a place: the registry waits for the disk.
    tarvik_test::ScopedEnv memory{"TMPDIR", fs::is_directory("/dev/shm") ? "/dev/shm" : "/tmp"};
    tarvik_test::RegistryDir root;
};

const std::string valueFile = "a/k/int32";
const std::string temporary = valueFile + ".cpytmp";
const State oneValue{{valueFile, "1\n"}};
const State newValue{{valueFile, "7\n"}};
const State subKey{{valueFile, "1\n"}, {"a/k/sub/string", "x\n"}};

int set() {
    return FileRegistry::set("a/k", 7);
}

int get() {
    int value = -1;
    const int status = FileRegistry::get("a/k", value, true);
    EXPECT_EQ(value, status == 0 ? 1 : -1);
    return status;
}

int list() {
    std::set<std::string> names;
    return FileRegistry::getSubKeys("a/k", names);
}

// A name, the files before, what is done, and the files after.
using Scenario = std::tuple<const char*, State, int (*)(), State>;

const std::vector<Scenario> scenarios{
    {"new", {}, set, newValue},
    {"replaced", oneValue, set, newValue},
    {"modified", oneValue, [] { return FileRegistry::modify("a/k", 6); }, newValue},
    {"read", oneValue, get, oneValue},
    {"listed", subKey, list, subKey},
    {"removed", subKey, [] { return FileRegistry::removeKey("a/k"); }, {}},
};

// Each file is the old one or the new one. No lock is held, and what was left over goes.
void expectGood(State before, State after) {
    State now = found();
    for (const State& files : {before, after, now})
        for (const auto& [name, content] : files)
            EXPECT_TRUE(now[name] == before[name] || now[name] == after[name]) << name;
    EXPECT_EQ(std::async(std::launch::async, set).get(), 0);
    EXPECT_EQ(found()[valueFile], "7\n");
    EXPECT_FALSE(found().contains(temporary));
}

TEST_F(FileRegistryFaultsTest, AFaultAtAnyCallLeavesTheOldOrTheNew) {
    for (const auto& [name, before, run, after] : scenarios)
        for (const int error : {ENOSPC, EIO, EACCES, EMFILE, ENOMEM})
            for (std::size_t number = 1;; ++number) {
                reset(before);
                FileFaults faults;
                faults.failAt(number, error);
                const int status = run();
                if (!faults.hit()) break;
                SCOPED_TRACE(name + std::to_string(number) + faults.hitName());
                expectGood(status == 0 ? after : before, after);
            }
}

TEST_F(FileRegistryFaultsTest, AProcessKilledAtAnyCallLeavesTheOldOrTheNewAndNoLock) {
    for (const auto& [name, before, run, after] : scenarios) {
        int status = SIGKILL;
        for (std::size_t number = 1; WIFSIGNALED(status); ++number) {
            SCOPED_TRACE(name + std::to_string(number));
            reset(before);
            const pid_t child = fork();
            FileFaults faults;
            if (child == 0) faults.runAt(number, [] { raise(SIGKILL); });
            if (child == 0) _exit(run());
            waitpid(child, &status, 0);
            // A part of the new value may lie beside it until the next one comes.
            State allowed = before;
            allowed[temporary] = found()[temporary];
            expectGood(allowed, after);
        }
        EXPECT_EQ(WEXITSTATUS(status), 0) << name;
    }
}

TEST_F(FileRegistryFaultsTest, AKeyThatCannotBeMadeIsNotWritten) {
    FileFaults faults;
    faults.failFrom(1, EROFS, "mkdir");
    EXPECT_EQ(set(), 4);
    EXPECT_EQ(faults.count("mkdir"), 3U);
}

TEST_F(FileRegistryFaultsTest, WhoWaitsForOneKeyIsInNobodysWayAtOthers) {
    reset({{valueFile, "1\n"}, {"a/other/int32", "1\n"}});
    const pid_t holder = fork();
    if (holder == 0) _exit(ProcessLock(root.path() + "/a/k").lock(true) ? raise(SIGSTOP) : 1);
    EXPECT_EQ(waitpid(holder, nullptr, WUNTRACED), holder);
    std::promise<void> asked;
    std::future<int> answer = std::async(std::launch::async, [&asked] {
        FileFaults faults;
        faults.runAt(
            1, [&asked] { asked.set_value(); }, "open");
        return FileRegistry::modify("a/k", 1);
    });
    asked.get_future().wait();
    int value = 0;
    EXPECT_EQ(FileRegistry::get("a/other", value) + FileRegistry::get("a/k", value), 0);
    const FileFaults faults;
    EXPECT_EQ(FileRegistry::get("a/other", value, true), 0);
    EXPECT_EQ(faults.count("open"), 2U) << "the lock and the value";
    // What is refused needs no lock.
    EXPECT_EQ(FileRegistry::modify("a/k", 1U), 6);
    kill(holder, SIGCONT);
    EXPECT_EQ(answer.get(), 0);
    EXPECT_EQ(waitpid(holder, nullptr, 0), holder);
}

// Who is not let in within ten seconds asks again.
int countUp() {
    for (int step = 0; step < 200;)
        if (FileRegistry::modify("a/k", 1) != FileRegistry::NotLocked) ++step;
    return 0;
}

TEST_F(FileRegistryFaultsTest, ProcessesAndThreadsCountTogether) {
    reset({{valueFile, "0\n"}});
    for (int child = 0; child < 8; ++child)
        if (fork() == 0) _exit(countUp());
    std::vector<std::future<int>> threads(8);
    for (std::future<int>& thread : threads)
        thread = std::async(std::launch::async, countUp);
    int value = 0;
    // Without the lock, a reader still finds whole values.
    for (int reads = 0, last = 0; reads < 1000; ++reads, last = value)
        ASSERT_TRUE(FileRegistry::get("a/k", value) == 0 && value >= last) << value;
    for (std::future<int>& thread : threads)
        thread.wait();
    for (int status = 0; wait(&status) > 0;)
        EXPECT_EQ(status, 0);
    EXPECT_EQ(FileRegistry::get("a/k", value), 0);
    EXPECT_EQ(value, 16 * 200);
}

}  // namespace
}  // namespace TarvikCorelib
