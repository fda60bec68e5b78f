/// Replaces files so that neither a fault nor an end of the process leaves half of one.
#pragma once

#include "libraries/corelib/source/system/Descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstddef>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// Nothing here throws but exhausted memory: each function answers 0 or the number of the system's
/// error. A name with a NUL is no file's name: ENOENT.

/// Which file a name leads to, as long as the file exists.
struct FileIdentity {
    dev_t device = 0;
    ino_t inode = 0;

    FileIdentity() = default;
    explicit FileIdentity(const struct stat& file) : device(file.st_dev), inode(file.st_ino) {}
    bool operator==(const FileIdentity&) const = default;
};

/// A file that takes its name only when it is whole.
///
/// What is written goes to a temporary file in the same directory, named as the target with
/// ".cpytmp" behind it (`temporaryName`); `commit` renames it over the target. So the name leads to
/// the old content or to the new at any moment, and a process that dies leaves at most the
/// temporary. Its name is fixed and is unlinked first, so that the next replacement clears up; it
/// is made exclusively, so a link that stands there in wait is never followed. All steps go by the
/// directory's descriptor: a directory that is renamed meanwhile makes no difference.
///
/// Who replaces one file from several places has a lock. Without one, most meetings are noticed
/// (ESTALE), but a reader may find part of a content for a moment.
///
///     FileReplacement file;
///     int error = file.open(path);
///     if (error == 0) error = writeAll(file.get(), content);
///     if (error == 0) error = file.commit(true);  // Else the old content is there.
class FileReplacement {
public:
    static constexpr std::string_view TemporarySuffix = ".cpytmp";
    static constexpr mode_t PlainMode = 0666;

    FileReplacement() = default;
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    /// Removes the temporary unless it was committed.
    ~FileReplacement();

    /// Makes the temporary. It has the mode, and as far as allowed the owner and the group, of the
    /// plain file that it is to replace; a new one has `newMode` less the umask. If there is none
    /// yet and a temporary cannot be made (long names may have no room for the suffix), the target
    /// itself is made, and removed again if all fails.
    int open(const std::string& target, mode_t newMode = PlainMode);
    /// Makes the target itself, EEXIST if there is anything of that name. An end of the process
    /// leaves part of it.
    int openNew(const std::string& target, mode_t newMode = PlainMode);
    /// To write to. It stays owned here, and open until `commit`; -1 before `open`.
    int get() const { return file.get(); }
    /// Another descriptor of the same open file, for one who must own it.
    int duplicate(Descriptor& copy) const;
    /// Brings the content to the disk and then gives it its name. Without `mayReplace` EEXIST if
    /// there is a file of that name by now.
    int commit(bool mayReplace);
    /// Ends an `openNew` without waiting for the disk.
    int keep();

private:
    int openDirectory(const std::string& target);
    int makeTemporary(mode_t mode);
    int make(const std::string& name, mode_t mode);
    int giveName(bool mayReplace);
    bool isOurs() const;

    Descriptor directory;
    Descriptor file;
    FileIdentity identity;  // Of the open file.
    std::string base;       // The target's name within the directory.
    std::string made;       // The name there that must go if all fails. Empty: none.
};

/// Replace or make the content of a file: all of it or, on failure, nothing changes.
///
/// `replaceContent` writes in place, without removing anything, if the path is a link, no plain
/// file or has a second name, and if no temporary can be made or renamed there. The old content is
/// put back if that fails. To write in place is no step: a process that dies within it leaves part
/// of both contents. `createContent` is EEXIST if there is anything of that name, a dangling link
/// too.
int replaceContent(const std::string& path, std::string_view content);
int createContent(const std::string& path, std::string_view content);
/// Adds to the end of the file, which is made if need be. On failure nothing has been added.
int appendContent(const std::string& path, std::string_view content);

/// The name with ".cpytmp" behind it. Of the longest ones the end is cut off for that.
std::string temporaryName(std::string_view name);
/// Whether the open file is what a replacement of the target would unlink, as the temporary of an
/// earlier one.
bool isTemporaryOf(const std::string& target, int file);

/// To open whatever stands there must not wait for the other end of a FIFO, nor take a terminal
/// over.
inline constexpr int openCautiously = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;

/// What a call that answers 0 or -1 has left.
inline int errorOf(int result) {
    return result == 0 ? 0 : errno;
}
/// Brings a file or a directory to the disk, if it is of a kind for which that can be done.
int syncFile(int file);
/// Opens a plain file, or the one that a link leads to, for reading. Anything else is not opened,
/// as a FIFO would hang: EISDIR for a directory, else EINVAL.
int openPlainFile(const std::string& path, Descriptor& file);
int openPlainFile(const std::string& path, Descriptor& file, struct stat& properties);
/// Writes all of it.
int writeAll(int file, std::string_view content);
/// Reads at most `size` bytes; none at the end.
int readSome(int file, char* buffer, std::size_t size, std::size_t& count);
/// Copies from the position of one descriptor to that of the other, up to the end.
int copyContent(int source, int target);

/// Renames a file to a name that does not exist, else EEXIST.
int renameToNew(const std::string& from, const std::string& to);
/// Whether both paths are the same entry of the same directory, however they are written. Two links
/// of one file are two entries; a file with a single name is one, also where the system does not
/// tell large letters from small ones. False if one does not exist.
bool isSameEntry(const std::string& first, const std::string& second);
/// Whether the path is that entry, or a link that leads to it or, link by link, through it. A link
/// that replaces such an entry would lead to itself, and one would lead nowhere without it.
bool leadsThrough(const std::string& path, const std::string& entry);
/// Whether both are in the same directory.
bool isSameDirectory(const std::string& first, const std::string& second);

}  // namespace TarvikCorelib
