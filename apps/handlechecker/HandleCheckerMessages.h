/// The texts of the tool: what makes a run impossible, the summary, and the explanations that
/// follow the options in the usage text. Those of faults in handles are in `HandleMessages.h`.
#pragma once

#include "shared/library/tables/MessageText.h"

#include <array>

namespace Tarvik::messages {

using TarvikTables::fill;
using TarvikTables::MessageText;

// What makes a run impossible.
inline constexpr MessageText<1> invalidFilePath = R"(Error: Invalid file path: "{}")";
inline constexpr MessageText<0> validationFailed = "Error: File Validation Failed";
inline constexpr MessageText<1> noHandlesInDirectory =
    R"(Error: No configuration files found in source directory: "{}")";
inline constexpr MessageText<1> fileNotCreated = "Error: Failed to create file {}";

// The summary. The blanks at the ends of its headings belong to them.
inline constexpr MessageText<0> validHandles = "Valid Handles: \n";
inline constexpr MessageText<0> invalidHandles = "Invalid Handles: \n";
inline constexpr MessageText<0> filesCreated = "Files Created: \n";
inline constexpr MessageText<1> listedPath = "\t{}\n";
inline constexpr MessageText<1> oneErrorFound = "\t{} - 1 error found\n";
inline constexpr MessageText<2> errorsFound = "\t{} - {} errors found\n";

// Logged.
inline constexpr const char* constructing = "Constructing application";
inline constexpr const char* ending = "Ending run";

// Quirk: the example of --handle-dir repeats that of --dir, option included.
inline constexpr auto usageLines = std::to_array<const char*>({
    R"(--file <args>)",
    R"(  - Accepts single argument. Path of the handle file.)",
    R"(  - E.g. --file C:\Program Files\Tarvik\Client\Configuration\usagewarden\tasks\sample_handle.conf)",
    R"(--dir <args>)",
    R"(  - Accepts single argument. Directory where handle files are stored to be validated)",
    R"(  - E.g. --dir C:\Program Files\Tarvik\Client\Configuration\usagewarden\tasks)",
    R"(--handle-dir <args>)",
    R"(  - Accepts single argument. Directory where handle files are stored to be checked for duplicate name)",
    R"(  - E.g. --dir C:\Program Files\Tarvik\Client\Configuration\usagewarden\tasks)",
    R"(--save-output)",
    R"(  - Used for saving a .json output file. The .json file will be saved in the same directory of the handle file)",
    R"(  - If not defined, the result will be shown in the console)",
    R"(--enable-file-checking)",
    R"(  - If defined, it will validate if the files stated in the handle configuration exists)",
});

}  // namespace Tarvik::messages
