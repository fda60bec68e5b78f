/// Operations on files that throw when they fail.
#pragma once

#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/filelib/source/directory/CopyParams.h"

#include <cstdint>
#include <list>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace TarvikFilelib {

/// Copies, moves, removes, compresses and reads files as a whole.
///
/// No operation loses data: what is replaced is there until what replaces it is whole, and what an
/// operation that fails has made is removed again. Paths are used as they are given; nothing in
/// them is expanded. All operations are safe to call from any thread, but two that work on the same
/// file need a lock of their callers.
///
/// An empty path is `TargetExists` with a text that says so. A missing file is `NoSuchFile`, and so
/// is a path with a NUL, which is no file's name. What the system refuses otherwise is
/// `AccessDenied`, unless it is said differently.
///
///     FileTools::stringToFile("a.txt", "one\n", CopyOverwrite);
///     FileTools::gzip("a.txt", CopyOverwrite);    // To "a.txt.gz".
///     FileTools::getNextEnumeration("a.txt", 2);  // "a-01.txt"
///     try {
///         FileTools::fileToString("missing.txt");
///     } catch (const FileTools::NoSuchFile& failure) {
///         failure.getFullMessage(false);
///         // "Trying to access \"missing.txt\", but no such file (fileToString)"
///     }
class FileTools {
public:
    using NoSuchFile = TarvikCorelib::NamedException<FileTools, "NoSuchFile">;
    using FileNotFound = TarvikCorelib::NamedException<FileTools, "FileNotFound">;
    using Copy_Failed = TarvikCorelib::NamedException<FileTools, "Copy_Failed">;
    using Rename_Failed = TarvikCorelib::NamedException<FileTools, "Rename_Failed">;
    using Remove_Failed = TarvikCorelib::NamedException<FileTools, "Remove_Failed">;
    using Ungzip_NotGzipFile = TarvikCorelib::NamedException<FileTools, "Ungzip_NotGzipFile">;
    using TooManyEnumeratedFiles =
        TarvikCorelib::NamedException<FileTools, "TooManyEnumeratedFiles">;

    using List = std::list<std::string>;
    using Vector = std::vector<std::string>;
    using Set = std::set<std::string>;
    using MultiSet = std::multiset<std::string>;
    using Map = std::map<std::string, std::string>;
    using MultiMap = std::multimap<std::string, std::string>;

    // --- what is there. These three throw nothing: what cannot be asked for is not there.

    /// Anything of that name, dangling links too.
    static bool exists(const std::string& path);
    /// A plain file, or a link to one.
    static bool isFile(const std::string& path);
    static bool isLink(const std::string& path);
    /// Bytes, of the file that a link leads to.
    static long long getByteSize(const std::string& path);
    /// The first name "dir/base-0001.suffix" that does not exist, with at least so many digits.
    /// Throws `TooManyEnumeratedFiles` if 99999 do.
    static std::string getNextEnumeration(const std::string& path, unsigned int digits);

    // --- copying and moving. Both report to the reporter of `params` under "copyfile(base)" or
    // "movefile(base)", and end with `Copy_Failed`.

    /// Copies a plain file, or the one that a link leads to. Time and permissions are not copied.
    /// Does nothing if both paths are the same file and the flags say to replace or to skip.
    /// Quirk: a new target "b.cpytmp" ends as "b", and replaces it.
    static void copy(const std::string& source, const std::string& target, CopyParams& params);
    static void copy(const std::string& source, const std::string& target, int flags = 0);
    /// Renames, or copies where that fails, as from one device to another.
    /// Quirk: a move that is skipped removes its source, unless that is what the target is or leads
    /// to, and one that had to copy leaves it.
    static void move(const std::string& source, const std::string& target, CopyParams& params);
    static void move(const std::string& source, const std::string& target, int flags = 0);
    /// A target that exists is `TargetExists` unless the flags are `CopyOverwrite` or
    /// `CopyEnumerate`. Directories are `NoSuchFile`. If both names are links of one file, the old
    /// one goes; the same name twice, or a link and what it leads to, by way of other links too,
    /// stay as they are. The texts of failures have the whole paths.
    static void rename(const std::string& from, const std::string& to, int flags = 0);
    /// Removes a file, a link (not what it leads to) or an empty directory, `Remove_Failed` if it
    /// cannot. With `force` a refusal is met with permissions for the owner first; else it is
    /// `AccessDenied`.
    static void remove(const std::string& path, bool force = false);

    // --- compressing. The source stays. `flags` are those for a copy.

    /// Writes "path.gz", with the permissions of the file.
    static void gzip(const std::string& path, int flags = 0);
    /// Writes the path without ".gz"; without that, or without a name before it, it is
    /// `Ungzip_NotGzipFile`. A source that is damaged or not compressed throws what `ZFile` does.
    static void ungzip(const std::string& path, int flags = 0);

