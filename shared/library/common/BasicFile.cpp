#include "shared/library/common/BasicFile.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <string_view>
#include <utility>

namespace Tarvik {

namespace {

struct AccessTraits {
    const char* modeText;  ///< The mode for fdopen.
    int flags;             ///< The same mode for the system's open.
    bool reads;
    bool writes;
};

// Rows in the order of FileAccessMode.
constexpr auto accessTraits = std::to_array<AccessTraits>({
    {"", 0, false, false},
    {"rb", O_RDONLY, true, false},
    {"wb", O_WRONLY | O_CREAT | O_TRUNC, false, true},
    {"ab", O_WRONLY | O_CREAT | O_APPEND, false, true},
    {"r+b", O_RDWR, true, true},
    {"w+b", O_RDWR | O_CREAT | O_TRUNC, true, true},
    {"a+b", O_RDWR | O_CREAT | O_APPEND, true, true},
});

// Rows in the order of FilePosBase.
constexpr auto seekOrigins = std::to_array<int>({SEEK_SET, SEEK_END, SEEK_CUR});

constexpr mode_t newFilePermissions = 0666;

const AccessTraits& traitsOf(FileAccessMode mode) {
    return accessTraits[static_cast<std::size_t>(mode)];
}

// A pipe between processes has no name of its own and is opened by that of its descriptor, such as
// "/dev/stdout".
bool isUnnamedPipe(int descriptor) {
    struct statfs system {};
    return fstatfs(descriptor, &system) == 0 && system.f_type == PIPEFS_MAGIC;
}

// Refuses what may keep us waiting for another process. Everything else is set to wait in reads and
// writes as usual.
bool isUsable(int descriptor, const AccessTraits& access, struct stat& status) {
    if (fstat(descriptor, &status) != 0 || S_ISDIR(status.st_mode)) return false;
    // Nobody ever waits for a regular file.
    if (S_ISREG(status.st_mode)) return true;
    if (S_ISFIFO(status.st_mode) && (access.reads || !isUnnamedPipe(descriptor))) return false;
    return fcntl(descriptor, F_SETFL, access.flags & O_APPEND) == 0;
}

// Null if the file cannot be opened; a lack of memory is no property of the file and throws.
std::FILE* openStream(const std::string& name, const AccessTraits& access, struct stat& status) {
    errno = 0;
    std::FILE* stream = nullptr;
    // Without waiting for a process at the other end of a FIFO.
    const int descriptor =
        ::open(name.c_str(), access.flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, newFilePermissions);
    if (descriptor >= 0 && isUsable(descriptor, access, status)) {
        stream = fdopen(descriptor, access.modeText);
    }
    if (stream != nullptr) return stream;
    const bool outOfMemory = errno == ENOMEM;
    if (descriptor >= 0) ::close(descriptor);
    if (outOfMemory) throw std::bad_alloc();
    return nullptr;
}

// Copies the text between carriage returns as a whole: most lines have one, at their end.
void appendWithoutCarriageReturns(std::string& line, std::string_view bytes) {
    for (auto at = bytes.find('\r'); at != std::string_view::npos; at = bytes.find('\r')) {
        line.append(bytes.substr(0, at));
        bytes.remove_prefix(at + 1);
    }
    line.append(bytes);
}

}  // namespace

void BasicFile::StreamCloser::operator()(std::FILE* stream) const {
    // A failed flush is not reported; whoever must know calls `flush` before.
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): this is the owner's closer.
    std::fclose(stream);
}

BasicFile::~BasicFile() {
    close();
}

bool BasicFile::open(const std::string& newName, FileAccessMode mode) {
    if (!isClosed()) return fail(FileAlreadyOpen);
    if (mode < AccessClosed || mode > AccessAppendUpdate) return fail(FileUnknownAccessMode);
    if (mode == AccessClosed) return true;
    // Kept from file to file: the C library would allocate one for each.
    streamBuffer.resize(StreamBufferSize);
    struct stat status {};
    Stream opened(openStream(newName, traitsOf(mode), status));
    if (opened == nullptr) return fail(FileOpenFailed);
    std::setvbuf(opened.get(), streamBuffer.data(), _IOFBF, streamBuffer.size());
    name = newName;
    // Nothing throws from here on: the file is open as a whole or closed.
    stream = std::move(opened);
    accessMode = mode;
    streamPos = 0;
    // A stream that only appends starts behind the last byte.
    if (mode == AccessAppend && fseeko64(stream.get(), 0, SEEK_END) == 0) askPosition();
    emptyFills = 0;
    lastOperation = OperationNone;
    emptyBuffer();
    size = status.st_size;
    sizeKnown = S_ISREG(status.st_mode);
    if (isReadable() && !sizeKnown) setSizeBySeek();
    return true;
}

void BasicFile::close() {
    if (isClosed()) return;
    stream.reset();
    accessMode = AccessClosed;
    emptyBuffer();
}

std::string BasicFile::readLine() {
    std::string line;
    readLine(line);
    return line;
}

bool BasicFile::readLine(std::string& line) {
    line.clear();
    if (!prepareToRead()) return false;
    while (unreadBytes() > 0 || fillBuffer()) {
        const std::string_view unread(buffer.data() + bufferPos, unreadBytes());
        const std::size_t end = unread.find('\n');
        if (bufferHoldsReturns) {
            appendWithoutCarriageReturns(line, unread.substr(0, end));
        } else {
            line.append(unread.substr(0, end));
        }
        if (end != std::string_view::npos) {
            bufferPos += end + 1;
            break;
        }
        emptyBuffer();
    }
    lastOperation = OperationRead;
    if (!readFailed()) return true;
    line.clear();
    return fail(FileReadFailed);
}

