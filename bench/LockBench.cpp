// What a lock costs: between threads beside the plain mutex below it, and between processes.

#include "libraries/corelib/source/messaging/ThreadLock.h"
#include "libraries/corelib/source/process/ProcessLock.h"

#include <benchmark/benchmark.h>

#include <pthread.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <thread>

namespace {

using TarvikCorelib::ProcessLock;
using TarvikCorelib::ThreadLock;

// As in any program that needs locks: with one thread ever, the C library would leave out what
// makes a mutex atomic.
void beThreaded() {
    std::thread([] {}).join();
}

void threadLock(benchmark::State& state) {
    beThreaded();
    ThreadLock lock;
    for ([[maybe_unused]] auto _ : state) {
        lock.lock(true);
        lock.unlock();
    }
}

// The floor of the one above.
void plainMutex(benchmark::State& state) {
    beThreaded();
    pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
    for ([[maybe_unused]] auto _ : state) {
        pthread_mutex_lock(&mutex);
        pthread_mutex_unlock(&mutex);
    }
}

std::string lockName() {
    return "tarvik-bench-" + std::to_string(getpid());
}

void removeLockFile() {
    unlink(("/tmp/lock_" + lockName()).c_str());
}

void processLock(benchmark::State& state) {
    ProcessLock lock(lockName());
    for ([[maybe_unused]] auto _ : state) {
        lock.lock(true);
        lock.unlock();
    }
    removeLockFile();
}

// What the lock guards, in the memory of both processes.
struct Resource {
    int users;
    int clashes;
    int turn;
};

constexpr int handOvers = 10'000;

// One side of the hand-over: ends when it had the lock in its turn half of the times.
void takeTurns(const std::string& name, Resource& resource, int side) {
    ProcessLock lock(name);
    for (int taken = 0; taken < handOvers / 2;) {
        if (!lock.lock(true) || ++resource.users != 1) ++resource.clashes;
        if (resource.turn == side) {
            resource.turn = 1 - side;
            ++taken;
        }
        --resource.users;
        lock.unlock();
        sched_yield();
    }
}

// Fails if the two ever have the lock at the same time.
void processLockHandOver(benchmark::State& state) {
    const std::string name = lockName();
    void* memory =
        mmap(nullptr, sizeof(Resource), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) return state.SkipWithError("no shared memory");
    auto& resource = *static_cast<Resource*>(memory);
    for ([[maybe_unused]] auto _ : state) {
        const pid_t child = fork();
        if (child == 0) {
            takeTurns(name, resource, 1);
            _exit(0);
        }
        takeTurns(name, resource, 0);
        waitpid(child, nullptr, 0);
    }
    if (resource.clashes != 0) state.SkipWithError("two processes had the lock");
    state.SetItemsProcessed(state.iterations() * std::int64_t{handOvers});
    munmap(memory, sizeof(Resource));
    removeLockFile();
}

BENCHMARK(threadLock);
BENCHMARK(plainMutex);
BENCHMARK(processLock);
BENCHMARK(processLockHandOver)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
