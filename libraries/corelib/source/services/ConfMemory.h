/// How the configuration agent allocates what it sends.
#pragma once

#include "libraries/corelib/source/diagnostics/DiagnosticsMessages.h"
#include "libraries/corelib/source/diagnostics/SourceText.h"

#include <memory>
#include <new>

namespace TarvikCorelib {

/// A parameter on the heap. Missing memory becomes an exception of the caller's family.
template <class Failure, class Param, class... Arguments>
std::unique_ptr<Param> allocate(const Arguments&... arguments) {
    try {
        return std::make_unique<Param>(arguments...);
    } catch (const std::bad_alloc&) {
        throw Failure(messages::outOfMemory, here());
    }
}

}  // namespace TarvikCorelib
