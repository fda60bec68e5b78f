#include "libraries/corelib/source/values/StreamBase.h"

namespace TarvikCorelib {

StreamBase& StreamBase::put(ElementDef element) {
    write(element);
    return *this;
}

}  // namespace TarvikCorelib
