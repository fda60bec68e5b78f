/// The buffered file of the older library: lines, blocks and positions over one C stream.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace Tarvik {

/// How a file is opened, and what may then be done with it.
enum FileAccessMode : std::int32_t {
    AccessClosed = 0,
    AccessRead = 1,          ///< "rb"
    AccessWrite = 2,         ///< "wb"
    AccessAppend = 3,        ///< "ab"
    AccessUpdate = 4,        ///< "r+b"
    AccessCreateUpdate = 5,  ///< "w+b"
    AccessAppendUpdate = 6,  ///< "a+b"
};

enum FileOperation : std::int32_t {
    OperationRead = 0,
    OperationWrite = 1,
    OperationAny = 2,
    OperationNone = 4,
};

enum FilePosBase : std::int32_t { FromStart = 0, FromEnd = 1, FromCurrent = 2 };

/// What `getLastError` answers.
enum FileError : std::int32_t {
    FileNoError = 0,
    FileNotOpen = 1,
    FileAlreadyOpen = 2,
    FileUnknownAccessMode = 3,
    FileOpenFailed = 4,
    FileUnknownPosBase = 5,
    FileNotReadable = 6,
    FileReadFailed = 7,
    FileNotWriteable = 8,  ///< Also: what was written could not be flushed.
    FileShortWrite = 9,
    FileSeekFailed = 12,
    FileControlCharacter = 13,
};

/// A file that is read by lines or blocks through a buffer of its own, or written.
///
/// Nothing throws: an operation that fails says so by its result, and `getLastError` says why until
/// the next operation that sets it. The end of the file is where its size as last measured ends:
/// when it was opened, or by `getSize` after a write. What another process appends is not read.
///
/// Opening never waits for another process. A directory cannot be opened, nor a FIFO in any mode:
/// a reader that never reads must not hold up the writer for ever. Devices can be opened, and
/// "/dev/stdout" can be written even if it is a pipe.
class BasicFile {
public:
    BasicFile() = default;
    BasicFile(const BasicFile&) = delete;
    BasicFile& operator=(const BasicFile&) = delete;
    virtual ~BasicFile();

    // --- opening and closing

    /// False, with what was open kept, when a file is open already. `AccessClosed` opens nothing
    /// and answers true.
    bool open(const std::string& name, FileAccessMode mode);
    void close();

    // --- reading, all through the one buffer

    /// The bytes up to the next line feed or the end of the file, without it and without any
    /// carriage return, wherever one stands. Blank also on failure (`FileNotReadable`,
    /// `FileReadFailed`), with what was read of the line lost.
    std::string readLine();
    /// The same into a string whose memory is used again; false on failure.
    bool readLine(std::string& line);
    /// Up to `count` bytes, fewer only at the end of the file. False, with what came in `out`, when
    /// the file is not readable or a read fails.
    bool read(std::string& out, long long count);
    std::string read(long long count);
    /// True for a file that is closed or not readable, at the size as last measured, and after two
    /// fills of the buffer in a row that brought no byte, so that a file that shrinks or keeps
    /// failing ends. The argument has no effect.
    bool atEof(FileOperation op);

    // --- positions, in bytes from 0

    bool seek(long long offset, FilePosBase base, FileOperation op);
    /// Where the next byte is read or written; -1 when closed. The argument has no effect.
    long long getPos(FileOperation op);
    /// -1 when closed. Measures anew after a write.
    long long getSize();
    void setSizeBySeek();

    // --- writing

    /// False with `FileNotWriteable` or `FileShortWrite`.
    bool write(const std::string& bytes);
    /// The text and one line feed.
    bool writeLine(const std::string& text);
    bool flush();

    /// Sets the last error to `FileControlCharacter` if the text holds a byte below 32 other than
    /// tab, line feed and carriage return, else to none.
    void validateLine(const std::string& text);

    [[nodiscard]] std::int32_t getLastError() const { return lastError; }
    /// The path of the last file that was opened, also after it was closed.
    [[nodiscard]] const std::string& getName() const { return name; }
    [[nodiscard]] FileAccessMode getAccessMode() const { return accessMode; }
    [[nodiscard]] bool isClosed() const { return accessMode == AccessClosed; }
    [[nodiscard]] bool isReadable() const;
    [[nodiscard]] bool isWriteable() const;

private:
    static constexpr std::size_t BufferSize = 1024;
    static constexpr std::size_t StreamBufferSize = 16384;

    struct StreamCloser {
        void operator()(std::FILE* stream) const;
    };

    bool fail(FileError error);
    bool prepareToRead();
    bool prepareToWrite();
    /// False when no byte came.
    bool fillBuffer();
    /// Leaves the position as it was counted where the stream, a terminal's say, has none.
    void askPosition();
    void emptyBuffer();
    [[nodiscard]] bool readFailed();
    [[nodiscard]] std::size_t unreadBytes() const { return bufferEnd - bufferPos; }

    std::string name;
    FileAccessMode accessMode = AccessClosed;
    /// The C library's own buffer; there for as long as the stream.
    std::vector<char> streamBuffer;
    std::unique_ptr<std::FILE, StreamCloser> stream;
    std::int64_t size = 0;
    bool sizeKnown = false;
    FileOperation lastOperation = OperationNone;
    std::int32_t lastError = FileNoError;
    std::array<char, BufferSize> buffer{};
    std::uint64_t bufferPos = 0;
    std::uint64_t bufferEnd = 0;
    bool bufferHoldsReturns = false;
    /// The stream's position, counted along: asking the stream for it at each line is slow.
    std::int64_t streamPos = 0;
    /// Fills in a row that brought no byte.
    int emptyFills = 0;
};

}  // namespace Tarvik
