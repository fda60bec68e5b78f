/// Every text that a fault of a handle can have; `{}` is where a value goes.
#pragma once

#include "shared/library/tables/MessageText.h"

#include <string_view>

namespace Tarvik::messages {

using TarvikTables::fill;

// Lines of the block structure.
inline constexpr std::string_view handleMissing =
    R"(Missing "handle" declaration before start of handle)";
inline constexpr std::string_view outsideOfHandle = R"(Invalid characters outside of handle, "{}")";
inline constexpr std::string_view expectingBrace =
    R"(Expecting "{" only, instead got invalid value "{}")";
inline constexpr std::string_view sectionMissing = "Missing proper section declaration";
inline constexpr std::string_view invalidElement = R"(Invalid element "{}")";
inline constexpr std::string_view braceMissingBeforeSection =
    R"(Missing "}" before the start of "{}" section)";
inline constexpr std::string_view internalError = "INTERNAL ERROR";

// The handle's name and the order of its sections.
inline constexpr std::string_view duplicateName = "Duplicate name declaration";
inline constexpr std::string_view blankName = "Handle name should not be blank";
inline constexpr std::string_view nameNotFirst = "Name must be declared first before the sections";
inline constexpr std::string_view duplicateHandleName = "Duplicate name with {}";
inline constexpr std::string_view multipleDefinition = R"(Multiple definition of "{}")";

// The closing checks. The first of them ends in a blank, which belongs to it.
inline constexpr std::string_view executablesMissing =
    "End of file, missing required Executable section ";
inline constexpr std::string_view nameNotFound = "End of file, name not found";
inline constexpr std::string_view handleNotClosed =
    R"(Missing "}". End of file before end of handle)";
inline constexpr std::string_view fileEmpty = "File Empty";

}  // namespace Tarvik::messages
