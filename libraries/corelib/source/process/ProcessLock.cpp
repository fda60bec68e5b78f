#include "libraries/corelib/source/process/ProcessLock.h"

namespace TarvikCorelib {

bool ProcessLock::unlock() {
    return false;
}

}  // namespace TarvikCorelib
