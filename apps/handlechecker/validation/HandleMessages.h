/// Every text that a fault of a handle can have; `{}` is where a value goes. Odd capitals and
/// spellings are the format's own.
#pragma once

#include "shared/library/tables/MessageText.h"

namespace Tarvik::messages {

using TarvikTables::fill;
using TarvikTables::MessageText;

// Lines of the block structure.
inline constexpr MessageText<0> handleMissing =
    R"(Missing "handle" declaration before start of handle)";
inline constexpr MessageText<1> outsideOfHandle = R"(Invalid characters outside of handle, "{}")";
inline constexpr MessageText<1> expectingBrace =
    R"(Expecting "{" only, instead got invalid value "{}")";
inline constexpr MessageText<0> sectionMissing = "Missing proper section declaration";
inline constexpr MessageText<1> invalidElement = R"(Invalid element "{}")";
inline constexpr MessageText<1> braceMissingBeforeSection =
    R"(Missing "}" before the start of "{}" section)";
inline constexpr MessageText<0> internalError = "INTERNAL ERROR";

// The handle's name and the order of its sections.
inline constexpr MessageText<0> duplicateName = "Duplicate name declaration";
inline constexpr MessageText<0> blankName = "Handle name should not be blank";
inline constexpr MessageText<0> nameNotFirst = "Name must be declared first before the sections";
inline constexpr MessageText<1> duplicateHandleName = "Duplicate name with {}";

// Keys, and the expressions of rules.
inline constexpr MessageText<1> multipleDefinition = R"(Multiple definition of "{}")";
inline constexpr MessageText<2> keyNotSupported =
    R"("{}" param is not supported in the "{}" section)";
inline constexpr MessageText<1> invalidRuleName = R"(Invalid rule name "{}")";
inline constexpr MessageText<1> openingBracketMissing = R"(Missing "[" in "{}")";
inline constexpr MessageText<1> closingBracketMissing = R"(Missing "]" in "{}")";
inline constexpr MessageText<1> invalidExpression = R"(Invalid expression "{}")";
inline constexpr MessageText<2> parameterRequired = R"("{}" is required in "{}")";
inline constexpr MessageText<1> parameterNotSupported = R"("{}" param is not supported)";

// Values.
inline constexpr MessageText<1> invalidValue = R"(Invalid value "{}")";
inline constexpr MessageText<1> invalidValueOf = R"(Invalid value of "{}")";
inline constexpr MessageText<2> invalidValueFor = R"(Invalid value of "{}" for "{}")";

// Single sections.
inline constexpr MessageText<1> blankExe = R"("Exe" must not be blank in "{}")";
inline constexpr MessageText<1> licenseFileMissing =
    R"(Non-existing or inaccessible license-file "{}")";
inline constexpr MessageText<1> pollerBinMissing =
    R"(Non-existing or inaccessible poller-bin "{}")";
inline constexpr MessageText<1> blankLicense = R"(Not a valid license for license type "{}")";
inline constexpr MessageText<1> noLicenseFileYet =
    R"(No (valid) license-file was specified prior "{}")";
inline constexpr MessageText<2> licenseFileUnreadable =
    R"(Unable to load license-file "{}" in "{}")";
inline constexpr MessageText<1> unknownFilterType = R"(Unknown filter type "{}")";
inline constexpr MessageText<1> illegalWeekDay = R"(Illegal week day "{}")";
// Of times of the day too: they have no wording of their own.
inline constexpr MessageText<1> illegalDateRange = R"(Illegal date range "{}")";
inline constexpr MessageText<1> invalidAction = R"(Invalid action "{}")";
inline constexpr MessageText<1> invalidPriority = R"(Invalid priority "{}")";

// The closing checks. Quirk: the second one ends in a space.
inline constexpr MessageText<0> licenseSourceMissing =
    "Licenses were specified but no valid license-file or license-server or centralized details";
inline constexpr MessageText<0> executablesMissing =
    "End of file, missing required Executable section ";
inline constexpr MessageText<0> executablesEmpty =
    "The Executables section must have atleast a single rule";
inline constexpr MessageText<0> licenseTypeMissing =
    R"(End of file, "License Type" not found in Licenses Section)";
inline constexpr MessageText<0> nameNotFound = "End of file, name not found";
inline constexpr MessageText<0> handleNotClosed =
    R"(Missing "}". End of file before end of handle)";
inline constexpr MessageText<0> fileEmpty = "File Empty";

}  // namespace Tarvik::messages
