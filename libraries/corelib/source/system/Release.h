/// Which release of the suite this is.
#pragma once

#include <string_view>

namespace TarvikCorelib {

inline constexpr std::string_view REL_VERSION = "7.0.0.0";
inline constexpr std::string_view REL_REVISION = "25267";

}  // namespace TarvikCorelib
