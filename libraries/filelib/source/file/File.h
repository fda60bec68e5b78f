/// A file that is plain or compressed, by its name.
#pragma once

#include "libraries/filelib/source/file/FileBase.h"

#include <memory>
#include <string>

namespace TarvikFilelib {

/// A name whose text behind the last "." is "gz", in any case, is a `ZFile`, any other a
/// `BasicFile`. Everything is done by that inner file, and its name, state, encoding and positions
/// are the ones that count.
///
/// Without a name there is no inner file: reading throws `Read_CannotRead`.
/// Quirk: all else does nothing then, so what is "written" is lost.
///
///     File log("run.log.gz");  // Compressed, by its name.
///     log.openOut();
///     log.writeLine("begin");
///     log.close();  // Throws if anything could not be written.
///
///     log.openIn();
///     while (log.readLine(line)) use(line);
class File : public FileBase {
public:
    using File_OutOfMemory = TarvikCorelib::NamedException<File, "File_OutOfMemory">;
    using SetName_AlreadySet = TarvikCorelib::NamedException<File, "SetName_AlreadySet">;

    File() = default;
    explicit File(const std::string& name) { makeInner(name); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() noexcept(false) override;

    const std::string& getName() const override;
    Unicode::UnicodeEncoding getEncoding() const override;
    int getState() const override;
    long long getCurBytePos() const override;
    unsigned long long getNumLinesRead() const override;
    unsigned long long getNumLinesReadBeforeLastRead() const override;
    /// Once: throws `SetName_AlreadySet` if there is a name.
    void setName(const std::string& newName) override;
    void setEncoding(Unicode::UnicodeEncoding newEncoding) override;
    void testEncoding() override;
    void writeBom() override;

    using FileBase::read;
    char read() override;
    unsigned int readUnicode() override;
    std::string read(unsigned long count) override;
    std::string readUntil(char delimiter) override;
    bool readUntil(std::string& text, char delimiter) override;

    void write(char byte) override;
    void writeUnicode(unsigned int codePoint) override;
    void write(const std::string& text) override;
    void write(const Unicode& text) override;
    void write(const std::string& text, char end) override;
    void write(const Unicode& text, unsigned int end) override;
    void writeLine(const std::string& text) override;
    void writeLine(const Unicode& text) override;
    void flush() override;
    void writeBuffer(const char* data, unsigned long size) override;

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
    void makeInner(const std::string& name);
    /// The inner file, to read from it. Throws `Read_CannotRead` if there is none.
    FileBase& source();

    std::unique_ptr<FileBase> inner;
};

}  // namespace TarvikFilelib
