#include "libraries/corelib/source/services/SystemBase.h"

namespace TarvikCorelib {

std::string SystemBase::getConfDir() {
    return {};
}

}  // namespace TarvikCorelib
