/// What is known of a file, and the changing of it.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"
#include "libraries/corelib/source/time/DateTime.h"

#include <cstdint>
#include <set>
#include <string>

namespace TarvikCorelib {

/// The steps of `processPath`, in the order in which they are taken.
enum ProcessFlag : std::int32_t {
    ProcessClean = 1,
    ProcessContract = 2,
    ProcessExpand = 4,
    ProcessTrace = 8,
};

/// The part of `FileTools` on single files as they lie on disk, for one kind of character. A `bool`
/// is false for whatever could not be found out or done. All but `isLink` and `exists` follow
/// links.
template <class Char>
class FileProperties {
    using Text = StringTools::Text<Char>;

public:
    static bool isLink(const Text& path);
    /// A symbolic link that holds the text `target`. False if something is at `path`.
    static bool createLink(const Text& target, const Text& path);
    /// A plain file, a directory.
    static bool isFile(const Text& path);
    static bool isDir(const Text& path);
    /// Whether the name is taken; that of a link to nothing is.
    static bool exists(const Text& path);
    /// Bytes; -1 if the path cannot be looked up.
    static std::int64_t size(const Text& path);

    /// Whether this process may do all of it: 4 read, 2 write, 1 execute or enter.
    static bool isAllowed(const Text& path, int permissions);
    /// Sets the nine bits for owner, group and others, such as 0644; other bits of the mode stay.
    static bool setPermissions(const Text& path, unsigned permissions);
    /// Whether all of these bits of the mode are set, 07777 at most; adds them.
    static bool checkStatus(const Text& path, unsigned status);
    static bool setStatus(const Text& path, unsigned status);

    /// GMT, count 0 if it is not known. Some file systems do not keep the time of creation.
    static DateTime firstCreated(const Text& path);
    static DateTime lastAccessed(const Text& path);
    static DateTime lastModified(const Text& path);
    /// Always false: the system lets nobody change that time.
    static bool setFirstCreated(const Text& path, const DateTime& time);
    static bool setLastAccessed(const Text& path, const DateTime& time);
    static bool setLastModified(const Text& path, const DateTime& time);
    /// Sets both times to the present, or makes the file.
    static bool touch(const Text& path);
    /// An empty file, open to all that the process's mask allows. False if the name is taken.
    static bool createFile(const Text& path);

    /// Bytes free to this process on the file system of the path; -1 if it cannot be looked up.
    static std::int64_t freeSpace(const Text& path);
    /// The mount points of the file systems of this process. Empty if they cannot be read.
    static std::set<Text> getFileSystems();
    /// Empty if the system cannot name it.
    static Text getCurrentDir();
    static bool setCurrentDir(const Text& path);

    /// Put the values of variables into the path, or the targets of links, as `expandedPath` and
    /// `tracedPath` do. True if that changed it.
    static bool expand(Text& path);
    static bool mapSymbolic(Text& path);
    /// The path with each "\" as "/" and with the steps of the flags: `cleanPath`, `contractPath`,
    /// `expand` and `mapSymbolic`.
    static Text processPath(const Text& path, int flags);
};

extern template class FileProperties<char>;
extern template class FileProperties<wchar_t>;

}  // namespace TarvikCorelib
