// Compressed contents. Apart from the others, so that only who compresses needs the library for it.

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/system/FileReplacement.h"
#include "libraries/corelib/source/text/StringTools.h"
#include "libraries/filelib/source/directory/DirectoryMessages.h"
#include "libraries/filelib/source/directory/FileFailures.h"
#include "libraries/filelib/source/directory/FileTools.h"
#include "libraries/filelib/source/directory/FileToolsContent.h"
#include "libraries/filelib/source/file/BinaryFile.h"
#include "libraries/filelib/source/file/FileMessages.h"
#include "libraries/filelib/source/file/ZFile.h"
#include "libraries/filelib/source/path/PathTools.h"

#include <cstddef>
#include <utility>

namespace TarvikFilelib {

using TarvikCorelib::Descriptor;
using TarvikCorelib::FileReplacement;
using TarvikCorelib::here;
using TarvikCorelib::made;

namespace {

constexpr std::size_t blockSize = std::size_t{64} << 10U;

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
void transform(ContentSource source, const std::string& target, int flags, const char* operation,
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
