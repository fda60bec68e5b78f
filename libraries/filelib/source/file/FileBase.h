/// What all text files have in common: encodings, lines, and a position to read and one to write.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"
#include "libraries/corelib/source/system/Unicode.h"
#include "libraries/filelib/source/file/FileMode.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace TarvikFilelib {

/// A file of bytes or text. It is closed at first; a failed opening leaves it closed.
///
/// Bytes are read and written as they are in every encoding; only the operations with "Unicode" in
/// their names, and those that take a `Unicode`, decode and encode. The mark at the start of a
/// file gives its encoding, and nothing else does.
///
/// A file open for both reads on where it has just written, and the reverse. Only one that appends
/// has two positions: writing then leaves the one for reading alone.
///
/// A failed close throws from the destructors too, unless another exception is under way, for the
/// last bytes may be lost with it. Containers and smart pointers end the program when an element's
/// destructor throws: call `close()` before such an owner lets a written file go.
///
/// An object belongs to one thread at a time.
class FileBase {
public:
    using Read_CannotRead = TarvikCorelib::NamedException<FileBase, "Read_CannotRead">;
    using Read_EndOfFile = TarvikCorelib::NamedException<FileBase, "Read_EndOfFile">;
    using Read_OutOfMemory = TarvikCorelib::NamedException<FileBase, "Read_OutOfMemory">;
    using Read_Failure = TarvikCorelib::NamedException<FileBase, "Read_Failure">;
    using Write_CannotWrite = TarvikCorelib::NamedException<FileBase, "Write_CannotWrite">;
    using Write_Failure = TarvikCorelib::NamedException<FileBase, "Write_Failure">;
    using Open_FileMustExist = TarvikCorelib::NamedException<FileBase, "Open_FileMustExist">;
    using Open_Failure = TarvikCorelib::NamedException<FileBase, "Open_Failure">;
    using Open_NotSupported = TarvikCorelib::NamedException<FileBase, "Open_NotSupported">;
    using Close_Failure = TarvikCorelib::NamedException<FileBase, "Close_Failure">;
    using SetName_FileOpen = TarvikCorelib::NamedException<FileBase, "SetName_FileOpen">;
    using SetEncoding_FileOpen = TarvikCorelib::NamedException<FileBase, "SetEncoding_FileOpen">;
    using SetBytePos_FileClosed = TarvikCorelib::NamedException<FileBase, "SetBytePos_FileClosed">;
    using SetBytePos_Failure = TarvikCorelib::NamedException<FileBase, "SetBytePos_Failure">;
    using SetBytePos_NegativeMove =
        TarvikCorelib::NamedException<FileBase, "SetBytePos_NegativeMove">;

    using Unicode = TarvikCorelib::Unicode;

    enum ReadWriteOption : std::int32_t {
        ReadWriteExisting = 0,  ///< From the start; the file must exist.
        ReadWriteTruncate = 1,
        ReadWriteAppend = 2,  ///< Every write goes to the end.
    };

    /// A buffer to read into, which it owns.
    struct FileData {
        /// Throws `Read_OutOfMemory`.
        explicit FileData(unsigned long size);
        FileData(FileData&& other) noexcept;
        FileData& operator=(FileData&& other) noexcept;
        FileData(const FileData&) = delete;
        FileData& operator=(const FileData&) = delete;
        ~FileData();

        char* data;
        unsigned long size;      ///< Bytes wanted.
        unsigned long read = 0;  ///< Bytes obtained.
    };

    FileBase() = default;
    /// The name is expanded, and its links are followed, once and here: a "$" or "%" in it may
    /// stand for a variable, and one that leads above its own start ("../x") throws. A name with a
    /// NUL is that of no file.
    explicit FileBase(const std::string& name);
    FileBase(const FileBase&) = delete;
    FileBase& operator=(const FileBase&) = delete;
    virtual ~FileBase() noexcept(false);

