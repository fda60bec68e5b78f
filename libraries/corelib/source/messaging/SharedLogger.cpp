#include "libraries/corelib/source/messaging/SharedLogger.h"

#include "libraries/corelib/source/diagnostics/NoDestructor.h"
#include "libraries/corelib/source/messaging/Logger.h"
#include "libraries/corelib/source/messaging/ThreadLock.h"

#include <memory>

namespace TarvikCorelib {

namespace {

// For both variables, and for the making; re-entrant, since to make a logger may log.
constinit NoDestructor<ThreadLock> sharedLock;

}  // namespace

constinit std::atomic<Logger*> Log{nullptr};
constinit std::atomic<std::int32_t> LogInstances{0};

void createLogger() {
    const ThreadLockGuard held(*sharedLock);
    ++LogInstances;
    if (Log != nullptr || LogInstances > 1) return;
    try {
        Log = std::make_unique<Logger>("imsagent", nullptr).release();
    } catch (...) {
        --LogInstances;
        throw;
    }
}

// The logger dies outside of the lock, but its hook goes within: a thread that makes the next
// logger may send messages at once, and none of them may reach this one.
void destroyLogger() {
    std::unique_ptr<Logger> last;
    const ThreadLockGuard held(*sharedLock);
    if (--LogInstances > 0) return;
    last.reset(Log.exchange(nullptr));
    if (last) last->removeLevelHook();
}

}  // namespace TarvikCorelib
