/// What message systems and agents log, and the templates of what they throw.
#pragma once

#include "libraries/corelib/source/diagnostics/Template.h"

#include <cstdint>
#include <string_view>

namespace TarvikCorelib::messages {

// --- failures of a message system, with their fixed places

inline constexpr std::string_view imsFile = "libraries/corelib/source/Ims";
inline constexpr Template<0> hookDuplicate =
    "@ims.hook.duplicate{Trying to set a hook identical to a hook already set};";
inline constexpr std::uint32_t hookDuplicateLine = 332;
inline constexpr std::uint32_t outOfMemoryLine = 443;

// --- traces of an agent
// Quirk: some have "%s"; the value goes in at the "%", and the "s" stays.

inline constexpr Template<1> send = "ImsAgent::sendMessage:\n%";
inline constexpr Template<2> sendTo = "ImsAgent::sendMessage: To \"%\":\n%";
inline constexpr Template<4> sendThroughEms =
    "ImsAgent::sendMessageThroughEMS: To \"%s@%s\", from \"%\"\n%s";
// Quirk: all four name the operation with the delay.
inline constexpr Template<2> queueDelay = "ImsAgent::queueMessageDelay: Delay % milliseconds\n%";
inline constexpr Template<3> queueDelayTo =
    "ImsAgent::queueMessageDelay: To \"%\", delay % milliseconds\n%";
inline constexpr Template<2> queueAt = "ImsAgent::queueMessageDelay: Send at %\n%";
inline constexpr Template<3> queueAtTo = "ImsAgent::queueMessageDelay: To \"%\", send at %\n%";
inline constexpr Template<4> setHook =
    "ImsAgent::setMessageHook: Setting hook:"
    "\n\tHook only once   : %\n\tGeneral type glob: %\n\tGroup type glob  : %"
    "\n\tMessage type glob: %";
inline constexpr Template<4> setHookOn =
    "ImsAgent::setMessageHook: Setting hook for specific IMS system:"
    "\n\tHook only once   : %s\n\tGeneral type glob: %\n\tGroup type glob  : %"
    "\n\tMessage type glob: %";
inline constexpr Template<5> setHookFrom =
    "ImsAgent::setMessageHook: Setting hook:"
    "\n\tHook from source : %"
    "\n\tHook only once   : %\n\tGeneral type glob: %\n\tGroup type glob  : %"
    "\n\tMessage type glob: %";
inline constexpr Template<5> setHookOnFrom =
    "ImsAgent::setMessageHook: Setting hook for specific IMS system:"
    "\n\tHook from source : %"
    "\n\tHook only once   : %s\n\tGeneral type glob: %\n\tGroup type glob  : %"
    "\n\tMessage type glob: %";
inline constexpr Template<1> removeHook = "ImsAgent::removeMessageHook: Removing hook %";
inline constexpr Template<1> removeHookOn =
    "ImsAgent::removeMessageHook: Removing hook % from specific IMS system";

}  // namespace TarvikCorelib::messages
