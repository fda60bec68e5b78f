/// The older helpers for paths: is something there?
#pragma once

#include <cstdint>
#include <string>

namespace Tarvik {

struct FileInfoT {
    std::uint64_t size = 0;  ///< Bytes.
};

class FileOps {
public:
    FileOps() = delete;

    /// False for a blank path. One trailing slash is ignored, so "/" itself is blank; directories
    /// count, and a link counts as what it leads to. What cannot be reached for want of a
    /// permission is not there.
    static bool exists(std::string path);

    /// False, with the record unchanged, for a path that cannot be looked up, and for every path
    /// that holds a "?" or a "*", whatever lies on the disk.
    static bool getFileInfo(const std::string& path, FileInfoT& info);
};

}  // namespace Tarvik
