/// Templates of what the tools for directories throw, beside those of `DirectoryMessages.h`.
#pragma once

#include "libraries/corelib/source/diagnostics/Template.h"

#include <string_view>

namespace TarvikFilelib::messages {

inline constexpr TarvikCorelib::Template<2> noSuchDir =
    R"(@file.no-such-dir{Trying to access "%", but no such dir (%)};)";
inline constexpr TarvikCorelib::Template<2> readDirFailed =
    R"(@file.read-dir.failed{Failed to read directory "%" (%)};)";
inline constexpr TarvikCorelib::Template<2> clearFailed =
    R"(@file.clear.failed{Failed to clear directory "%" (% files/sub-dirs failed)};)";
inline constexpr TarvikCorelib::Template<2> removeDirNotEmpty =
    R"(@file.remove.dir-not-empty{Cannot remove directory "%" because it is not empty (%)};)";
inline constexpr TarvikCorelib::Template<2> createDirFailed =
    R"(@file.create-dir.failed{Failed to create directory "%" (%)};)";
inline constexpr TarvikCorelib::Template<2> ensureParentInvalidPath =
    "@file.ensure-parent.invalid-path{Trying to ensure existence of directory \"%\", but the path "
    "is invalid (%)};";
inline constexpr TarvikCorelib::Template<1> scanFailed =
    R"(@file.scan.failed{Failed to scan directory "%"};)";

// --- reasons and words of copies and moves

inline constexpr std::string_view isNotDir = "is not dir";
inline constexpr std::string_view errorNumber = "errno#";
inline constexpr std::string_view filesFailed = " files/sub-dirs failed";

inline constexpr const char* copyDirWord = "copydir";
inline constexpr const char* moveDirWord = "movedir";
inline constexpr const char* scanDirWord = "scandir";
inline constexpr const char* copyTreeWord = "copytree";
inline constexpr const char* copyDirFailedReason = "copy failed";
inline constexpr const char* scanFailedReason = "scan failed";
inline constexpr const char* moveFailedReason = "move failed";

}  // namespace TarvikFilelib::messages
