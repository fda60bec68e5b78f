/// The older helpers for files as a whole.
#pragma once

#include <cstdint>
#include <string>

namespace Tarvik {

class FileUtils {
public:
    FileUtils() = delete;

    /// Bytes; 0 for a file that cannot be looked up, which is so not told from an empty one.
    static std::uint64_t getFileSize(const std::string& path);
};

}  // namespace Tarvik
