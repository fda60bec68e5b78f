/// Directories, read by name.
#pragma once

#include <set>
#include <string>

namespace TarvikCorelib {

class FileTools {
public:
    /// Adds the names, without directory, of the entries of `dir` that match the glob: to `dirs`
    /// those of directories and of links to directories, to `files` all others, broken links too.
    /// Either may be null. A glob's "*" matches a leading dot as well. False, with nothing added,
    /// if `dir` is blank or cannot be read. Throws `std::bad_alloc` where memory was missing for
    /// that.
    static bool readDir(const std::string& dir, const std::string& pattern,
                        std::set<std::string>* files, std::set<std::string>* dirs);
};

}  // namespace TarvikCorelib
