/// Templates of what the tools for files and directories throw.
#pragma once

#include "libraries/corelib/source/diagnostics/Template.h"

#include <string_view>

namespace TarvikFilelib::messages {

using TarvikCorelib::Template;

// --- both

inline constexpr Template<2> emptyParameter =
    R"(@file.empty-parameter{Parameter "%" must not be empty (%)};)";
inline constexpr Template<2> accessDenied =
    R"(@file.access-denied{Trying to access "%", but was denied (%)};)";
inline constexpr Template<2> targetExists =
    R"(@file.target-exists{"%" must not exists prior to operation (%)};)";
inline constexpr Template<2> operationAborted =
    "@file.operation-aborted{Operation (%) was aborted (%)};";
inline constexpr Template<1> removeFailed = R"(@file.remove.failed{Failed to remove "%"};)";
inline constexpr Template<3> renameFailed =
    R"(@file.rename.failed{Failed to rename from "%" to "%" (errno=%)};)";
inline constexpr Template<3> copyFailed = R"(@file.copy.failed{Failed to copy "%" to "%" (%)};)";

// --- files

inline constexpr Template<2> noSuchFile =
    R"(@file.no-such-file{Trying to access "%", but no such file (%)};)";
inline constexpr Template<1> fileNotFound =
    "@file.file-not-found{Could not find file \"%\" in any of the searched directories};";
inline constexpr Template<1> ungzipNotGzipFile =
    R"(@file.ungzip.not-gzip-file{Trying to ungzip "%" - which does not have the ".gz" suffix};)";
// Quirk: no "@", so the key is shown.
inline constexpr Template<1> tooManyEnumeratedFiles =
    "file.too-many.enumerated.files{Trying to get next enumeration of \"%\", but there are too "
    "many already};";

// --- reasons, words and questions of copies and moves

inline constexpr std::string_view targetExistsReason = "target exists";
inline constexpr std::string_view tooMuchEnumeration = "too much enumeration";
inline constexpr std::string_view cannotReplaceTemporary = "cannot replace cpytmp files";
inline constexpr std::string_view unknownError = "unknown error";
inline constexpr std::string_view notPlainFile = "not a plain file";
inline constexpr std::string_view fileReadError = "file read error";
inline constexpr std::string_view fileWriteError = "file write error";
inline constexpr std::string_view copyFailedWhenMoving = "copy failed when moving";

inline constexpr std::string_view copyFileWord = "copyfile";
inline constexpr std::string_view moveFileWord = "movefile";

inline constexpr std::string_view overwriteQuestion = "Target exists, overwrite?";
inline constexpr std::string_view fileAnswers = "No|Yes|Enumerate";
inline constexpr std::string_view directoryAnswers = "No|Yes|Enumerate|Merge";
inline constexpr std::string_view abortedOperation = "\"copy\"";
inline constexpr std::string_view abortedBecause = "\"Target exists\"";

}  // namespace TarvikFilelib::messages
