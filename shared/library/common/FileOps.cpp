#include "shared/library/common/FileOps.h"

#include <sys/stat.h>

namespace Tarvik {

bool FileOps::exists(std::string path) {
    if (path.empty()) return false;
    if (path.back() == '/') path.pop_back();
    FileInfoT info;
    return getFileInfo(path, info);
}

bool FileOps::getFileInfo(const std::string& path, FileInfoT& info) {
    // A path with a wildcard stands for many files and has no status of its own.
    if (path.find('?') != std::string::npos || path.find('*') != std::string::npos) return false;
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return false;
    info.size = static_cast<std::uint64_t>(status.st_size);
    return true;
}

}  // namespace Tarvik
