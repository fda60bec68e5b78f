// The contents of whole files: replaced, made, added to.

#include "libraries/corelib/source/system/FileNames.h"
#include "libraries/corelib/source/system/FileReplacement.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

namespace TarvikCorelib {

namespace {

// What a link without an end leads to is made: the link was put there on purpose.
int openToWrite(const std::string& path, int flags, Descriptor& file) {
    file = Descriptor(open(path.c_str(), flags | openCautiously));
    if (!file.isOpen() && errno == ENOENT)
        file = Descriptor(
            open(path.c_str(), flags | openCautiously | O_CREAT, FileReplacement::PlainMode));
    return file.isOpen() ? 0 : errno;
}

int writeAt(int file, off_t position, std::string_view content) {
    if (content.empty()) return 0;
    return lseek(file, position, SEEK_SET) < 0 ? errno : writeAll(file, content);
}

// If this fails too, there is nobody left to tell: the first failure is on its way already.
void cutBack(int file, off_t size) {
    [[maybe_unused]] const int ignored = ftruncate(file, size);
}

// Writes over a content that can be put back as long as this object has it. In three steps:
//
//   save       keeps a copy in memory of what will be written over
//   writeNew   writes behind the old end first, and then over the old content
//   cut        makes the file shorter, if the new content is
//
// A failure in any of them, up to the cut itself, puts the old content back.
class Overwriting {
public:
    Overwriting(int file, off_t oldSize, std::string_view content)
        : file(file),
          oldSize(oldSize),
          content(content),
          common(std::min(content.size(), static_cast<std::size_t>(oldSize))) {}

    int run() {
        if (const int error = save(); error != 0) return error;
        const int error = writeNew();
        if (error != 0) putBack();
        return error != 0 ? error : cut();
    }

private:
    // Only what is written over. A file that may only be written to has no way back.
    int save() {
        saved.resize(common);
        std::size_t done = 0;
        while (done < common) {
            const ssize_t got = pread(file, &saved[done], common - done, static_cast<off_t>(done));
            if (got < 0 && errno == EINTR) continue;
            if (got < 0 && errno != EBADF) return errno;
            if (got <= 0) break;
            done += static_cast<std::size_t>(got);
        }
        saved.resize(done);
        return 0;
    }

    // What needs room comes first, so that a full device changes nothing.
    int writeNew() const {
        int error = writeAt(file, oldSize, content.substr(common));
        if (error == 0) error = writeAt(file, 0, content.substr(0, common));
        return error == 0 ? syncFile(file) : error;
    }

    // From here on the content is the new one, and there is no way back.
    int cut() const {
        if (common == static_cast<std::size_t>(oldSize)) return 0;
        if (const int error = errorOf(ftruncate(file, static_cast<off_t>(common))); error != 0) {
            putBack();
            return error;
        }
        return syncFile(file);
    }

    void putBack() const {
        writeAt(file, 0, saved);
        cutBack(file, oldSize);
    }

    int file;
    off_t oldSize;
    std::string_view content;
    std::size_t common;  // The length of what is written over.
    std::string saved;
};

int writeInPlace(const std::string& path, std::string_view content) {
    Descriptor file;
    struct stat found {};
    // A FIFO that is open for both ends would take the content and lose it.
    const bool mayRead = stat(path.c_str(), &found) == 0 && S_ISREG(found.st_mode);
    int error = openToWrite(path, mayRead ? O_RDWR : O_WRONLY, file);
    if (error == EACCES && mayRead) error = openToWrite(path, O_WRONLY, file);
    if (error == 0) error = errorOf(fstat(file.get(), &found));
    if (error == 0)
        error = S_ISREG(found.st_mode) ? Overwriting(file.get(), found.st_size, content).run()
                                       : writeAll(file.get(), content);
    const int closed = file.close();
    return error != 0 ? error : closed;
}

bool mustStay(const struct stat& file) {
    return !S_ISREG(file.st_mode) || file.st_nlink > 1;
}

// A mount point cannot be renamed over, and in a directory like /tmp not what another user owns.
bool mayBeWrittenInPlace(int error) {
    return error == EBUSY || error == EPERM || error == EACCES;
}

int replaceByRename(const std::string& path, std::string_view content, bool& mayStay) {
    FileReplacement replacement;
    if (const int error = replacement.open(path); error != 0) return error;
    mayStay = false;
    if (const int error = writeAll(replacement.get(), content); error != 0) return error;
    const int error = replacement.commit(true);
    mayStay = mayBeWrittenInPlace(error);
    return error;
}

}  // namespace

int replaceContent(const std::string& path, std::string_view content) {
    constexpr int maximumTries = 16;  // Against others who replace the same file.
    int error = ESTALE;
    for (int tries = 0; tries < maximumTries && error == ESTALE; ++tries) {
        struct stat old {};
        const bool isThere = lstat(systemName(path).c_str(), &old) == 0;
        if (!isThere && errno != ENOENT) return errno;
        if (isThere && mustStay(old)) return writeInPlace(path, content);
        bool mayStay = isThere;
        error = replaceByRename(path, content, mayStay);
        if (error != 0 && isThere && mayStay) return writeInPlace(path, content);
    }
    return error;
}

int createContent(const std::string& path, std::string_view content) {
    struct stat old {};
    if (lstat(systemName(path).c_str(), &old) == 0) return EEXIST;
    FileReplacement made;
    int error = made.open(path);
    if (error == 0) error = writeAll(made.get(), content);
    return error == 0 ? made.commit(false) : error;
}

int appendContent(const std::string& path, std::string_view content) {
    if (const int error = createContent(path, content); error != EEXIST) return error;
    Descriptor file;
    struct stat old {};
    int error = openToWrite(path, O_WRONLY | O_APPEND, file);
    if (error == 0) error = errorOf(fstat(file.get(), &old));
    if (error != 0) return error;
    error = writeAll(file.get(), content);
    if (error != 0 && S_ISREG(old.st_mode)) cutBack(file.get(), old.st_size);
    const int closed = file.close();
    return error != 0 ? error : closed;
}

}  // namespace TarvikCorelib