    virtual const std::string& getName() const;
    virtual Unicode::UnicodeEncoding getEncoding() const;
    /// A mask of `FileState`.
    virtual int getState() const;
    /// In bytes from the start: 0 for a closed file, -1 for a pipe.
    virtual long long getCurBytePos() const = 0;
    /// The line feeds passed since the opening by `read()` and the `readUntil` family.
    /// Quirk: one that is read to find the encoding counts once more when it is read again.
    virtual unsigned long long getNumLinesRead() const;
    virtual unsigned long long getNumLinesReadBeforeLastRead() const;
    /// Throw `SetName_FileOpen` and `SetEncoding_FileOpen` on an open file. The encoding stays for
    /// all later openings; only an unknown one is looked for again.
    virtual void setName(const std::string& newName);
    virtual void setEncoding(Unicode::UnicodeEncoding newEncoding);

    // --- the primitives, which each kind of file supplies
protected:
    /// A negative number counts from the end.
    virtual void _setCurBytePos(long long position) = 0;
    virtual void _moveCurBytePos(long long distance) = 0;
    virtual void _openIn() = 0;
    virtual void _openOut() = 0;
    virtual void _openAppend() = 0;
    virtual void _openReadWrite(ReadWriteOption option) = 0;
    virtual void _close() = 0;

public:
    /// Tells the encoding from the mark at the read position, and leaves that position behind it,
    /// or where it was if there is none. Each opening does it. An empty file stays unknown. Quirk:
    /// throws `SetBytePos_Failure` for a file that ends inside a mark.
    virtual void testEncoding();
    /// Writes the mark of the encoding, once after each opening.
    virtual void writeBom();

    // --- reading: `Read_CannotRead`, then `Read_EndOfFile`, then the failure of the system

    /// The next byte.
    virtual char read();
    /// The next code point. A plain file has only bytes below 0x80.
    virtual unsigned int readUnicode();
    /// At most `count` bytes, fewer only at the end of the file or before damaged data.
    virtual std::string read(unsigned long count);
    /// The bytes up to the delimiter, which is passed over, or to the end.
    virtual std::string readUntil(char delimiter);
    /// Appends them to `text`. Returns false, and does not throw, if the file was at its end. If
    /// reading fails, `text` has the bytes before the failure.
    virtual bool readUntil(std::string& text, char delimiter);

protected:
    /// Reads at most `wanted.size` bytes, of which there is one at least, and sets `wanted.read`.
    virtual void _readBuffer(FileData& wanted) = 0;
    virtual void _putback(unsigned long long count) = 0;
    virtual bool _atEnd() = 0;

public:
    // --- writing: `Write_CannotWrite` or `Write_Failure`; of nothing, nothing

    virtual void write(char byte);
    /// In the encoding of the file; if it has none, "#" and the number.
    virtual void writeUnicode(unsigned int codePoint);
    virtual void write(const std::string& text);
    virtual void write(const Unicode& text);
    /// The text, and then `end`.
    virtual void write(const std::string& text, char end);
    virtual void write(const Unicode& text, unsigned int end);
    /// The text and a line feed, which only the second one encodes.
    virtual void writeLine(const std::string& text);
    virtual void writeLine(const Unicode& text);
    /// Hands what was written to the system. Does nothing on a file that is not open for writing.
    virtual void flush();
    virtual void writeBuffer(const char* data, unsigned long size);

protected:
    virtual void _writeBuffer(const char* data, unsigned long size) = 0;
    virtual void _flush() = 0;

public:
    // --- opening and closing; an open file is closed first

    /// Throws `Open_FileMustExist` for what is missing, nameless or a directory. To tell the
    /// encoding takes going back, so a pipe needs an encoding.
    void openIn();
    void openIn(Unicode::UnicodeEncoding encoding);
    void openOut();
    void openOut(Unicode::UnicodeEncoding encoding);
    void openAppend();
    void openAppend(Unicode::UnicodeEncoding encoding);
    /// Any other number than those of the options is an `Open_Failure`.
    void openReadWrite(ReadWriteOption option);
    void openReadWrite(Unicode::UnicodeEncoding encoding, ReadWriteOption option);
    /// Throws `Close_Failure`; the file is closed all the same.
    void close();

