/// What thread locks log.
#pragma once

#include "libraries/corelib/source/diagnostics/Template.h"

namespace TarvikCorelib::messages {

inline constexpr Template<2> goingToLock = "ThreadLock::lock: Going to lock % (%)";
inline constexpr Template<0> alreadyLocked = "ThreadLock::lock: Already locked";
inline constexpr Template<1> lockBelongsToThread =
    "ThreadLock::lock: Failed to lock - lock belongs to thread %";
inline constexpr Template<0> failedToLock = "ThreadLock::lock: FAILED TO LOCK";
inline constexpr Template<0> locked = "ThreadLock::lock: Locked";
inline constexpr Template<1> goingToUnlock = "ThreadLock::unlock: Going to unlock %";
inline constexpr Template<1> lockedByOtherThread =
    "ThreadLock::unlock: Cannot unlock - locked by other thread %";
inline constexpr Template<1> nestedLocking =
    "ThreadLock::unlock: Nested locking (now at level % - actual unlock at zero)";
inline constexpr Template<0> failedToUnlock = "ThreadLock::unlock: FAILED TO UNLOCK";
inline constexpr Template<0> unlocked = "ThreadLock::unlock: Unlocked";

}  // namespace TarvikCorelib::messages
