#include "libraries/corelib/source/process/ProcessLock.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace TarvikCorelib {
namespace {

// Starts a process. Returns when `body` has stopped it, or is done.
template <class Body>
pid_t start(Body body) {
    const pid_t child = fork();
    if (child == 0) _exit(body());
    siginfo_t info{};
    EXPECT_EQ(waitid(P_PID, static_cast<id_t>(child), &info, WSTOPPED | WEXITED | WNOWAIT), 0);
    return child;
}

// What the body returns, after a signal that may end the process instead.
int end(pid_t child, int signal = SIGCONT) {
    int status = -1;
    kill(child, signal);
    waitpid(child, &status, 0);
    return WEXITSTATUS(status);
}

auto modeOf(const std::string& path) {
    return std::filesystem::symlink_status(path).permissions();
}

int nextDescriptor() {
    const int free = open("/dev/null", O_RDONLY);
    close(free);
    return free;
}

// With a name of this process alone. What stands at the lock's path is removed in the end.
class ProcessLockTest : public testing::Test {
protected:
    void TearDown() override {
        std::filesystem::remove(path);
        EXPECT_EQ(nextDescriptor(), next) << "one was left open";
    }
    pid_t startHolder() {
        return start([this] { return lock.lock(true) ? raise(SIGSTOP) : 1; });
    }
    bool othersMayLock() {
        return end(start([this] { return ProcessLock(name).lock(false) ? 1 : 0; })) == 1;
    }

    const int next = nextDescriptor();
    const std::string name = "tarvik-test-" + std::to_string(getpid()) + R"(/b:c\d)";
    const std::string path = "/tmp/lock_tarvik-test-" + std::to_string(getpid()) + "_b_c_d";
    ProcessLock lock{name};
};

TEST_F(ProcessLockTest, EachLockNeedsAnUnlock) {
    EXPECT_FALSE(lock.unlock());
    EXPECT_TRUE(lock.lock(false) && lock.lock(0) && lock.lock(100) && lock.reEnforce(getpid()));
    EXPECT_FALSE(lock.reEnforce(getppid()));
    EXPECT_TRUE(lock.unlock() && lock.unlock() && lock.unlock());
    EXPECT_FALSE(othersMayLock());
    EXPECT_TRUE(lock.unlock());
    EXPECT_TRUE(othersMayLock());
    EXPECT_FALSE(lock.unlock());
}

TEST_F(ProcessLockTest, TwoObjectsOfOneProcessBothHaveTheLockAndTheFirstUnlockFreesIt) {
    ProcessLock second(name);
    EXPECT_TRUE(lock.lock(false) && second.lock(false) && second.unlock());
    EXPECT_TRUE(othersMayLock() && lock.unlock());
}

TEST_F(ProcessLockTest, AnUnlockThatFailsLeavesTheLockHeld) {
    EXPECT_TRUE(lock.lock(false) && lock.unlock());
    EXPECT_EQ(close(next), -1) << "the lock's descriptor is closed";
    EXPECT_TRUE(lock.lock(false));
    EXPECT_EQ(fcntl(next, F_GETFD), FD_CLOEXEC) << "and open again";
    close(next);
    EXPECT_FALSE(lock.unlock());
    EXPECT_TRUE(lock.lock(false) && lock.unlock());
    EXPECT_FALSE(lock.unlock());
}

TEST_F(ProcessLockTest, ALockOfAnotherProcessIsRefusedForTheWholeTimeUntilItsHolderDies) {
    const pid_t holder = startHolder();
    EXPECT_FALSE(ProcessLock(name).lock(false) || lock.lock(-1));
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(lock.lock(20));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(30));
    EXPECT_FALSE(lock.unlock());
    end(holder, SIGKILL);
    EXPECT_TRUE(lock.lock(false) && lock.unlock());
}

TEST_F(ProcessLockTest, AForkedChildIsNoOwnerAndCountsFromOne) {
    EXPECT_TRUE(lock.lock(true) && lock.lock(true));
    const pid_t child = start([this] {
        if (lock.unlock() || lock.lock(false) || raise(SIGSTOP) != 0) return 1;
        return lock.lock(0) && lock.unlock() && !lock.unlock() ? 0 : 2;
    });
    EXPECT_TRUE(lock.unlock() && lock.unlock());
    EXPECT_EQ(end(child), 0);
}

