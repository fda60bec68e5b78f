#include "shared/library/common/FileUtils.h"

#include "shared/library/common/FileOps.h"

namespace Tarvik {

std::uint64_t FileUtils::getFileSize(const std::string& path) {
    FileInfoT info;
    FileOps::getFileInfo(path, info);
    return info.size;
}

}  // namespace Tarvik
