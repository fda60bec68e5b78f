/// The agent through which a program reads and writes configuration.
#pragma once

#include "libraries/corelib/source/messaging/ImsAgent.h"

#include <cstdint>
#include <list>
#include <string>

namespace TarvikCorelib {

/// No service answers it yet: lists are empty and are not kept.
class ConfAgent : public ImsAgent {
public:
    ConfAgent() : ImsAgent("conf-agent") {}

    [[nodiscard]] std::list<std::string> getLocalConfList(const std::string& key,
                                                          std::int32_t scope) const;
    void setLocalConf(const std::string& key, const std::list<std::string>& values,
                      std::int32_t scope);
};

}  // namespace TarvikCorelib
