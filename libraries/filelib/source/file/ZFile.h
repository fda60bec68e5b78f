/// A file compressed by gzip, read and written as if it were plain.
#pragma once

#include "libraries/corelib/source/system/Descriptor.h"
#include "libraries/filelib/source/file/FileBase.h"
#include "libraries/filelib/source/file/PutBackRing.h"

#include <memory>
#include <string>

struct gzFile_s;  // zlib's; a `gzFile` points to it.

namespace TarvikFilelib {

/// Positions count the bytes before compression. They only go forward, but for the last 99 bytes,
/// which can be put back. A file is opened to read or to write; openings for anything else throw
/// `Open_NotSupported`.
///
/// Compressed data are one member or more, each beginning with the bytes 1F 8B. One that is damaged
/// or cut off behind them, and a device that fails, never looks like an end: what is whole can be
/// read, and then reading throws `Read_Failure`, now and ever after, and `close()` `Close_Failure`.
/// A cut between two members cannot be told.
/// Quirk: a file that does not begin with the two bytes is plain, and is read as it is.
/// Quirk: what follows a whole member without them is ignored in silence, be it a member whose
/// first bytes are damaged, with all behind it.
///
///     ZFile file("data.gz");
///     file.openIn();
///     file.moveCurBytePos(1000000);  // Decompresses what lies between.
///     file.setCurBytePos(0);         // Throws `SetBytePos_NegativeMove`: open it again instead.
class ZFile : public FileBase {
public:
    ZFile() = default;
    explicit ZFile(const std::string& name) : FileBase(name) {}
    ZFile(const ZFile&) = delete;
    ZFile& operator=(const ZFile&) = delete;
    ~ZFile() noexcept(false) override;

    /// Open what the caller has opened, under a name that nothing expands, and whose bytes are
    /// neither looked at for a mark nor given one. The descriptor, which should not pass to other
    /// programs, is taken over; if anything is thrown, it is closed. `openRawIn` reads no plain
    /// data: it throws `Read_Failure` for what does not begin with a member, and for no data at
    /// all.
    void openRawIn(TarvikCorelib::Descriptor from, const std::string& rawName);
    void openRawOut(TarvikCorelib::Descriptor to, const std::string& rawName);

    long long getCurBytePos() const override;
    using FileBase::readUntil;
    bool readUntil(std::string& text, char delimiter) override;

protected:
    void _setCurBytePos(long long wanted) override;
    void _moveCurBytePos(long long distance) override;
    void _openIn() override;
    void _openOut() override;
    void _openAppend() override;
    void _openReadWrite(ReadWriteOption option) override;
    void _close() override;
    void _readBuffer(FileData& wanted) override;
    /// Quirk: the position moves by `count` even where fewer bytes can be put back.
    void _putback(unsigned long long count) override;
    bool _atEnd() override;
    void _writeBuffer(const char* data, unsigned long size) override;
    /// Quirk: ends the compressed member, and what is written next begins another one.
    void _flush() override;

private:
    struct Closer {
        void operator()(gzFile_s* open) const;
    };

    void openRaw(TarvikCorelib::Descriptor descriptor, const std::string& rawName,
                 const FileMode& mode);
    void openNamed(const FileMode& mode);
    void take(gzFile_s* opened, int error, const FileMode& mode);
    bool hasError() const;
    /// After a read that gave nothing. Not before, for what comes before a failure is to be read.
    void noteStop();
    void lookAhead();
    /// The bytes up to the delimiter, which is one of them.
    void fetchUntil(std::string& text, char delimiter);

    std::unique_ptr<gzFile_s, Closer> file;
    bool end = false;        ///< No byte is left.
    long long position = 0;  ///< Before compression.
    PutBackRing ring;
    unsigned char ahead = 0;  ///< The byte behind those of the ring, if it has been read yet.
    bool aheadFull = false;
    bool failed = false;  ///< Nothing more is to be read, ever.
};

}  // namespace TarvikFilelib
