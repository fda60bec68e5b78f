/// A fresh directory that lives as long as the object.
#pragma once

#include <string>

namespace tarvik_test {

/// The bytes of a file. Throws `std::runtime_error` if it cannot be read.
std::string readFile(const std::string& path);

/// In the directory for temporary files, which $TMPDIR sets. The destructor removes it with all its
/// contents.
class TempDir {
public:
    /// Throws `std::system_error` if it cannot be made.
    TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    ~TempDir();

    /// Without a trailing slash.
    [[nodiscard]] const std::string& path() const { return directory; }
    /// Writes a file, replacing an older one, and returns its full path. Makes the directories in
    /// the name. Throws `std::runtime_error` if the bytes cannot be written.
    std::string write(const std::string& relativeName, const std::string& bytes) const;
    [[nodiscard]] std::string read(const std::string& relativeName) const {
        return readFile(directory + "/" + relativeName);
    }

private:
    std::string directory;
};

}  // namespace tarvik_test
