#include "libraries/filelib/source/directory/DirFailures.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/system/FileNames.h"
#include "libraries/filelib/source/directory/DirTools.h"
#include "libraries/filelib/source/directory/DirToolsMessages.h"
#include "libraries/filelib/source/directory/DirectoryMessages.h"

#include <fcntl.h>

#include <cerrno>

namespace TarvikFilelib {

using TarvikCorelib::Descriptor;
using TarvikCorelib::DirPlace;
using TarvikCorelib::EntryKind;
using TarvikCorelib::here;
using TarvikCorelib::made;

void checkAccess(int error, const std::string& path, const char* operation) {
    if (error == 0) return;
    if (error == ENOENT || error == ENOTDIR || error == ELOOP)
        throw made<DirTools::NoSuchDir>(messages::noSuchDir, here(), path, operation);
    throw made<AccessDenied>(messages::accessDenied, here(), path, operation);
}

std::string errorText(int error) {
    return std::string(messages::errorNumber) + std::to_string(error);
}

std::string withoutSlashesAtEnd(const std::string& path) {
    return path.substr(0, path.find_last_not_of('/') + 1);
}

std::string lastName(const std::string& path) {
    const std::string whole = withoutSlashesAtEnd(path);
    return whole.substr(whole.rfind('/') + 1);
}

DirPlace placeOf(const std::string& path, const char* operation, EntryKind& kind) {
    DirPlace place;
    checkAccess(TarvikCorelib::openPlace(path, place), path, operation);
    checkAccess(TarvikCorelib::kindOf(place.dir.get(), place.name.c_str(), kind), path, operation);
    return place;
}

Descriptor openTop(const std::string& path) {
    const std::string name = TarvikCorelib::systemName(path);
    return Descriptor(open(name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

}  // namespace TarvikFilelib
