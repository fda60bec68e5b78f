/// Files by their name or by what is in them.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <set>
#include <string>
#include <vector>

namespace TarvikCorelib {

/// The part of `FileTools` that searches, for one kind of character. What is searched below a
/// directory is listed first, all names at once, and files are read whole, one at a time.
template <class Char>
class FileSearch {
    using Text = StringTools::Text<Char>;

public:
    /// The path of the first directory's entry of that name: of the directories given, or of those
    /// in the environment's PATH. `findExe` takes only plain files that this process may execute.
    /// An empty directory is the current one. A name with "/" in it is not searched but stands for
    /// itself. Empty if there is none.
    static Text find(const Text& name, const std::vector<Text>& dirs);
    static Text findPath(const Text& name);
    static Text findExe(const Text& name);

    /// The paths from `dir` on of all that is below it and has that name, or a name that matches
    /// the glob. Links are not followed. Empty also if any of it cannot be read.
    static std::set<Text> findName(const Text& dir, const Text& name);
    static std::set<Text> findNameGlob(const Text& dir, const Text& glob);
    /// The same for the plain files whose content has that text, or a match of the glob, somewhere
    /// in it. Files that cannot be read are left out.
    static std::set<Text> findContents(const Text& dir, const Text& text);
    static std::set<Text> findContentsGlob(const Text& dir, const Text& glob);
};

extern template class FileSearch<char>;
extern template class FileSearch<wchar_t>;

}  // namespace TarvikCorelib
