/// The templates of what the file classes throw.
#pragma once

#include "libraries/corelib/source/diagnostics/Template.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace TarvikFilelib::messages {

using TarvikCorelib::Template;

// --- reading and writing

inline constexpr Template<0> readCannotRead =
    "@file.read.cannot-read{Trying to read from file that is not opened for reading};";
inline constexpr Template<0> readEndOfFile =
    "@file.read.end-of-file{Trying to read past end of file};";
inline constexpr Template<1> readFailure = R"(@file.read.failure{Failed to read from file "%"};)";
inline constexpr Template<0> writeCannotWrite =
    "@file.write.cannot-write{Trying to write to file that is not opened for writing};";
inline constexpr Template<1> writeFailure = R"(@file.write.failure{Failed to write to "%"};)";

// --- opening and closing

inline constexpr Template<1> openFileMustExist =
    R"(@file.open.file-must-exist{Trying to open non-existing file "%"};)";
inline constexpr Template<2> openFailure = R"(@file.open.failure{Failed to open "%" (%)};)";
inline constexpr Template<2> openNotSupported =
    R"(@file.open.not-supported{Trying to do a "%" on % - which does not support it};)";
inline constexpr Template<1> closeFailure =
    R"(@file.close.failure{Failed to close open file "%"};)";

// --- what only a closed file allows

inline constexpr Template<2> setNameFileOpen =
    R"(@file.set-name.file-open{Trying to change file name from "%" to "%" while file is open};)";
inline constexpr Template<2> setNameAlreadySet =
    R"(@file.set-name.already-set{Trying to set file name "%" but "%" has already been set};)";
inline constexpr Template<0> setEncodingFileOpen =
    "@file.set-encoding.file-open{Trying to set explicit file encoding after the file has been "
    "opened};";

// --- positions

inline constexpr Template<0> setBytePosFileClosed =
    "@file.set-byte-pos.file-closed{Trying to change file position on file that is not open};";
inline constexpr Template<2> setBytePosFailure =
    "@file.set-byte-pos.failure{Failed to set position = % (%)};";
inline constexpr Template<2> setBytePosNegativeMove =
    "@file.set-byte-pos.negative-move{Failed to set position = % because negative moves are not "
    "supported by %};";

inline constexpr Template<0> outOfMemory = "@out-of-memory{Out of memory};";

/// The second value of `openFailure`: "in, errno=2=No such file or directory".
inline std::string openReason(std::string_view mode, int error) {
    return std::string(mode) + ", errno=" + std::to_string(error) + "=" + std::strerror(error);
}

}  // namespace TarvikFilelib::messages
