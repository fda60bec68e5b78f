/// Every text that a fault of a handle can have; `{}` is where a value goes. Odd capitals and
/// spellings are the format's own.
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

// Keys, and the expressions of rules.
inline constexpr std::string_view multipleDefinition = R"(Multiple definition of "{}")";
inline constexpr std::string_view keyNotSupported =
    R"("{}" param is not supported in the "{}" section)";
inline constexpr std::string_view invalidRuleName = R"(Invalid rule name "{}")";
inline constexpr std::string_view openingBracketMissing = R"(Missing "[" in "{}")";
inline constexpr std::string_view closingBracketMissing = R"(Missing "]" in "{}")";
inline constexpr std::string_view invalidExpression = R"(Invalid expression "{}")";
inline constexpr std::string_view parameterRequired = R"("{}" is required in "{}")";
inline constexpr std::string_view parameterNotSupported = R"("{}" param is not supported)";

// Values.
inline constexpr std::string_view invalidValue = R"(Invalid value "{}")";
inline constexpr std::string_view invalidValueOf = R"(Invalid value of "{}")";
inline constexpr std::string_view invalidValueFor = R"(Invalid value of "{}" for "{}")";

// Single sections.
inline constexpr std::string_view blankExe = R"("Exe" must not be blank in "{}")";
inline constexpr std::string_view licenseFileMissing =
    R"(Non-existing or inaccessible license-file "{}")";
inline constexpr std::string_view pollerBinMissing =
    R"(Non-existing or inaccessible poller-bin "{}")";
inline constexpr std::string_view blankLicense = R"(Not a valid license for license type "{}")";
inline constexpr std::string_view noLicenseFileYet =
    R"(No (valid) license-file was specified prior "{}")";
inline constexpr std::string_view licenseFileUnreadable =
    R"(Unable to load license-file "{}" in "{}")";
inline constexpr std::string_view unknownFilterType = R"(Unknown filter type "{}")";
inline constexpr std::string_view illegalWeekDay = R"(Illegal week day "{}")";
// Of times of the day too: they have no wording of their own.
inline constexpr std::string_view illegalDateRange = R"(Illegal date range "{}")";
inline constexpr std::string_view invalidAction = R"(Invalid action "{}")";
inline constexpr std::string_view invalidPriority = R"(Invalid priority "{}")";

// The closing checks. The second of them ends in a blank, which belongs to it.
inline constexpr std::string_view licenseSourceMissing =
    "Licenses were specified but no valid license-file or license-server or centralized details";
inline constexpr std::string_view executablesMissing =
    "End of file, missing required Executable section ";
inline constexpr std::string_view executablesEmpty =
    "The Executables section must have atleast a single rule";
inline constexpr std::string_view licenseTypeMissing =
    R"(End of file, "License Type" not found in Licenses Section)";
inline constexpr std::string_view nameNotFound = "End of file, name not found";
inline constexpr std::string_view handleNotClosed =
    R"(Missing "}". End of file before end of handle)";
inline constexpr std::string_view fileEmpty = "File Empty";

}  // namespace Tarvik::messages
