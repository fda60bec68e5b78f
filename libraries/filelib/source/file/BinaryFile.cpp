#include "libraries/filelib/source/file/BinaryFile.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/filelib/source/file/FileMessages.h"
#include "libraries/filelib/source/file/FileMode.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <exception>
#include <utility>

namespace TarvikFilelib {

using TarvikCorelib::Descriptor;
using TarvikCorelib::here;
using TarvikCorelib::made;

namespace {

constexpr FileMode modeNew{"wbxe", "out", FileOpen | FileWritable};

// Copies read and write blocks of any size. With a buffer of its own, the stream would make a
// system call of each page, and it takes no size without a buffer.
constexpr std::size_t streamBuffer = std::size_t{64} << 10U;

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): what is lost must be said.
BinaryFile::~BinaryFile() noexcept(false) {
    try {
        close();
    } catch (...) {
        if (std::uncaught_exceptions() == 0) throw;
    }
}

void BinaryFile::setName(const std::string& newName) {
    if (state != FileClosed)
        throw made<SetName_FileOpen>(messages::setNameFileOpen, here(), name, newName);
    name = newName;
}

// --- opening

void BinaryFile::openIn() {
    close();
    if (!exists()) throw made<Open_FileMustExist>(messages::openFileMustExist, here(), name);
    open(modeIn);
}

void BinaryFile::openOut() {
    open(modeOut);
}

void BinaryFile::openAppend() {
    open(modeAppend);
}

void BinaryFile::openReadWrite(FileBase::ReadWriteOption option) {
    open(readWriteMode(option));
}

void BinaryFile::openNew() {
    open(modeNew);
}

void BinaryFile::openIn(Descriptor descriptor) {
    open(std::move(descriptor), modeIn);
}

void BinaryFile::openOut(Descriptor descriptor) {
    open(std::move(descriptor), modeOut);
}

void BinaryFile::startOpening() {
    close();
    buffer.resize(streamBuffer);
}

void BinaryFile::open(Descriptor descriptor, const FileMode& mode) {
    startOpening();
    std::FILE* const opened = ::fdopen(descriptor.get(), mode.stdio);
    if (opened != nullptr) descriptor.release();
    adopt(opened, mode);
}

void BinaryFile::open(const FileMode& mode) {
    startOpening();
    adopt(openByName(name, mode, ::fopen64), mode);
}

void BinaryFile::adopt(std::FILE* opened, const FileMode& mode) {
    const int error = errno;
    if (opened == nullptr)
        throw made<Open_Failure>(messages::openFailure, here(), name,
                                 messages::openReason(mode.word, error));
    file = opened;
    std::setvbuf(file, buffer.data(), _IOFBF, streamBuffer);
    state = mode.state;
    bytePos = 0;
    lastOperation = Operation::None;
}

void BinaryFile::close() {
    if (state == FileClosed) return;
    std::FILE* const closing = std::exchange(file, nullptr);
    state = FileClosed;
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the stream is gone, failed or not.
    if (std::fclose(closing) != 0) throw made<Close_Failure>(messages::closeFailure, here(), name);
}

// --- properties

bool BinaryFile::exists() const {
    struct stat found {};
    return lstat(TarvikCorelib::systemName(name).c_str(), &found) == 0;
}

long long BinaryFile::getByteSize() const {
    struct stat found {};
    const int result = file != nullptr ? fstat(getDescriptor(), &found)
                                       : lstat(TarvikCorelib::systemName(name).c_str(), &found);
    return result == 0 ? found.st_size : 0;
}

int BinaryFile::getDescriptor() const {
    return file != nullptr ? ::fileno(file) : -1;
}

bool BinaryFile::atEnd() {
    if ((state & FileReadable) == 0) return true;
    if (std::feof(file) != 0) return true;
    char next = 0;
    if (readBytes(&next, 1) == 0) return true;
    std::ungetc(static_cast<unsigned char>(next), file);
    return false;
}

void BinaryFile::flush() {
    if (state != FileClosed && std::fflush(file) != 0)
        throw made<Write_Failure>(messages::writeFailure, here(), name);
}

// --- reading

int BinaryFile::read() {
    prepareRead();
    char byte = 0;
    if (readBytes(&byte, 1) == 0) return -1;
    ++bytePos;
    return static_cast<unsigned char>(byte);
}

bool BinaryFile::read(std::string& bytes, std::size_t count) {
    constexpr std::size_t pieceSize = 4096;
    if (count == 0) return true;
    prepareRead();
    std::array<char, pieceSize> piece;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled.
    while (count > 0) {
        const std::size_t wanted = std::min(count, piece.size());
        const std::size_t got = readBytes(piece.data(), wanted);
        bytes.append(piece.data(), got);
        bytePos += static_cast<long long>(got);
        if (got < wanted) return false;
        count -= got;
    }
    return true;
}

void BinaryFile::prepareRead() {
    if (state == FileClosed || std::feof(file) != 0)
        throw made<Read_EndOfFile>(messages::readEndOfFile, here());
}

std::size_t BinaryFile::readBytes(char* bytes, std::size_t count) {
    if (!turnTo(Operation::Read)) throw made<Read_Failure>(messages::readFailure, here(), name);
    const std::size_t got = std::fread(bytes, 1, count, file);
    if (got < count && std::ferror(file) != 0) {
        std::clearerr(file);  // One failure is not to make all later calls fail.
        throw made<Read_Failure>(messages::readFailure, here(), name);
    }
    return got;
}

// --- writing

void BinaryFile::write(char byte) {
    writeBytes(&byte, 1);
}

void BinaryFile::write(const std::string& bytes) {
    writeBytes(bytes.data(), bytes.size());
}

void BinaryFile::writeBytes(const char* bytes, std::size_t count) {
    if ((state & (FileWritable | FileAppending)) == 0)
        throw made<Write_CannotWrite>(messages::writeCannotWrite, here());
    if (count == 0) return;
    if (!turnTo(Operation::Write) || std::fwrite(bytes, 1, count, file) != count)
        throw made<Write_Failure>(messages::writeFailure, here(), name);
}

bool BinaryFile::turnTo(Operation next) {
    const bool turns = lastOperation != Operation::None && lastOperation != next;
    if (turns && ::fseeko64(file, 0, SEEK_CUR) != 0) return false;
    lastOperation = next;
    return true;
}

// --- positions

void BinaryFile::setCurPos(long long position) {
    if (position < 0)
        seek(position, SEEK_END, "BinaryFile::seek_end");
    else
        seek(position, SEEK_SET, "BinaryFile::seek_set");
    bytePos = 0;
}

void BinaryFile::moveCurPos(long long distance) {
    seek(distance, SEEK_CUR, "move");
}

void BinaryFile::seek(long long offset, int whence, const char* word) {
    if (state == FileClosed)
        throw made<SetBytePos_FileClosed>(messages::setBytePosFileClosed, here());
    if (::fseeko64(file, offset, whence) != 0)
        throw made<SetBytePos_Failure>(messages::setBytePosFailure, here(), offset, word);
    lastOperation = Operation::None;
}

}  // namespace TarvikFilelib
