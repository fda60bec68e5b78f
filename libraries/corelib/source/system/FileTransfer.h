/// Files and directories to other places.
#pragma once

#include "libraries/corelib/source/system/FileTarget.h"
#include "libraries/corelib/source/text/StringToolsCharacters.h"

namespace TarvikCorelib {

/// The part of `FileTools` that copies and moves, for one kind of character.
///
/// The target is the new name itself, never a directory to put it in. `flags` is a `CopyFlag`, for
/// directories one with `CopyMerge` added or not. Content alone is copied: no times, permissions or
/// owners. A failure is false and leaves source and target as they were, but for a merge, and for a
/// move by a copy if the source cannot be removed at the end. Onto itself, under the same name of
/// the same directory: 0 fails, 3 takes a new name, and else nothing changes and all is well.
template <class Char>
class FileTransfer {
    using Text = StringTools::Text<Char>;

public:
    /// Copies a plain file, or the one that a link leads to. A target that is a link is replaced
    /// itself.
    static bool copy(const Text& source, const Text& target, int flags);
    /// Moves anything but a directory, a link as it is. A move that is skipped leaves the source.
    /// To another file system only a plain file is moved, by a copy with its permissions.
    static bool move(const Text& source, const Text& target, int flags);
    /// Copies all that is in a directory, links as links; false for other things than files,
    /// directories and links. A target within the source is left out of the copy.
    static bool copyDir(const Text& source, const Text& target, int flags);
    /// Moves a directory, no link to one. By a copy to another file system, and to merge it; the
    /// source goes only if all of it was copied, so with `CopySkipExisting` it stays.
    static bool moveDir(const Text& source, const Text& target, int flags);
};

extern template class FileTransfer<char>;
extern template class FileTransfer<wchar_t>;

}  // namespace TarvikCorelib
