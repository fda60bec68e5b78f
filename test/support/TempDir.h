/// A fresh directory that lives as long as the object.
#pragma once

#include <string>

namespace tarvik_test {

/// The bytes of a file. Throws `std::runtime_error` when it cannot be read.
std::string readFile(const std::string& path);

/// Stands under $TMPDIR, or under /tmp without it. The destructor removes it with all that it
/// holds by then.
class TempDir {
public:
    /// Throws `std::system_error` when there can be none.
    TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    ~TempDir();

    /// Without a trailing slash.
    [[nodiscard]] const std::string& path() const { return directory; }
    /// Writes a file, over an older one too, and answers its full path. Directories in the name are
    /// made. Throws `std::runtime_error` when the bytes do not get there.
    std::string write(const std::string& relativeName, const std::string& bytes) const;
    [[nodiscard]] std::string read(const std::string& relativeName) const {
        return readFile(directory + "/" + relativeName);
    }

private:
    std::string directory;
};

}  // namespace tarvik_test