    /// There is something with the name, be it a dangling link, and it is no directory.
    bool exists() const;
    /// As stored: that of a compressed file is its compressed size. 0 for what is missing.
    long long getRawByteSize() const;

    /// Throw `SetBytePos_FileClosed`, `SetBytePos_Failure` and `SetBytePos_NegativeMove`. A
    /// negative position counts from the end.
    void setCurBytePos(long long position);
    void moveCurBytePos(long long distance);
    /// No byte is left. On an empty pipe it waits for the next one.
    bool atEnd();

    /// `readUntil` a line feed. A carriage return before it stays in the text.
    bool readLine(std::string& text);
    /// Replaces `text`; true if all bytes came.
    bool read(std::string& text, unsigned long count);
    FileData readBuffer(unsigned long size);
    /// Decodes up to the delimiter, which is passed over, or to the end.
    /// Quirk: a delimiter that is the last code point of the file is text.
    Unicode readUnicodeUntil(unsigned int delimiter);

protected:
    unsigned int readUTF8();
    unsigned int readUTF16LE();
    unsigned int readUTF16BE();
    /// The next bytes as a number, its lowest byte first or last.
    std::uint16_t read2Bytes(bool littleEndian);
    std::uint32_t read4bytes(bool littleEndian);
    /// Back to the first values, all but the name.
    void init() { now = {}; }
    /// What all openings share: `open` is one of the primitives, `prepare` reads or writes the
    /// mark.
    void openAs(std::int32_t state, const std::function<void()>& open,
                const std::function<void()>& prepare);
    /// For openings under a name that is taken as it is.
    void setRawName(const std::string& rawName) { name = rawName; }
    bool isReadable() const { return (getState() & FileReadable) != 0; }
    /// What the destructors of the concrete classes do: `close()`, in silence if another exception
    /// is under way.
    void closeAtLast();
    /// The `readUntil` of a class that can do better than a byte at a time: `fetch` appends the
    /// bytes, with the delimiter, to the text.
    template <class Fetch>
    bool readUntilBy(const Fetch& fetch, std::string& text, char delimiter) {
        startRead();
        now.linesBefore = now.lines;
        const std::size_t start = text.size();
        try {
            fetch(text, delimiter);
        } catch (...) {
            passLines(text, start, delimiter);
            throw;
        }
        passLines(text, start, delimiter);
        if (text.size() == start) return false;
        if (text.back() == delimiter) text.pop_back();
        return true;
    }

private:
    friend class File;  // Forwards the primitives to another file.
    enum Operation : std::int32_t { NoOperation = 0, ReadOperation = 1, WriteOperation = 2 };
    struct Condition {
        Unicode::UnicodeEncoding encoding = Unicode::UnknownEncoding;
        bool bomWritten = false;
        std::int32_t state = FileClosed;
        std::uint64_t lines = 0;
        std::uint64_t linesBefore = 0;
        std::int32_t lastOperation = NoOperation;
        std::int64_t readPosition = 0;
        std::int64_t writePosition = 0;
    };

    bool isWritable() const { return (getState() & (FileWritable | FileAppending)) != 0; }
    void writeBomIfNew();
    /// Throws `Read_CannotRead`, and goes to where reading goes on after a write.
    void startRead();
    /// Goes to where writing goes on after a read.
    void startWrite();
    void ensureNotAtEnd();
    /// One `_readBuffer`, with what goes before and after. Of nothing, nothing.
    void fill(FileData& wanted);
    void finish(Operation operation, std::int64_t& position);
    void passLines(const std::string& text, std::size_t start, char delimiter);
    void rememberPosition();
    std::string encoded(unsigned int codePoint) const;
    std::uint32_t readNumber(std::size_t bytes, bool littleEndian);

    std::string name;
    Condition now;
};

}  // namespace TarvikFilelib