    // --- content as text. What is neither missing nor refused fails as a `BinaryFile` does:
    // `Read_Failure`, `Write_Failure`, `Open_Failure`.

    /// Every byte of a plain file; anything else is `NoSuchFile`.
    static std::string fileToString(const std::string& path);
    /// The flags are those for a copy: 0 demands a new file, `CopyOverwrite` replaces the content
    /// so that at any moment the old or the new is there, whole, with the old permissions.
    static void stringToFile(const std::string& path, const std::string& text, int flags = 0);
    /// Makes the file if need be.
    static void appendToFile(const std::string& path, const std::string& text);

    /// The lines of a file, or its lines "key=value", split by `StringSplitter` with these flags.
    /// Quirk: the key of a line without "=" reaches to the next "=", over the ends of lines.
    static List fileToList(const std::string& path, int splitFlags = 0);
    static Vector fileToVector(const std::string& path, int splitFlags = 0);
    static Set fileToSet(const std::string& path, int splitFlags = 0);
    static MultiSet fileToMultiSet(const std::string& path, int splitFlags = 0);
    static Map fileToMap(const std::string& path, int splitFlags = 0);
    static MultiMap fileToMultiMap(const std::string& path, int splitFlags = 0);
    /// The reverse, each item as a line, with the flags of `stringToFile`. What is written is read
    /// again the same if no item has a line feed and no key "=".
    static void listToFile(const std::string& path, const List& items, int flags = 0);
    static void vectorToFile(const std::string& path, const Vector& items, int flags = 0);
    static void setToFile(const std::string& path, const Set& items, int flags = 0);
    static void multiSetToFile(const std::string& path, const MultiSet& items, int flags = 0);
    static void mapToFile(const std::string& path, const Map& items, int flags = 0);
    static void multiMapToFile(const std::string& path, const MultiMap& items, int flags = 0);

    // --- searching

    enum FindFlag : std::int32_t {
        FindInPath = 1,      ///< In the directories of the variable "PATH", too.
        FindExecutable = 2,  ///< Only what may be executed.
        FindAny = 4,         ///< Directories and all else, too, not only files.
    };
    /// The directories, then those of "PATH" if the flags say so. Empty ones are left out.
    static List getSearchDirs(int flags, const List& dirs);
    /// The path of the first that is found, or `FileNotFound`. A name with a root is looked for
    /// there alone.
    static std::string findFile(const std::string& name, int flags, const List& dirs);
    /// A file or directory in these directories.
    static std::string findPath(const std::string& name, const List& dirs);
    /// A program in "PATH".
    static std::string findExePath(const std::string& name);

    // --- properties of the file that a link leads to

    enum PermissionGroup : std::int32_t { Others = 0, Group = 1, Owner = 2 };
    enum Permission : std::int32_t { Execute = 1, Write = 2, Read = 4 };
    enum Status : std::int32_t { Sticky = 1, SetGroupId = 2, SetUserId = 4 };

    /// A sum of `Permission`.
    static int getPermissions(const std::string& path, PermissionGroup group);
    static bool havePermission(const std::string& path, PermissionGroup group, int permissions);
    /// Adds and takes away; the others stay.
    static void setPermission(const std::string& path, PermissionGroup group, int permissions);
    static void removePermission(const std::string& path, PermissionGroup group, int permissions);
    /// A sum of `Status`.
    static int getStatus(const std::string& path);
    static bool haveStatus(const std::string& path, int status);
    static void setStatus(const std::string& path, int status);
    static void unsetStatus(const std::string& path, int status);

    /// Milliseconds are kept. Where the file system does not know when a file was created, it is
    /// the time of its last modification.
    static TarvikCorelib::DateTime getCreationTime(const std::string& path);
    static TarvikCorelib::DateTime getLastAccessTime(const std::string& path);
    static TarvikCorelib::DateTime getLastModifiedTime(const std::string& path);
    /// Always `AccessDenied` for a file that exists: this system has no way to do it.
    static void setCreationTime(const std::string& path, const TarvikCorelib::DateTime& time);
    static void setLastAccessTime(const std::string& path, const TarvikCorelib::DateTime& time);
    static void setLastModifiedTime(const std::string& path, const TarvikCorelib::DateTime& time);

    /// Makes a symbolic link at `path`, which must not exist.
    static void createLink(const std::string& target, const std::string& path);
    static std::string getLinkTarget(const std::string& path);
    /// An empty file, which must not exist.
    static void createFile(const std::string& path);
};

}  // namespace TarvikFilelib
