/// The agent through which a program reads and writes configuration.
#pragma once

#include "libraries/corelib/source/messaging/ImsAgent.h"

#include <cstdint>
#include <list>
#include <string>

namespace TarvikCorelib {

/// There is no configuration service yet: every list is empty, and what is set is not kept.
class ConfAgent : public ImsAgent {
public:
    ConfAgent() : ImsAgent("conf-agent") {}

    /// The values of a key, in order; empty if the key has none. `scope` is for the
    /// store behind the service, which gets it unchanged.
    [[nodiscard]] std::list<std::string> getLocalConfList(const std::string& key,
                                                          std::int32_t scope) const;
    /// Replaces the values of a key in that scope, all at once.
    void setLocalConf(const std::string& key, const std::list<std::string>& values,
                      std::int32_t scope);
};

}  // namespace TarvikCorelib
