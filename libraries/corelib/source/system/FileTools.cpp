#include "libraries/corelib/source/system/FileTools.h"

#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <new>

namespace TarvikCorelib {

namespace {

struct DirectoryCloser {
    void operator()(DIR* directory) const { closedir(directory); }
};

const char* nameOf(const dirent& entry) {
    return static_cast<const char*>(entry.d_name);
}

bool isWanted(const char* name, const std::string& pattern) {
    if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) return false;
    return fnmatch(pattern.c_str(), name, FNM_NOESCAPE) == 0;
}

// Most file systems give the type with the entry. Only for a link, which counts as what it points
// to, and for an unknown type is the file itself looked up.
bool isDirectory(DIR* directory, const dirent& entry) {
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
    struct stat status {};
    if (fstatat(dirfd(directory), nameOf(entry), &status, 0) != 0) return false;
    return S_ISDIR(status.st_mode);
}

// A directory that cannot be read for want of memory must not look empty.
bool fail() {
    if (errno == ENOMEM) throw std::bad_alloc();
    return false;
}

}  // namespace

// The names are gathered apart and added at the end, so that a failure half way adds none.
bool FileTools::readDir(const std::string& dir, const std::string& pattern,
                        std::set<std::string>* files, std::set<std::string>* dirs) {
    const std::unique_ptr<DIR, DirectoryCloser> directory(opendir(dir.c_str()));
    if (!directory) return fail();
    std::set<std::string> foundFiles;
    std::set<std::string> foundDirs;
    errno = 0;
    while (const dirent* entry = readdir(directory.get())) {
        if (isWanted(nameOf(*entry), pattern)) {
            (isDirectory(directory.get(), *entry) ? foundDirs : foundFiles).insert(nameOf(*entry));
        }
        errno = 0;  // A failure sets it, the end of the directory does not.
    }
    if (errno != 0) return fail();
    if (files != nullptr) files->merge(foundFiles);
    if (dirs != nullptr) dirs->merge(foundDirs);
    return true;
}

}  // namespace TarvikCorelib
