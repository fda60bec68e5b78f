#include "libraries/corelib/source/services/ConfAgent.h"

namespace TarvikCorelib {

std::list<std::string> ConfAgent::getLocalConfList(const std::string& /*key*/,
                                                   std::int32_t /*scope*/) const {
    return {};
}

void ConfAgent::setLocalConf(const std::string& /*key*/, const std::list<std::string>& /*values*/,
                             std::int32_t /*scope*/) {}

}  // namespace TarvikCorelib
