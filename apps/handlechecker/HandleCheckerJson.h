/// The faults of one handle as JSON text.
#pragma once

#include "apps/handlechecker/validation/HandleValidator.h"

#include <string>
#include <vector>

namespace Tarvik {

/// The text of a handle with at least one fault, laid out as by the library's `StyledWriter`.
std::string jsonText(const std::vector<HandleValidator::Error>& errors);
/// The same with the path of the handle, one level deeper.
std::string jsonText(const std::vector<HandleValidator::Error>& errors, const std::string& path);

}  // namespace Tarvik
