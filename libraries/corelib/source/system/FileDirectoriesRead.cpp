// The reading of one directory: all that a program that only looks for files links.

#include "libraries/corelib/source/match/GlobMatcher.h"
#include "libraries/corelib/source/system/FileDirectories.h"
#include "libraries/corelib/source/system/FileNames.h"

#include <dirent.h>
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

const char* nameOf(const dirent64& entry) {
    return static_cast<const char*>(entry.d_name);
}

template <class Char>
bool isWanted(const StringTools::Text<Char>& name, const StringTools::Text<Char>& pattern) {
    const bool isDots = name.find_first_not_of(Char('.')) == StringTools::npos;
    return !(isDots && name.size() <= 2) && GlobMatcher::match(name, pattern);
}

// Most file systems give the type with the entry. Only for a link, which counts as what it points
// to, and for an unknown type is the file itself looked up.
bool isDirectory(DIR* directory, const dirent64& entry) {
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
    struct stat64 status {};
    if (fstatat64(dirfd(directory), nameOf(entry), &status, 0) != 0) return false;
    return S_ISDIR(status.st_mode);
}

// A directory that cannot be read for want of memory must not look empty.
bool fail() {
    if (errno == ENOMEM) throw std::bad_alloc();
    return false;
}

}  // namespace

// The names are gathered apart and added at the end, so that a failure half way adds none.
template <class Char>
bool FileDirectories<Char>::readDir(const Text& dir, const Text& pattern, Names* files,
                                    Names* dirs) {
    const std::unique_ptr<DIR, DirectoryCloser> directory(opendir(systemName(dir).c_str()));
    if (!directory) return fail();
    Names foundFiles;
    Names foundDirs;
    errno = 0;
    while (const dirent64* entry = readdir64(directory.get())) {
        Text name = textAs<Char>(nameOf(*entry));
        if (isWanted<Char>(name, pattern)) {
            (isDirectory(directory.get(), *entry) ? foundDirs : foundFiles).insert(std::move(name));
        }
        errno = 0;  // A failure sets it, the end of the directory does not.
    }
    if (errno != 0) return fail();
    if (files != nullptr) files->merge(foundFiles);
    if (dirs != nullptr) dirs->merge(foundDirs);
    return true;
}

template bool FileDirectories<char>::readDir(const Text&, const Text&, Names*, Names*);
template bool FileDirectories<wchar_t>::readDir(const Text&, const Text&, Names*, Names*);

}  // namespace TarvikCorelib
