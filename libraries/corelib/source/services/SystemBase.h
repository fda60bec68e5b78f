/// The agent that knows where the directories of the installation lie.
#pragma once

#include "libraries/corelib/source/messaging/ImsAgent.h"

#include <string>

namespace TarvikCorelib {

class SystemBase : public ImsAgent {
public:
    SystemBase() : ImsAgent("system-base") {}

    /// The configuration directory. Blank if the file registry has none; there is no registry yet.
    static std::string getConfDir();
};

}  // namespace TarvikCorelib
