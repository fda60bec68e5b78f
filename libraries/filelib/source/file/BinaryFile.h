/// A file of plain bytes: no encoding, no lines.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"
#include "libraries/corelib/source/system/Descriptor.h"
#include "libraries/filelib/source/file/FileBase.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace TarvikFilelib {

/// A small wrapper of a stdio stream. The name is used as it is given: nothing in it is expanded,
/// so this class opens the very file it was told to. One with a NUL is that of no file.
///
/// Reading and writing share one position. The states are those of `FileBase`. For one thread at a
/// time.
///
///     BinaryFile file("image.bin");
///     file.openIn();
///     if (!file.read(header, 16)) fail();  // Fewer than 16 bytes; they are in `header`.
///     file.setCurPos(-4);
///     if (!file.read(trailer, 4)) fail();
class BinaryFile {
public:
    using Open_FileMustExist = TarvikCorelib::NamedException<BinaryFile, "Open_FileMustExist">;
    using Open_Failure = TarvikCorelib::NamedException<BinaryFile, "Open_Failure">;
    using Close_Failure = TarvikCorelib::NamedException<BinaryFile, "Close_Failure">;
    using Read_EndOfFile = TarvikCorelib::NamedException<BinaryFile, "Read_EndOfFile">;
    using Read_Failure = TarvikCorelib::NamedException<BinaryFile, "Read_Failure">;
    using Write_CannotWrite = TarvikCorelib::NamedException<BinaryFile, "Write_CannotWrite">;
    using Write_Failure = TarvikCorelib::NamedException<BinaryFile, "Write_Failure">;
    using SetBytePos_FileClosed =
        TarvikCorelib::NamedException<BinaryFile, "SetBytePos_FileClosed">;
    using SetBytePos_Failure = TarvikCorelib::NamedException<BinaryFile, "SetBytePos_Failure">;
    using SetName_FileOpen = TarvikCorelib::NamedException<BinaryFile, "SetName_FileOpen">;

    BinaryFile() = default;
    explicit BinaryFile(std::string name) : name(std::move(name)) {}
    BinaryFile(const BinaryFile&) = delete;
    BinaryFile& operator=(const BinaryFile&) = delete;
    /// Closes the file. What could not be written then throws `Close_Failure`, unless another
    /// exception is under way; so keep no such objects in containers, or close them first.
    virtual ~BinaryFile() noexcept(false);  // NOLINT(bugprone-exception-escape)

    virtual std::string getName() const { return name; }
    /// A mask: 1 open, 2 readable, 4 writable, 8 appending; 0 is closed.
    virtual int getState() const { return state; }
    /// Throws `SetName_FileOpen` on an open file.
    virtual void setName(const std::string& newName);
    /// Throw `Write_CannotWrite` if the file is not open for writing, else `Write_Failure`. Many
    /// failures show only in `flush` or `close`.
    virtual void write(char byte);
    virtual void write(const std::string& bytes);
    /// Hands what was written to the system. Does nothing on a closed file.
    virtual void flush();

    // --- opening. An open file is closed first. `Open_Failure` names the mode and the error.

    /// `Open_FileMustExist` without a name or a file of that name.
    void openIn();
    void openOut();
    void openAppend();
    /// Any other number than those of the options is an `Open_Failure`.
    void openReadWrite(FileBase::ReadWriteOption option);
    /// For writing, on a name that does not exist yet; a link in its place counts as existing. The
    /// word in `Open_Failure` is "out".
    void openNew();
    /// On what is open already. The name is left for the texts. On failure it is closed.
    void openIn(TarvikCorelib::Descriptor descriptor);
    void openOut(TarvikCorelib::Descriptor descriptor);
    /// Does nothing on a closed file. On failure the file is closed nevertheless.
    void close();

    // --- properties

    /// Whether there is anything of that name, dangling links too.
    bool exists() const;
    /// Of the open file, without what is not flushed yet; of the name if it is closed, 0 if that
    /// is missing. Does not follow links then.
    long long getByteSize() const;
    /// The file's descriptor, which stays owned here; -1 if it is closed.
    int getDescriptor() const;
    /// Whether no byte is left. True if it is not open for reading.
    bool atEnd();

    // --- reading. `Read_EndOfFile` if the file is not open or its end has been met before.

    /// The byte, or -1 when the end is met.
    int read();
    /// Appends so many bytes, and returns whether all of them came.
    bool read(std::string& bytes, std::size_t count);

    // --- positions. `SetBytePos_FileClosed` on a closed file.

    /// From the start, or for a negative position from the end.
    void setCurPos(long long position);
    void moveCurPos(long long distance);

private:
    enum class Operation : std::uint8_t { None, Read, Write };

    void open(const FileMode& mode);
    void open(TarvikCorelib::Descriptor descriptor, const FileMode& mode);
    void startOpening();
    void adopt(std::FILE* opened, const FileMode& mode);
    void seek(long long offset, int whence, const char* word);
    /// The stream demands a seek between reading and writing.
    bool turnTo(Operation next);
    void prepareRead();
    std::size_t readBytes(char* bytes, std::size_t count);
    void writeBytes(const char* bytes, std::size_t count);

    std::FILE* file = nullptr;
    std::string name;
    int state = 0;
    /// Bytes read since the position was set last.
    long long bytePos = 0;
    Operation lastOperation = Operation::None;
    std::vector<char> buffer;  ///< The stream's, to the end of its closing.
};

}  // namespace TarvikFilelib
