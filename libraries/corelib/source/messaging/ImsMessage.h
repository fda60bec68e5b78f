/// A message between the parts of a process.
#pragma once

#include <string>

namespace TarvikCorelib {

/// Sorted by three words, from the widest to the narrowest.
struct ImsMessage {
    std::string generalType;
    std::string groupType;
    std::string messageType;
};

}  // namespace TarvikCorelib
