/// Operations on directories that throw when they fail.
#pragma once

#include "libraries/filelib/source/directory/CopyParams.h"
#include "libraries/filelib/source/directory/FileTreeNode.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace TarvikFilelib {

/// Lists, makes, copies, moves and removes directories.
///
/// No operation leaves the tree it was given: what removes or copies works from open directories,
/// by single names, and never follows a link in the tree, also not one that is put there meanwhile.
/// Trees may be of any depth, with any names. Paths are used as they are given; nothing in them is
/// expanded. All operations are safe to call from any thread.
///
/// An empty path that is to be changed is `TargetExists` with a text that says so. Where there is
/// no directory, and for a path with a NUL, it is `NoSuchDir`; what the system refuses is
/// `AccessDenied`, unless it is said differently.
///
///     DirTools::ensureParentExists("tree/a/b/");  // Makes "tree", "tree/a" and "tree/a/b".
///     DirTools::copy("tree", "copy");
///     DirTools::copy("tree", "copy", CopyMerge | CopySkipExisting);  // Adds what "copy" lacks.
///     DirTools::getSubDirs("copy");                                  // "a"
///     DirTools::remove("copy", DirTools::RemoveRecursive);
class DirTools {
public:
    using NoSuchDir = TarvikCorelib::NamedException<DirTools, "NoSuchDir">;
    using ReadDir_Failed = TarvikCorelib::NamedException<DirTools, "ReadDir_Failed">;
    using Clear_Failed = TarvikCorelib::NamedException<DirTools, "Clear_Failed">;
    using Remove_DirNotEmpty = TarvikCorelib::NamedException<DirTools, "Remove_DirNotEmpty">;
    using Remove_Failed = TarvikCorelib::NamedException<DirTools, "Remove_Failed">;
    using CreateDir_Failed = TarvikCorelib::NamedException<DirTools, "CreateDir_Failed">;
    using EnsureParent_InvalidPath =
        TarvikCorelib::NamedException<DirTools, "EnsureParent_InvalidPath">;
    using Rename_Failed = TarvikCorelib::NamedException<DirTools, "Rename_Failed">;
    using Scan_Failed = TarvikCorelib::NamedException<DirTools, "Scan_Failed">;
    using Copy_Failed = TarvikCorelib::NamedException<DirTools, "Copy_Failed">;

    using Names = std::set<std::string>;

    // --- looking. A path that is a link to a directory stands for the directory.

    /// Throws nothing.
    static bool exists(const std::string& path);

    enum ReadFlag : std::int32_t { ReadFiles = 1, ReadSubDirs = 2 };
    /// The names in a directory that match the glob, which may be left blank to match all; 0 for
    /// the flags is both kinds. A link counts as what it leads to; what is no directory counts as a
    /// file. Throws `NoSuchDir` or `ReadDir_Failed`.
    static Names readDir(const std::string& path, const std::string& pattern = {}, int flags = 0);
    static Names getFiles(const std::string& path, const std::string& pattern = {});
    static Names getSubDirs(const std::string& path, const std::string& pattern = {});
    static bool isEmpty(const std::string& path);

    /// What these two find below the directory is all that is in it, links as files. They throw as
    /// `readDir` does, also for a directory further down. The bytes are those of plain files.
    static unsigned long long getSize(const std::string& path);
    /// The root has the last name of the path.
    static FileTreeNode::Pointer getFileTree(const std::string& path);

    /// Of the file system that holds the directory, as far as this process may use them.
    static unsigned long long getFreeByteSize(const std::string& path);
    static std::string getCurrentDir();
    static void setCurrentDir(const std::string& path);

    // --- making and removing. A path that is a link is no directory: `NoSuchDir`.

    /// With all permissions that the process's mask allows. `CreateDir_Failed` also for what is
    /// there already.
    static void createDir(const std::string& path);
    /// Makes each missing directory up to the last slash, so "a/k/" makes "a" and "a/k". An empty
    /// path is `TargetExists` here, too.
    static void ensureParentExists(const std::string& path);

    enum RemoveFlag : std::int32_t {
        RemoveRecursive = 1,  ///< With all that is in it.
        RemoveForce = 2,      ///< Give oneself the permissions that are missing on directories.
    };
    /// Removes all that is in the directory, going on after a failure. `Clear_Failed` has the
    /// number of files and directories that could not be removed, without those that are left only
    /// because of them. Only `RemoveForce` counts.
    static void clear(const std::string& path, int flags = 0);
    /// Removes a directory or a link, not what it leads to. Throws `Remove_DirNotEmpty`, or
    /// `Remove_Failed`. What has no name of its own, ".", ".." and "/", is `AccessDenied`, with
    /// nothing removed.
    static void remove(const std::string& path, int flags = 0);

    // --- copying and moving. If both paths are the same directory and the flags say to skip, to
    // replace or to merge, they do nothing.

    /// A target that exists is `TargetExists` unless the flags are `CopyEnumerate` or
    /// `CopyOverwrite`. To replace it, the two change places at once, where the file system can do
    /// that, and the old target is removed; `Remove_Failed` if some of it could not be.
    static void rename(const std::string& from, const std::string& to, int flags = 0);
    /// Renames, or copies where that fails, as from one device to another, or if it is to merge.
    /// Quirk: the source stays after such a copy, which has no times and no permissions of it. It
    /// also stays if it is skipped.
    static void move(const std::string& source, const std::string& target, CopyParams& params);
    static void move(const std::string& source, const std::string& target, int flags = 0);
    /// Copies all of the tree that can be copied, and then throws `Copy_Failed` if something could
    /// not: pipes, sockets, devices, and files named "x.cpytmp" are failures. Links are copied as
    /// links. The first failure is contained. A new directory takes the place of an old one only
    /// when it is complete; what is no directory, or holds the source, is not replaced. Where the
    /// target lies in the source, it is not copied itself.
    ///
    /// Reports "copydir(base)", and within it "scandir(base)", "copytree(base)" by entries, and
    /// "copyfile(base)" by blocks. Throws `Scan_Failed` if the source cannot be read.
    static void copy(const std::string& source, const std::string& target, CopyParams& params);
    static void copy(const std::string& source, const std::string& target, int flags = 0);

    // --- patterns

    /// The globs of a pattern text: itself, or "*" if it is blank.
    static std::vector<std::string> getPatterns(const std::string& pattern);
    static bool includedByPattern(const std::string& name,
                                  const std::vector<std::string>& patterns);
};

}  // namespace TarvikFilelib
