/// A message between the parts of a process.
#pragma once

#include <string>

namespace TarvikCorelib {

/// Three words classify a message, from the most general to the most specific, so that an agent can
/// select messages by any of them.
struct ImsMessage {
    std::string generalType;
    std::string groupType;
    std::string messageType;
};

}  // namespace TarvikCorelib
