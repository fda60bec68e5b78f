/// Directories and what is in them.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <cstdint>
#include <set>
#include <string>

namespace TarvikCorelib {

/// The part of `FileTools` on directories, for one kind of character. A `bool` is false for
/// whatever could not be found out or done.
template <class Char>
class FileDirectories {
    using Text = StringTools::Text<Char>;
    using Names = std::set<Text>;

public:
    /// Adds the names of the entries of `dir` that match the glob `pattern`, without the directory
    /// and in byte order: to `dirs` those of directories and of links to directories, to `files`
    /// all others, broken links too. Subdirectories are not entered, "." and ".." are left out.
    /// Either set may be null.
    ///
    /// The glob is one of `GlobMatcher`; its "*" matches a leading dot as well. False, with nothing
    /// added, if `dir` is blank, no directory, or cannot be read. Throws `std::bad_alloc` if memory
    /// was missing to read it.
    static bool readDir(const Text& dir, const Text& pattern, Names* files, Names* dirs);
    /// One of the two sets; empty if the directory cannot be read.
    static Names getFiles(const Text& dir, const Text& pattern);
    static Names getSubDirs(const Text& dir, const Text& pattern);
    /// How many entries match; -1 if the directory cannot be read.
    static std::int64_t count(const Text& dir, const Text& pattern);
    /// Adds all that is below `dir`, as paths from there on. Links are not followed: they are among
    /// the files. False, with nothing added, if any of it cannot be read. Either set may be null.
    static bool getDirTree(const Text& dir, Names* files, Names* dirs);
    /// Whether the same names are below both, with the same content. Links are equal by their text;
    /// other things than files, directories and links never are.
    static bool compareDirs(const Text& first, const Text& second);

    /// False if the name is taken, or if its parent is missing.
    static bool makeDir(const Text& path);
    /// Makes the directory and the missing ones above it. True if it is one, or a link to one, now.
    static bool ensurePath(const Text& path);
    /// Removes anything but a directory. A link goes, and not what it leads to.
    static bool remove(const Text& path);
    /// Removes a directory, no link to one: with `recursive` all that is in it as well. A failure
    /// leaves what could not be removed, and the rest goes.
    static bool removeDir(const Text& path, bool recursive);
    /// Removes all that is in a directory, in the same way. A link to one is left alone.
    static bool clearDir(const Text& path);
};

extern template class FileDirectories<char>;
extern template class FileDirectories<wchar_t>;

}  // namespace TarvikCorelib
