/// Names in a directory.
#pragma once

#include <set>
#include <string>

namespace TarvikCorelib {

/// Reads directories. No state; safe to use from several threads.
class FileTools {
public:
    /// Adds the names of the entries of `dir` that match the glob `pattern`, without the directory
    /// and in byte order: to `dirs` those of directories and of links to directories, to `files`
    /// all others, broken links too. Subdirectories are not entered, "." and ".." are left out.
    /// Either set may be null.
    ///
    /// In the glob, "*" matches a leading dot as well, and a backslash stands for itself. False,
    /// with nothing added, if `dir` is blank, no directory, or cannot be read. Throws
    /// `std::bad_alloc` if memory was missing to read it.
    static bool readDir(const std::string& dir, const std::string& pattern,
                        std::set<std::string>* files, std::set<std::string>* dirs);
};

}  // namespace TarvikCorelib
