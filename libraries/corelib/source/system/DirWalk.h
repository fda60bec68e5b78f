/// Walks, removes and copies directory trees without ever leaving them.
#pragma once

#include "libraries/corelib/source/system/Descriptor.h"
#include "libraries/corelib/source/system/FileReplacement.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace TarvikCorelib {

/// Nothing here throws but exhausted memory: functions answer 0 or the number of the system's
/// error, and walks count what failed and go on.
///
/// Every step goes from an open directory to a single name in it, and no step follows a link, so a
/// link that is planted in a tree, even in the middle of a walk, leads nowhere. Trees may be of any
/// depth, beyond the longest path too: a walk keeps a handful of descriptors and, for each level,
/// the names that are still to come.

/// What an entry is itself, links not followed. `Other` is a pipe, a socket or a device.
enum class EntryKind : char { File = 'f', Directory = 'd', Link = 'l', Other = 'o' };

/// By the name itself; ENOENT and others from the system.
int kindOf(int dir, const char* name, EntryKind& kind);

/// The last element of a path and the directory that holds it. Links in the directory's own path
/// are followed: that is the caller's choice of a place.
struct DirPlace {
    Descriptor dir;    ///< Good for the calls that end with "at", not for reading.
    std::string name;  ///< Slashes at its end are dropped.
};
/// ENOENT for an empty path, and for one with a NUL. EINVAL for what has no name to work on: ".",
/// ".." and "/".
int openPlace(const std::string& path, DirPlace& place);

/// Opens a directory for reading. Not open, with `errno` set, if there is none of that name:
/// ENOTDIR for a link. With `widen`, one that its owner may not read is made readable to him first.
Descriptor openDir(int parent, const char* name, bool widen = false);

/// Calls `take` with each entry but "." and "..", in the order of the file system. The names are
/// read first, so `take` may remove entries. It must not keep the pointer.
using TakeEntry = std::function<void(const char* name, EntryKind kind)>;
int listDir(int dir, const TakeEntry& take);

/// What did not work out.
struct WalkFailures {
    std::size_t count = 0;
    int error = 0;  ///< Of the first one.

    /// An error of 0 is none.
    void add(int failure) {
        if (failure == 0) return;
        ++count;
        if (error == 0) error = failure;
    }
};

/// The way from a first directory down to the current one.
///
/// Only the last levels are kept open. The way back to another one is "..", and it counts only if
/// that is still the directory that the way down came through.
class DirChain {
public:
    /// With `widen`, directories are made readable and writable to their owner as they are entered.
    explicit DirChain(Descriptor first, bool widen = false);

    /// The current directory. It stays owned here, and open until it is left.
    int get() const { return levels.back().dir.get(); }
    const FileIdentity& getIdentity() const { return levels.back().identity; }
    int enter(const char* name);
    /// Goes back by one level; not from the first one. ESTALE if the current directory has been
    /// moved elsewhere. After a failure there is no current directory any more.
    int leave();

private:
    struct Level {
        Descriptor dir;
        FileIdentity identity;
    };
    static constexpr std::size_t KeptOpen = 8;

    int push(Descriptor dir);

    std::vector<Level> levels;
    bool widen;
};

/// A walk through all entries below a directory:
///
///     while (walk.next())
///         if (walk.isLeaving()) ...                // all below the directory at hand is done
///         else if (walk.kind() == EntryKind::Directory) walk.enter();
///         else ...
///
/// A directory is read when it is entered, and one that is not entered is passed by.
class TreeWalk {
public:
    /// Reads the first directory; see `error`. `widen` as for `DirChain`.
    explicit TreeWalk(Descriptor first, bool widen = false);

    /// Moves on to the next entry. False at the end.
    bool next();
    /// Goes into the directory at hand: its entries come next, and then itself, to be left. On
    /// failure it stays at hand.
    int enter();

    /// The entry at hand: its directory (itself, when it was just entered), its name, and what it
    /// was when its directory was read.
    int dir() const { return chain.get(); }
    const char* name() const { return pending.data() + top + 1; }
    EntryKind kind() const { return static_cast<EntryKind>(pending[top]); }
    bool isLeaving() const { return leaving; }
    /// From the first directory on, with "/" between the names. For messages: it costs time, and is
    /// not for a directory that was just entered.
    std::string path() const;

