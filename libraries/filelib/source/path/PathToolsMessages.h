/// The templates of what the path tools throw.
#pragma once

#include "libraries/corelib/source/diagnostics/Template.h"

namespace TarvikFilelib::messages {

inline constexpr TarvikCorelib::Template<1> contractInvalidPath =
    R"(@path-tools.contract.invalid-path{Trying to contract "%" - which is an invalid path};)";

}  // namespace TarvikFilelib::messages
