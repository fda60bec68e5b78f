/// A lock between processes.
#pragma once

namespace TarvikCorelib {

/// Unlocking is all there is: nothing takes the lock yet.
class ProcessLock {
public:
    ProcessLock() = default;
    ProcessLock(const ProcessLock&) = delete;
    ProcessLock& operator=(const ProcessLock&) = delete;
    virtual ~ProcessLock() = default;

    /// Returns false, since this process never holds the lock.
    bool unlock();
};

}  // namespace TarvikCorelib
