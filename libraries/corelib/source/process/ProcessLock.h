/// A lock between processes.
#pragma once

namespace TarvikCorelib {

class ProcessLock {
public:
    ProcessLock() = default;
    ProcessLock(const ProcessLock&) = delete;
    ProcessLock& operator=(const ProcessLock&) = delete;
    virtual ~ProcessLock() = default;

    /// False if this process does not hold the lock. There is no way to take it yet.
    bool unlock();
};

}  // namespace TarvikCorelib
