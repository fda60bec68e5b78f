/// The older helpers for paths.
#pragma once

#include <cstdint>
#include <string>

namespace Tarvik {

/// The part of a file's status that callers need.
struct FileInfoT {
    std::uint64_t size = 0;  ///< Bytes.
};

class FileOps {
public:
    FileOps() = delete;

    /// Returns whether something is at the path: a file, a directory or the target of a link.
    /// Returns false if a permission to look it up is missing.
    ///
    /// Ignores one trailing slash, even behind the name of a file.
    /// Quirk: so "/" is an empty path, which does not exist.
    static bool exists(std::string path);

    /// Returns whether the path has a "?" or a "*". Such a path stands for many files.
    static bool hasWildcard(const std::string& path);

    /// Fills the record. Returns false and leaves it alone if the path cannot be looked up.
    /// Quirk: a path with a wildcard cannot, even if a file of that name exists.
    static bool getFileInfo(const std::string& path, FileInfoT& info);
};

}  // namespace Tarvik
