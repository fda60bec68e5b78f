#include "shared/library/common/FileOps.h"

#include <sys/stat.h>

namespace Tarvik {

bool FileOps::exists(std::string path) {
    if (path.empty()) return false;
    if (path.back() == '/') path.pop_back();
    FileInfoT info;
    return getFileInfo(path, info);
}

bool FileOps::hasWildcard(const std::string& path) {
    return path.find('?') != std::string::npos || path.find('*') != std::string::npos;
}

bool FileOps::getFileInfo(const std::string& path, FileInfoT& info) {
    if (hasWildcard(path)) return false;
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return false;
    info.size = static_cast<std::uint64_t>(status.st_size);
    return true;
}

}  // namespace Tarvik
