/// The agent that knows the directories of the installation.
#pragma once

#include "libraries/corelib/source/messaging/ImsAgent.h"

#include <string>

namespace TarvikCorelib {

class SystemBase : public ImsAgent {
public:
    SystemBase() : ImsAgent("system-base") {}

    /// The configuration directory. Empty if the file registry has none; there is no registry yet,
    /// so it is always empty.
    static std::string getConfDir();
};

}  // namespace TarvikCorelib
