// Whole contents as text.

#include "libraries/filelib/source/directory/FileToolsContent.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/system/FileReplacement.h"
#include "libraries/filelib/source/directory/DirectoryMessages.h"
#include "libraries/filelib/source/directory/FileFailures.h"
#include "libraries/filelib/source/directory/FileTools.h"
#include "libraries/filelib/source/file/BinaryFile.h"
#include "libraries/filelib/source/file/FileMessages.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>

namespace TarvikFilelib {

using TarvikCorelib::enumerationDigits;
using TarvikCorelib::existingMask;
using TarvikCorelib::here;
using TarvikCorelib::made;

namespace {

constexpr std::size_t blockSize = std::size_t{64} << 10U;

bool isRefusal(int error) {
    constexpr auto refusals = std::to_array({ENOENT, ENOTDIR, EEXIST, EACCES, EPERM, EROFS});
    for (const int refusal : refusals)
        if (error == refusal) return true;
    return false;
}

}  // namespace

void requireWritten(int error, const std::string& path, const char* operation) {
    if (error == 0) return;
    if (isRefusal(error)) throwRefusal(error, path, operation);
    throw made<BinaryFile::Write_Failure>(messages::writeFailure, here(), path);
}

ContentSource openSource(const std::string& path, const char* operation) {
    requireName(path, "path", operation);
    ContentSource source;
    const int error = TarvikCorelib::openPlainFile(path, source.file, source.properties);
    if (error == 0) return source;
    // A directory, a FIFO or a device is no such file.
    if (error == EISDIR || error == EINVAL) throwRefusal(ENOENT, path, operation);
    if (isRefusal(error)) throwRefusal(error, path, operation);
    throw made<BinaryFile::Open_Failure>(messages::openFailure, here(), path,
                                         messages::openReason("in", error));
}

// The path to write to; empty if what exists is to stay.
std::string placeFor(const std::string& path, int flags, const char* operation) {
    if (!FileTools::exists(path)) return path;
    if ((flags & CopyAsk) != 0) throwRefusal(EEXIST, path, operation);
    switch (flags & existingMask) {
    case CopySkipExisting: return {};
    case CopyOverwrite: return path;
    case CopyEnumerate: return FileTools::getNextEnumeration(path, enumerationDigits);
    default: throwRefusal(EEXIST, path, operation);
    }
}

bool mayReplace(int flags) {
    return (flags & (existingMask | CopyAsk)) == CopyOverwrite;
}

// Without a stream: its buffer alone takes longer than a short text. A text that has the size of
// its file is whole if there was room for more.
std::string FileTools::fileToString(const std::string& path) {
    const ContentSource source = openSource(path, "fileToString");
    const auto size = static_cast<std::size_t>(source.properties.st_size);
    std::string text;
    text.reserve(size + 1);
    for (std::size_t count = 1; count > 0;) {
        const std::size_t end = text.size();
        const std::size_t left = text.capacity() - end;
        const std::size_t room = left > 0 ? std::min(left, blockSize) : blockSize;
        text.resize(end + room);
        const int error = TarvikCorelib::readSome(source.file.get(), &text[end], room, count);
        if (error != 0) throw made<BinaryFile::Read_Failure>(messages::readFailure, here(), path);
        text.resize(end + count);
        if (text.size() == size && count < room) break;
    }
    return text;
}

void FileTools::stringToFile(const std::string& path, const std::string& text, int flags) {
    constexpr auto operation = "stringToFile";
    requireName(path, "path", operation);
    const std::string place = placeFor(path, flags, operation);
    if (place.empty()) return;
    const int error = mayReplace(flags) ? TarvikCorelib::replaceContent(place, text)
                                        : TarvikCorelib::createContent(place, text);
    requireWritten(error, place, operation);
}

void FileTools::appendToFile(const std::string& path, const std::string& text) {
    requireName(path, "path", "appendToFile");
    requireWritten(TarvikCorelib::appendContent(path, text), path, "appendToFile");
}

}  // namespace TarvikFilelib
