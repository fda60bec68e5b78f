#include "libraries/corelib/source/process/ProcessLock.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <tuple>
#include <utility>

namespace TarvikCorelib {
namespace {

// With a name of this process alone. What stands at the lock's path is removed in the end.
class ProcessLockTest : public testing::Test {
protected:
    void TearDown() override {
        std::filesystem::remove(path);
        EXPECT_EQ(nextDescriptor(), next) << "one was left open";
    }
    static int nextDescriptor() {
        const int free = open("/dev/null", O_RDONLY);
        close(free);
        return free;
    }

    const int next = nextDescriptor();
    const std::string name = "tarvik-test-" + std::to_string(getpid()) + R"(/b:c\d)";
    const std::string path = "/tmp/lock_tarvik-test-" + std::to_string(getpid()) + "_b_c_d";
};

// A process. The constructor returns when `body` has called its argument, or has ended.
class Child {
public:
    template <class Body>
    explicit Child(Body body) {
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe(ends.data()), 0);
        pid = fork();
        if (pid == 0) _exit(body([&ends] { close(ends[1]); }));
        close(ends[1]);
        EXPECT_EQ(read(ends[0], ends.data(), 1), 0);
        close(ends[0]);
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() { end(SIGKILL); }
    // Without a signal it waits for what `body` returns.
    int end(int signal = 0) {
        int status = -1;
        if (pid > 0 && kill(pid, signal) == 0) waitpid(std::exchange(pid, -1), &status, 0);
        return WEXITSTATUS(status);
    }

private:
    pid_t pid = -1;
};

Child holderOf(const std::string& name) {
    return Child([&name](auto isHeld) {
        ProcessLock lock(name);
        if (lock.lock(true)) isHeld();
        return pause();
    });
}

bool othersMayLock(const std::string& name) {
    return Child([&](auto) { return ProcessLock(name).lock(false) ? 1 : 0; }).end() == 1;
}

auto modeOf(const std::string& path) {
    return std::filesystem::symlink_status(path).permissions();
}

TEST_F(ProcessLockTest, TheFileHasUnderscoresInItsNameIsWritableForAllAndStays) {
    const mode_t before = umask(077);
    EXPECT_TRUE(ProcessLock(name).lock(false));
    umask(before);
    EXPECT_EQ(modeOf(path), std::filesystem::perms{0622});
}

TEST_F(ProcessLockTest, EachLockNeedsAnUnlock) {
    ProcessLock lock(name);
    EXPECT_FALSE(lock.unlock());
    EXPECT_TRUE(lock.lock(false) && lock.lock(0) && lock.lock(100) && lock.reEnforce(getpid()));
    EXPECT_FALSE(lock.reEnforce(getppid()));
    EXPECT_TRUE(lock.unlock() && lock.unlock() && lock.unlock());
    EXPECT_FALSE(othersMayLock(name));
    EXPECT_TRUE(lock.unlock());
    EXPECT_TRUE(othersMayLock(name));
    EXPECT_FALSE(lock.unlock());
}

TEST_F(ProcessLockTest, TwoObjectsOfOneProcessBothHaveTheLockAndTheFirstUnlockFreesIt) {
    ProcessLock first(name);
    ProcessLock second(name);
    EXPECT_TRUE(first.lock(false) && second.lock(false) && second.unlock());
    EXPECT_TRUE(othersMayLock(name));
}

TEST_F(ProcessLockTest, AnUnlockThatFailsLeavesTheLockHeld) {
    ProcessLock lock(name);
    EXPECT_TRUE(lock.lock(false) && lock.unlock());
    EXPECT_EQ(close(next), -1) << "the lock's descriptor is closed";
    EXPECT_TRUE(lock.lock(false));
    EXPECT_EQ(close(next), 0) << "and open again";
    EXPECT_FALSE(lock.unlock());
    EXPECT_TRUE(lock.lock(false) && lock.unlock());
    EXPECT_FALSE(lock.unlock());
}

TEST_F(ProcessLockTest, ALockOfAnotherProcessIsRefusedForTheWholeTimeUntilItsHolderDies) {
    Child holder = holderOf(name);
    ProcessLock lock(name);
    EXPECT_FALSE(ProcessLock(name).lock(false));
    EXPECT_FALSE(lock.lock(-1));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(lock.lock(20));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
    EXPECT_FALSE(lock.unlock());
    holder.end(SIGKILL);
    EXPECT_TRUE(lock.lock(false));
}

TEST_F(ProcessLockTest, AForkedChildIsNoOwnerAndCountsFromOne) {
    ProcessLock lock(name);
    EXPECT_TRUE(lock.lock(true) && lock.lock(true));
    Child child([&](auto isRefused) {
        if (lock.unlock() || lock.lock(false)) return 1;
        isRefused();
        return lock.lock(0) && lock.unlock() && !lock.unlock() ? 0 : 2;
    });
    EXPECT_TRUE(lock.unlock() && lock.unlock());
    EXPECT_EQ(child.end(), 0);
}

TEST_F(ProcessLockTest, ANameIsNeededAndSetOnce) {
    ProcessLock lock("");
    lock.setName("");
    EXPECT_THROW(lock.lock(1'000'000), ProcessLock::HaveNoName);
    lock.setName(name);
    EXPECT_THROW(lock.setName(name), ProcessLock::AlreadyHaveName);
    EXPECT_TRUE(lock.lock(1ULL));
}

TEST_F(ProcessLockTest, ARemovedFileIsLeftForTheNewOne) {
    for (const bool isReplaced : {false, true}) {
        Child holder = holderOf(name);
        ProcessLock lock(name);
        EXPECT_FALSE(lock.lock(false)) << "but the old file is open now";
        std::filesystem::remove(path);
        if (isReplaced) std::ofstream(path).close();
        holder.end(SIGKILL);
        EXPECT_TRUE(lock.lock(false)) << isReplaced;
        EXPECT_FALSE(othersMayLock(name)) << isReplaced;
    }
}

struct PlantedCase {
    const char* name;
    int (*plant)(const char* path, const char* victim);  // Above 0 what it returns is to be closed.
};

constexpr auto planted = std::to_array<PlantedCase>({
    {"link to a file", [](auto* path, auto* victim) { return symlink(victim, path); }},
    {"link to nothing", [](auto* path, auto*) { return symlink("/tmp/tarvik-none", path); }},
    {"link to a directory", [](auto* path, auto*) { return symlink("/tmp", path); }},
    {"hard link to a file", [](auto* path, auto* victim) { return link(victim, path); }},
    {"directory", [](auto* path, auto*) { return mkdir(path, 0700); }},
    {"socket", [](auto* path, auto*) { return mknod(path, S_IFSOCK | 0600, 0); }},
    {"FIFO", [](auto* path, auto*) { return mkfifo(path, 0600); }},
    {"device, or a link to one",
     [](auto* path, auto*) {
         const bool made = mknod(path, S_IFCHR | 0600, makedev(1, 3)) == 0;
         return made ? 0 : symlink("/dev/null", path);
     }},
    {"FIFO with a reader",
     [](auto* path, auto*) {
         return mkfifo(path, 0600) == 0 ? open(path, O_RDONLY | O_NONBLOCK) : -1;
     }},
});

TEST_F(ProcessLockTest, WhatIsNoFileOfItsOwnIsRefusedAndLeftAlone) {
    const std::string victim = path + "-victim";
    const auto facts = [this, &victim] {
        return std::tuple(modeOf(path), modeOf(victim), std::filesystem::last_write_time(victim));
    };
    std::ofstream(victim) << "precious";
    std::filesystem::last_write_time(victim, {});
    for (const PlantedCase& row : planted) {
        const int reader = row.plant(path.c_str(), victim.c_str());
        EXPECT_GE(reader, 0) << row.name;
        const auto before = facts();
        EXPECT_FALSE(ProcessLock(name).lock(false)) << row.name;
        EXPECT_EQ(facts(), before) << row.name;
        if (reader > 0) close(reader);
        std::filesystem::remove(path);
    }
    EXPECT_FALSE(std::filesystem::remove("/tmp/tarvik-none"));
    std::filesystem::remove(victim);
}

TEST_F(ProcessLockTest, AnotherUsersFileIsUsedIfItIsWritable) {
    if (getuid() != 0) GTEST_SKIP() << "only root can be another user";
    for (const auto& [mode, isUsed] : {std::pair{0622U, 1}, {0666U, 1}, {0600U, 0}}) {
        std::ofstream(path).close();
        std::filesystem::permissions(path, std::filesystem::perms{mode});
        Child other([&](auto) { return setuid(65534) == 0 && ProcessLock(name).lock(false); });
        EXPECT_EQ(other.end(), isUsed) << std::oct << mode;
        EXPECT_EQ(modeOf(path), std::filesystem::perms{mode});
    }
}

// Somebody may have moved it there to have it opened up.
TEST_F(ProcessLockTest, OnlyAnEmptyFileOfItsOwnGetsTheModeOfALock) {
    std::ofstream(path) << "precious";
    std::filesystem::permissions(path, std::filesystem::perms{0600});
    EXPECT_TRUE(ProcessLock(name).lock(false));
    EXPECT_EQ(modeOf(path), std::filesystem::perms{0600});
    if (getuid() != 0) GTEST_SKIP() << "only root can give a file away";
    std::filesystem::resize_file(path, 0);
    ASSERT_EQ(chown(path.c_str(), 65534, 65534), 0);
    EXPECT_TRUE(ProcessLock(name).lock(false));
    EXPECT_EQ(modeOf(path), std::filesystem::perms{0600});
}

struct Resource {
    int users;
    int clashes;
    int turn;
};

TEST_F(ProcessLockTest, TwoProcessesThatWaitBy0HandTheLockOverAndNeverHoldItBoth) {
    void* memory =
        mmap(nullptr, sizeof(Resource), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    auto& shared = *static_cast<Resource*>(memory);
    const auto takeTurns = [&](int side) {
        ProcessLock lock(name);
        for (int taken = 0; taken < 5000; lock.unlock()) {
            if (!lock.lock(0) || ++shared.users != 1) ++shared.clashes;
            sched_yield();
            if (shared.turn == side) ++taken;
            if (shared.turn == side) shared.turn = 1 - side;
            --shared.users;
        }
        return 0;
    };
    Child child([&](auto isStarted) {
        isStarted();
        return takeTurns(1);
    });
    takeTurns(0);
    EXPECT_EQ(child.end(), 0);
    EXPECT_EQ(shared.clashes, 0);
    munmap(memory, sizeof(Resource));
}

}  // namespace
}  // namespace TarvikCorelib
