/// The older helpers for whole files.
#pragma once

#include <cstdint>
#include <string>

namespace Tarvik {

class FileUtils {
public:
    FileUtils() = delete;

    /// Bytes. A file that cannot be looked up has 0, like an empty one; `FileOps::exists` tells
    /// them apart.
    static std::uint64_t getFileSize(const std::string& path);
};

}  // namespace Tarvik