    /// Why the walk ended early: the first directory could not be read, or the way back was lost.
    int error() const { return lastError; }

private:
    int list();

    DirChain chain;
    // All names yet to come, the next one last: its kind, the name, a NUL. A directory that was
    // entered stays until it is left, ahead of the names in it.
    std::string pending;
    std::vector<std::size_t> begins;  // Of each level's names in `pending`.
    std::size_t top = 0;              // Of the entry at hand.
    bool leaving = false;
    bool entered = true;  // The entry at hand stays in `pending`.
    int lastError = 0;
};

/// Remove all that is in the directory, or an entry of it with all that is below: a link goes, and
/// not what it points to. Counted is what could not be removed, without the directories that are
/// left only because of it. What has gone by itself is no failure. `widen` as for `DirChain`.
///
/// Removes whatever is at a path, links not followed:
///
///     DirPlace place;
///     int error = openPlace(path, place);
///     if (error == 0) error = removeTree(place.dir.get(), place.name.c_str(), false).error;
WalkFailures removeContents(Descriptor dir, bool widen);
WalkFailures removeTree(int parent, const char* name, bool widen);

/// Renames an entry to a name that is not there, else EEXIST.
int renameToNewPlace(const DirPlace& from, const DirPlace& to);
/// Renames an entry over what is there; what was there is removed with all that is below. At any
/// moment there is the old or the new, if the file system can let two entries change places.
/// `left` is empty, or, if something could not be removed, the place of it and no other failure.
int takePlace(const DirPlace& from, const DirPlace& to, std::string& left);

/// Copies trees: files by their content alone, links as links, directories with what is in them. No
/// times, no owners and no permissions are carried over. Pipes, sockets and devices fail (ENOTSUP),
/// and so does what is named as the temporary of an earlier copy that did not end ("x.cpytmp"); the
/// rest is copied.
///
/// What to do with targets that exist is settled by the flags, see `CopyFlag`: to skip them, to
/// replace them, by way of a temporary name, to use a numbered name instead, and any of these or 0
/// with `CopyMerge` added to copy into a directory that exists; else EEXIST. Derived classes may
/// settle it in their own way, and may throw to end the copy.
class TreeCopy {
public:
    static constexpr std::size_t UsualBlockSize = 64U << 10U;

    explicit TreeCopy(int flags, std::size_t blockSize = UsualBlockSize)
        : flags(flags), block(blockSize) {}
    TreeCopy(const TreeCopy&) = delete;
    TreeCopy& operator=(const TreeCopy&) = delete;
    virtual ~TreeCopy() = default;

    /// Copies what is in one directory into another. Where the target lies within the source it is
    /// left out, so the copy ends.
    WalkFailures copy(Descriptor source, Descriptor target);

protected:
    /// The name to write to instead of `name`, which may be the same. One that ends with ".cpytmp"
    /// is temporary: an older one is removed first, and `finish` is called when it is complete.
    /// Empty to skip the entry.
    virtual int settleName(int dir, EntryKind kind, const std::string& name, std::string& written);
    /// Copies a plain file, all steps of it.
    virtual int copyFile(int from, const char* name, int toDir);
    /// Called for each block of a file.
    virtual void blockDone() {}
    /// Gives a file, link or directory that is complete its name.
    virtual int finish(int dir, const std::string& written, const std::string& name);
    /// Called for each entry, with 0 or the reason of the failure. A directory is done when it has
    /// been left, or if it was not entered.
    virtual void done(const TreeWalk& /*walk*/, int /*error*/) {}

private:
    struct Entered {
        std::string written;
        std::size_t failuresBefore;
    };

    void copyAll(TreeWalk& walk);
    void giveUp(const TreeWalk& walk);
    int copyEntry(TreeWalk& walk);
    int copyData(int source, int target);
    int copyLink(int from, const char* name);
    int enter(TreeWalk& walk);
    int leave(const TreeWalk& walk);
    int makeAndFinish(int dir, EntryKind kind, const char* name,
                      const std::function<int(const char* written)>& make);

    int flags;
    std::vector<char> block;  // Of the file that is being copied.
    DirChain* to = nullptr;   // While `copy` runs.
    FileIdentity top;         // Of the first target directory.
    std::vector<Entered> entered;
    WalkFailures failures;
};

}  // namespace TarvikCorelib
