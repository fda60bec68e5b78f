/// How a file is opened, and what may then be done with it.
#pragma once

#include "libraries/corelib/source/system/FileNames.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace TarvikFilelib {

/// The bits of `getState`.
enum FileState : std::int32_t {
    FileClosed = 0,
    FileOpen = 1,
    FileReadable = 2,
    FileWritable = 4,
    FileAppending = 8,
};

struct FileMode {
    const char* stdio;      ///< For `fopen64`; the descriptor is closed on exec.
    std::string_view word;  ///< In the text of a failure.
    std::int32_t state;
};

inline constexpr FileMode modeIn{"rbe", "in", FileOpen | FileReadable};
inline constexpr FileMode modeOut{"wbe", "out", FileOpen | FileWritable};
inline constexpr FileMode modeAppend{"abe", "append", FileOpen | FileAppending};
inline constexpr auto readWriteModes = std::to_array<FileMode>({
    {"r+be", "read-write", FileOpen | FileReadable | FileWritable},
    {"w+be", "read-write", FileOpen | FileReadable | FileWritable},
    {"a+be", "read-write", FileOpen | FileReadable | FileAppending},
});

/// The mode of a `FileBase::ReadWriteOption`. What is none opens nothing.
constexpr FileMode readWriteMode(std::int32_t option) {
    const bool exists = option >= 0 && std::cmp_less(option, readWriteModes.size());
    return exists ? readWriteModes[static_cast<std::size_t>(option)]
                  : FileMode{nullptr, "read-write", FileClosed};
}

/// Opens by `open(name, mode)`; null is a failure, with the reason in `errno`. A name with a NUL is
/// that of no file: the system would take its beginning for the name.
template <class Stream>
Stream* openByName(const std::string& name, const FileMode& mode,
                   Stream* (*open)(const char* name, const char* mode)) {
    errno = EINVAL;
    if (mode.stdio == nullptr) return nullptr;
    const std::string place = TarvikCorelib::systemName(name);
    Stream* opened = nullptr;
    do
        opened = open(place.c_str(), mode.stdio);
    while (opened == nullptr && errno == EINTR);  // While waiting for a pipe's other end.
    return opened;
}

}  // namespace TarvikFilelib
