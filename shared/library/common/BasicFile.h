/// The buffered file of the older library: lines, blocks and positions over one C stream.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
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

/// What a caller says it will do next. Operations that take one ignore it: the class remembers its
/// last operation itself.
enum FileOperation : std::int32_t {
    OperationRead = 0,
    OperationWrite = 1,
    OperationAny = 2,
    OperationNone = 4,
};

/// Where `seek` counts its offset from.
enum FilePosBase : std::int32_t { FromStart = 0, FromEnd = 1, FromCurrent = 2 };

/// The values of `getLastError`.
enum FileError : std::int32_t {
    FileNoError = 0,
    FileNotOpen = 1,
    FileAlreadyOpen = 2,
    FileUnknownAccessMode = 3,
    FileOpenFailed = 4,
    FileUnknownPosBase = 5,
    FileNotReadable = 6,
    FileReadFailed = 7,
    FileNotWriteable = 8,  ///< Also for a flush that fails.
    FileShortWrite = 9,
    FileSeekFailed = 12,
    FileControlCharacter = 13,
};

/// A file that is read by lines or blocks, or written.
///
/// Reading goes through a buffer of 1024 bytes of its own on top of the C stream: a line is found
/// by one search of memory, and the stream's position is counted along instead of asked for. Before
/// a write, the stream is set back to the first byte that the caller has not got yet.
///
/// The file ends at its measured size: as it was when opened, or as `getSize` found it after a
/// write. Bytes that another process appends later are not read, so a growing file ends, too.
///
/// Opening never waits for another process. A directory cannot be opened, nor a FIFO in any mode:
/// a reader that never reads must not hold up the writer for ever. Devices can be opened, and
/// "/dev/stdout" can be written even if it is a pipe.
///
/// An operation that fails returns false or an empty text, and `getLastError` gives the reason
/// until the next operation that sets it. Nothing throws but `std::bad_alloc`, which `open` also
/// throws when the system or the C library has no memory for the file. For use by one thread.
///
///     BasicFile file;
///     if (!file.open("a.conf", AccessRead)) return file.getLastError();
///     std::string line;
///     while (!file.atEof(OperationRead) && file.readLine(line)) use(line);
class BasicFile {
public:
    BasicFile() = default;
    BasicFile(const BasicFile&) = delete;
    BasicFile& operator=(const BasicFile&) = delete;
    virtual ~BasicFile();

    // --- opening and closing

    /// Fails if a file is open already, which then stays open. `AccessClosed` opens nothing and
    /// returns true. Writing modes but `AccessUpdate` create the file.
    bool open(const std::string& name, FileAccessMode mode);
    /// Does nothing if no file is open. The name and the last error stay.
    void close();

    // --- reading, all through the one buffer

    /// The bytes up to the next line feed or the end of the file, without the line feed and without
    /// any carriage return, not only one at the end. Empty also on failure (`FileNotReadable`,
    /// `FileReadFailed`); the part of the line that was read is then lost.
    std::string readLine();
    /// The same into a string, whose memory is used again. Returns false on failure.
    bool readLine(std::string& line);
    /// The same without a copy, where the line lies in the buffer as a whole and the buffer has no
    /// carriage return; another line is read into `spare`. The view holds until the next operation.
    std::string_view viewLine(std::string& spare);
    /// Replaces `out` by the next `count` bytes, or fewer at the end of the file. Returns false if
    /// the file is not readable or a read fails; `out` then holds the bytes before the failure.
    bool read(std::string& out, long long count);
    /// The same; a failure shows in `getLastError` only.
    std::string read(long long count);
    /// True at the measured end, and for a file that is closed or not readable. Also true after two
    /// fills of the buffer in a row without a byte, so that a loop over the lines ends for a file
    /// that shrinks or keeps failing.
    bool atEof(FileOperation op);

    // --- positions, in bytes from 0

    /// Fails for a position before the start; one behind the end is allowed.
    bool seek(long long offset, FilePosBase base, FileOperation op);
    /// The position of the next byte to read or write; -1 if closed.
    long long getPos(FileOperation op);
    /// Bytes; -1 if closed. Measures the file again after a write.
    long long getSize();
    /// Measures the file by going to its end and back. The size is 0 if it has no positions.
    void setSizeBySeek();

    // --- writing

    /// Fails with `FileNotWriteable` or `FileShortWrite`. A file that cannot be written to can
    /// also show at `flush` only, since the C stream buffers.
    bool write(const std::string& bytes);
    /// Writes the text and one line feed.
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
    /// Fills in a row without a byte that count as the end of the file.
    static constexpr int FillsUntilEnd = 2;

    struct StreamCloser {
        void operator()(std::FILE* stream) const;
    };

    using Stream = std::unique_ptr<std::FILE, StreamCloser>;

    /// Sets the last error and returns false.
    bool fail(FileError error);
    bool prepareToRead();
    bool prepareToWrite();
    /// Returns false if no byte came.
    bool fillBuffer();
    /// Asks the stream for its position. Keeps the counted one if the stream has none (a terminal).
    void askPosition();
    void emptyBuffer();
    [[nodiscard]] bool readFailed();
    [[nodiscard]] std::size_t unreadBytes() const { return bufferEnd - bufferPos; }

    std::string name;
    FileAccessMode accessMode = AccessClosed;
    /// The C stream's buffer: declared before the stream, so it lives longer.
    std::vector<char> streamBuffer;
    Stream stream;
    std::int64_t size = 0;   ///< Bytes, as last measured.
    bool sizeKnown = false;  ///< False after a write, until measured again.
    FileOperation lastOperation = OperationNone;
    std::int32_t lastError = FileNoError;
    std::array<char, BufferSize> buffer{};
    std::uint64_t bufferPos = 0;      ///< Index of the next unread byte.
    std::uint64_t bufferEnd = 0;      ///< Behind the last byte.
    bool bufferHoldsReturns = false;  ///< If not, lines are taken without a look at their bytes.
    bool fillFailed = false;          ///< The last one.
    /// The stream's position, behind the buffered bytes.
    std::int64_t streamPos = 0;
    /// Fills in a row that brought no byte.
    int emptyFills = 0;
};

// Inline, since each line of a large file passes through both.
inline std::string_view BasicFile::viewLine(std::string& spare) {
    // Only what was read lies in the buffer: whatever is not a reading empties it.
    const std::string_view unread(buffer.data() + bufferPos, unreadBytes());
    const std::size_t end = unread.find('\n');
    // After a failed fill, each line of the buffer is a failure, too.
    if (end == std::string_view::npos || bufferHoldsReturns || fillFailed) {
        readLine(spare);
        return spare;
    }
    lastError = FileNoError;
    bufferPos += end + 1;
    return unread.substr(0, end);
}

inline bool BasicFile::atEof(FileOperation /*op*/) {
    if (accessMode != AccessRead && !isReadable()) return true;
    return emptyFills >= FillsUntilEnd ||
           size <= streamPos - static_cast<std::int64_t>(unreadBytes());
}

}  // namespace Tarvik
