// Whole contents: as text, and compressed.

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/system/FileReplacement.h"
#include "libraries/corelib/source/text/StringTools.h"
#include "libraries/filelib/source/directory/DirectoryMessages.h"
#include "libraries/filelib/source/directory/FileFailures.h"
#include "libraries/filelib/source/directory/FileTools.h"
#include "libraries/filelib/source/file/BinaryFile.h"
#include "libraries/filelib/source/file/FileMessages.h"
#include "libraries/filelib/source/file/ZFile.h"
#include "libraries/filelib/source/path/PathTools.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <utility>

namespace TarvikFilelib {

using TarvikCorelib::Descriptor;
using TarvikCorelib::enumerationDigits;
using TarvikCorelib::existingMask;
using TarvikCorelib::FileReplacement;
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

void requireWritten(int error, const std::string& path, const char* operation) {
    if (error == 0) return;
    if (isRefusal(error)) throwRefusal(error, path, operation);
    throw made<BinaryFile::Write_Failure>(messages::writeFailure, here(), path);
}

struct Source {
    Descriptor file;
    struct stat properties {};
};

Source openSource(const std::string& path, const char* operation) {
    requireName(path, "path", operation);
    Source source;
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

template <class In, class Out>
void pump(In& in, Out& out) {
    std::string block;
    for (bool isMore = true; isMore;) {
        block.clear();
        isMore = in.read(block, blockSize);
        out.write(block);
    }
    in.close();
    out.close();
}

// One file made from another one: `fill` is given a descriptor of each.
template <class Fill>
void transform(Source source, const std::string& target, int flags, const char* operation,
               Fill fill) {
    const std::string path = placeFor(target, flags, operation);
    if (path.empty()) return;
    if (TarvikCorelib::isTemporaryOf(path, source.file.get()))
        throw made<FileTools::Copy_Failed>(messages::copyFailed, here(), operation, path,
                                           messages::cannotReplaceTemporary);

    FileReplacement written;
    requireWritten(written.open(path, source.properties.st_mode & ACCESSPERMS), path, operation);
    Descriptor copy;
    if (const int error = written.duplicate(copy); error != 0)
        throw made<BinaryFile::Open_Failure>(messages::openFailure, here(), path,
                                             messages::openReason("out", error));
    fill(std::move(source.file), std::move(copy), path);
    requireWritten(written.commit(mayReplace(flags)), path, operation);
}

}  // namespace

std::string FileTools::fileToString(const std::string& path) {
    BinaryFile file(path);
    Source source = openSource(path, "fileToString");
    file.openIn(std::move(source.file));
    std::string text;
    text.reserve(static_cast<std::size_t>(source.properties.st_size));
    while (file.read(text, blockSize)) {
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

void FileTools::gzip(const std::string& path, int flags) {
    transform(openSource(path, "gzip"), path + ".gz", flags, "gzip",
              [&path](Descriptor source, Descriptor target, const std::string& name) {
                  BinaryFile in(path);
                  in.openIn(std::move(source));
                  ZFile out;
                  out.openRawOut(std::move(target), name);
                  pump(in, out);
              });
}

void FileTools::ungzip(const std::string& path, int flags) {
    requireName(path, "path", "ungzip");
    std::string suffix = PathTools::getSuffix(path);
    const std::string plain = PathTools::getSuffixRemoved(path);
    if (TarvikCorelib::StringTools::lower(suffix) != "gz" || !PathTools::haveBase(plain))
        throw made<Ungzip_NotGzipFile>(messages::ungzipNotGzipFile, here(), path);
    transform(openSource(path, "ungzip"), plain, flags, "ungzip",
              [&path](Descriptor source, Descriptor target, const std::string& name) {
                  ZFile in;
                  in.openRawIn(std::move(source), path);
                  BinaryFile out(name);
                  out.openOut(std::move(target));
                  pump(in, out);
              });
}

}  // namespace TarvikFilelib
