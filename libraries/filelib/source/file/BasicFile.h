/// A file of the file system, over a C stream.
#pragma once

#include "libraries/filelib/source/file/FileBase.h"

#include <cstdio>
#include <memory>
#include <string>

namespace TarvikFilelib {

/// After each read it looks one byte ahead, so that `atEnd()` is true as soon as no byte is left.
/// That byte is put back into the stream, which costs no seek and works on pipes. After a seek this
/// waits until the end is asked for: a stream turns from reading to writing by a seek and no read.
///
/// An error of the device fails the call that meets it and no later one.
///
///     BasicFile file("a.txt");
///     file.openReadWrite(FileBase::ReadWriteTruncate);
///     file.write("one\ntwo\n");
///     file.setCurBytePos(-4);
///     file.readUntil('\n');  // "two"
///     file.atEnd();          // true
class BasicFile : public FileBase {
public:
    BasicFile() = default;
    explicit BasicFile(const std::string& name) : FileBase(name) {}
    BasicFile(const BasicFile&) = delete;
    BasicFile& operator=(const BasicFile&) = delete;
    ~BasicFile() noexcept(false) override;

    long long getCurBytePos() const override;
    using FileBase::readUntil;
    bool readUntil(std::string& text, char delimiter) override;

protected:
    void _setCurBytePos(long long position) override;
    void _moveCurBytePos(long long distance) override;
    void _openIn() override;
    void _openOut() override;
    void _openAppend() override;
    void _openReadWrite(ReadWriteOption option) override;
    void _close() override;
    void _readBuffer(FileData& wanted) override;
    void _putback(unsigned long long count) override;
    bool _atEnd() override;
    void _writeBuffer(const char* data, unsigned long size) override;
    void _flush() override;

private:
    struct Closer {
        void operator()(std::FILE* open) const;
    };

    void openStream(const FileMode& mode);
    void seek(long long offset, int origin, const char* word);
    void lookAhead();
    void forgetFailure();
    /// The bytes up to the delimiter, which is one of them.
    void fetchUntil(std::string& text, char delimiter);

    std::unique_ptr<std::FILE, Closer> file;
    bool end = false;  ///< No byte is left.
    bool endKnown = true;
};

}  // namespace TarvikFilelib
