#include "libraries/filelib/source/directory/FileFailures.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/system/FileNames.h"
#include "libraries/filelib/source/directory/DirectoryMessages.h"
#include "libraries/filelib/source/directory/FileTools.h"

#include <cerrno>

namespace TarvikFilelib {

using TarvikCorelib::here;
using TarvikCorelib::made;

void requireParameter(const std::string& value, const char* parameter, const char* operation) {
    if (value.empty())
        throw made<TargetExists>(messages::emptyParameter, here(), parameter, operation);
}

void requireName(const std::string& value, const char* parameter, const char* operation) {
    requireParameter(value, parameter, operation);
    if (TarvikCorelib::systemName(value).empty()) throwRefusal(ENOENT, value, operation);
}

void throwRefusal(int error, const std::string& path, const char* operation) {
    if (error == ENOENT || error == ENOTDIR)
        throw made<FileTools::NoSuchFile>(messages::noSuchFile, here(), path, operation);
    if (error == EEXIST) throw made<TargetExists>(messages::targetExists, here(), path, operation);
    throw made<AccessDenied>(messages::accessDenied, here(), path, operation);
}

}  // namespace TarvikFilelib