bool BasicFile::read(std::string& out, long long count) {
    out.clear();
    if (!prepareToRead()) return false;
    auto missing = static_cast<std::uint64_t>(std::max(count, 0LL));
    while (missing > 0 && (unreadBytes() > 0 || fillBuffer())) {
        const std::uint64_t taken = std::min<std::uint64_t>(missing, unreadBytes());
        out.append(buffer.data() + bufferPos, taken);
        bufferPos += taken;
        missing -= taken;
    }
    lastOperation = OperationRead;
    return !readFailed() || fail(FileReadFailed);
}

std::string BasicFile::read(long long count) {
    std::string bytes;
    read(bytes, count);
    return bytes;
}

bool BasicFile::seek(long long offset, FilePosBase base, FileOperation /*op*/) {
    if (isClosed()) return fail(FileNotOpen);
    if (base < FromStart || base > FromCurrent) return fail(FileUnknownPosBase);
    // The stream is already past the bytes that are still unread in the buffer.
    if (base == FromCurrent) offset -= static_cast<long long>(unreadBytes());
    emptyBuffer();
    emptyFills = 0;
    const int origin = seekOrigins[static_cast<std::size_t>(base)];
    const bool moved = fseeko64(stream.get(), offset, origin) == 0;
    askPosition();
    return moved || fail(FileSeekFailed);
}

long long BasicFile::getPos(FileOperation /*op*/) {
    if (isClosed()) {
        fail(FileNotOpen);
        return -1;
    }
    return streamPos - static_cast<long long>(unreadBytes());
}

long long BasicFile::getSize() {
    if (isClosed()) {
        fail(FileNotOpen);
        return -1;
    }
    if (!sizeKnown) setSizeBySeek();
    return size;
}

void BasicFile::setSizeBySeek() {
    const long long position = getPos(OperationAny);
    if (position < 0 || !seek(0, FromEnd, OperationAny)) {
        size = 0;
        return;
    }
    size = streamPos;
    sizeKnown = true;
    seek(position, FromStart, OperationAny);
}

bool BasicFile::write(const std::string& bytes) {
    if (!prepareToWrite()) return false;
    const std::size_t written = std::fwrite(bytes.data(), 1, bytes.size(), stream.get());
    askPosition();
    return written == bytes.size() || fail(FileShortWrite);
}

bool BasicFile::writeLine(const std::string& text) {
    return write(text + '\n');
}

bool BasicFile::flush() {
    if (!isWriteable() || std::fflush(stream.get()) != 0) return fail(FileNotWriteable);
    return true;
}

void BasicFile::validateLine(const std::string& text) {
    constexpr unsigned char space = 32;
    const bool bad = std::any_of(text.begin(), text.end(), [](char byte) {
        return static_cast<unsigned char>(byte) < space && byte != '\t' && byte != '\n' &&
               byte != '\r';
    });
    lastError = bad ? FileControlCharacter : FileNoError;
}

bool BasicFile::isReadable() const {
    return traitsOf(accessMode).reads;
}

bool BasicFile::isWriteable() const {
    return traitsOf(accessMode).writes;
}

bool BasicFile::fail(FileError error) {
    lastError = error;
    return false;
}

bool BasicFile::prepareToRead() {
    lastError = FileNoError;
    if (!isReadable()) return fail(FileNotReadable);
    // A C stream needs its position set between a write and a read.
    if (lastOperation == OperationWrite) return seek(0, FromCurrent, OperationRead);
    return true;
}

bool BasicFile::prepareToWrite() {
    lastError = FileNoError;
    if (!isWriteable()) return fail(FileNotWriteable);
    // Behind the last byte that the caller got, not behind those that were only buffered.
    if (lastOperation == OperationRead && !seek(0, FromCurrent, OperationWrite)) return false;
    lastOperation = OperationWrite;
    sizeKnown = false;
    return true;
}

bool BasicFile::fillBuffer() {
    // An error of an earlier fill has been reported; it must not fail this one.
    std::clearerr(stream.get());
    emptyBuffer();
    // Not beyond the measured end: a read there costs one more system call.
    const std::int64_t left = size - streamPos;
    const std::size_t wanted =
        left > 0 ? std::min(buffer.size(), static_cast<std::size_t>(left)) : buffer.size();
    bufferEnd = std::fread(buffer.data(), 1, wanted, stream.get());
    streamPos += static_cast<std::int64_t>(bufferEnd);
    bufferHoldsReturns = std::memchr(buffer.data(), '\r', bufferEnd) != nullptr;
    fillFailed = readFailed();
    emptyFills = bufferEnd == 0 ? emptyFills + 1 : 0;
    return bufferEnd > 0;
}

void BasicFile::askPosition() {
    const std::int64_t position = ftello64(stream.get());
    if (position >= 0) streamPos = position;
}

void BasicFile::emptyBuffer() {
    bufferPos = bufferEnd = 0;
}

bool BasicFile::readFailed() {
    return std::ferror(stream.get()) != 0 && std::feof(stream.get()) == 0;
}

}  // namespace Tarvik