TEST_F(ProcessLockTest, ANameIsNeededAndSetOnce) {
    ProcessLock nameless("");
    nameless.setName("");
    EXPECT_THROW(nameless.lock(1'000'000), ProcessLock::HaveNoName);
    nameless.setName(name);
    EXPECT_THROW(nameless.setName(name), ProcessLock::AlreadyHaveName);
    EXPECT_TRUE(nameless.lock(1ULL));
}

TEST_F(ProcessLockTest, ARemovedFileIsLeftForTheNewOne) {
    for (const bool isReplaced : {false, true}) {
        const pid_t holder = startHolder();
        EXPECT_FALSE(lock.lock(false)) << "but the old file is open now";
        std::filesystem::remove(path);
        if (isReplaced) std::ofstream(path).close();
        end(holder, SIGKILL);
        EXPECT_TRUE(lock.lock(false)) << isReplaced;
        EXPECT_FALSE(othersMayLock()) << isReplaced;
        lock.unlock();
    }
}

struct FileCase {
    const char* planting;  // Of P, the path, or V, the victim.
    int isUsed;
    unsigned modeBehind;
    uid_t user = 0;  // 0 is whoever runs the test.
    bool needsRoot = user != 0;
};

constexpr auto files = std::to_array<FileCase>({
    {": # no file", 1, 0622},
    {"touch $P", 1, 0622},
    // Somebody may have moved it there to have it opened up.
    {"echo precious > $P", 1, 0600},
    {"touch $P; chown 65534 $P", 1, 0600, 0, true},
    {"touch $P", 0, 0600, 65534},
    {"touch $P; chmod 622 $P", 1, 0622, 65534},
    {"touch $P; chmod 666 $P", 1, 0666, 65534},
    {"ln -s $V $P # link to a file", 0, 0777},
    {"ln -s $V-none $P # link to nothing", 0, 0777},
    {"ln -s /tmp $P # link to a directory", 0, 0777},
    {"ln $V $P", 0, 0600},
    {"mkdir -m 700 $P", 0, 0700},
    {"mkfifo -m 600 $P", 0, 0600},
    {"ln -s /dev/null $P", 0, 0777},
    {"mknod -m 600 $P c 1 3", 0, 0600, 0, true},
});

TEST_F(ProcessLockTest, OnlyAnEmptyFileOfItsOwnGetsTheModeOfALockAndWhatIsNoFileIsLeftAlone) {
    const std::string victim = path + "-victim";
    const mode_t before = umask(077);
    std::ofstream(victim) << "precious";
    std::filesystem::last_write_time(victim, {});
    for (const FileCase& row : files) {
        if (getuid() != 0 && row.needsRoot) continue;
        const std::string command = "P=" + path + " V=" + victim + "; " + row.planting;
        EXPECT_EQ(std::system(command.c_str()), 0) << row.planting;
        const pid_t user = start([&] {
            if (row.user != 0 && setuid(row.user) != 0) return 2;
            if (lock.lock(false)) return 1;
            open(path.c_str(), O_RDONLY | O_NONBLOCK);  // Now a FIFO could be opened.
            return lock.lock(false) ? 3 : 0;
        });
        EXPECT_EQ(end(user), row.isUsed) << row.planting;
        EXPECT_EQ(modeOf(path), std::filesystem::perms{row.modeBehind}) << row.planting;
        EXPECT_EQ(modeOf(victim), std::filesystem::perms{0600}) << row.planting;
        EXPECT_EQ(std::filesystem::last_write_time(victim).time_since_epoch().count(), 0);
        EXPECT_FALSE(std::filesystem::exists(victim + "-none")) << row.planting;
        std::filesystem::remove(path);
    }
    std::filesystem::remove(victim);
    umask(before);
}

TEST_F(ProcessLockTest, TwoProcessesThatWaitBy0NeverHoldItBothInSpiteOfSignals) {
    void* memory =
        mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    int& users = *static_cast<int*>(memory);
    struct sigaction ignoring {};
    ignoring.sa_handler = [](int) {};
    sigaction(SIGUSR1, &ignoring, nullptr);
    const pid_t child = fork();
    int clashes = 0;
    for (int round = 0; round < 5000; ++round) {
        if (!lock.lock(0) || ++users != 1) ++clashes;
        if (child == 0) kill(getppid(), SIGUSR1);
        sched_yield();
        --users;
        lock.unlock();
    }
    if (child == 0) _exit(clashes == 0 ? 0 : 1);
    std::signal(SIGUSR1, SIG_IGN);
    EXPECT_EQ(clashes + end(child), 0);
    std::signal(SIGUSR1, SIG_DFL);
    munmap(memory, sizeof(int));
}

}  // namespace
}  // namespace TarvikCorelib
