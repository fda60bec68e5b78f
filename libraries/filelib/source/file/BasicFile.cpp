#include "libraries/filelib/source/file/BasicFile.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/filelib/source/file/FileMessages.h"

#include <cerrno>
#include <cstdlib>

namespace TarvikFilelib {

using TarvikCorelib::here;
using TarvikCorelib::made;

namespace {

struct Free {
    // NOLINTNEXTLINE(cppcoreguidelines-*): the C library has allocated it.
    void operator()(char* text) const { std::free(text); }
};

}  // namespace

void BasicFile::Closer::operator()(std::FILE* open) const {
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): called by the owner.
    static_cast<void>(std::fclose(open));
}

BasicFile::~BasicFile() noexcept(false) {
    closeAtLast();
}

// --- opening and closing

void BasicFile::openStream(const FileMode& mode) {
    std::FILE* const opened = openByName(getName(), mode, fopen64);
    const int error = errno;
    if (opened == nullptr)
        throw made<Open_Failure>(messages::openFailure, here(), getName(),
                                 messages::openReason(mode.word, error));
    file.reset(opened);
    end = false;
    if ((mode.state & FileReadable) != 0) lookAhead();
}

void BasicFile::_openIn() {
    openStream(modeIn);
}

void BasicFile::_openOut() {
    openStream(modeOut);
}

void BasicFile::_openAppend() {
    openStream(modeAppend);
}

void BasicFile::_openReadWrite(ReadWriteOption option) {
    openStream(readWriteMode(option));
}

void BasicFile::_close() {
    end = false;
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the stream is gone, failed or not.
    if (std::fclose(file.release()) != 0)
        throw made<Close_Failure>(messages::closeFailure, here(), getName());
}

// --- positions

long long BasicFile::getCurBytePos() const {
    return file ? ftello64(file.get()) : 0;
}

void BasicFile::_setCurBytePos(long long position) {
    if (position < 0) return seek(position, SEEK_END, "BasicFile::seek_end");
    seek(position, SEEK_SET, "BasicFile::seek_set");
}

void BasicFile::_moveCurBytePos(long long distance) {
    if (distance != 0) seek(distance, SEEK_CUR, "move");
}

void BasicFile::_putback(unsigned long long count) {
    _moveCurBytePos(-static_cast<long long>(count));
}

void BasicFile::seek(long long offset, int origin, const char* word) {
    if (fseeko64(file.get(), offset, origin) != 0)
        throw made<SetBytePos_Failure>(messages::setBytePosFailure, here(), offset, word);
    end = false;
    endKnown = false;
}

bool BasicFile::_atEnd() {
    if (!endKnown && isReadable()) lookAhead();
    return end;
}

void BasicFile::lookAhead() {
    if (std::feof(file.get()) == 0) {
        const int byte = std::getc(file.get());
        if (byte != EOF) std::ungetc(byte, file.get());
    }
    end = std::feof(file.get()) != 0;
    endKnown = true;
}

// --- reading and writing

// Clearing takes a lock, and there is rarely something to clear.
void BasicFile::forgetFailure() {
    if (std::ferror(file.get()) != 0 || std::feof(file.get()) != 0) std::clearerr(file.get());
}

void BasicFile::_readBuffer(FileData& wanted) {
    forgetFailure();
    wanted.read = std::fread(wanted.data, 1, wanted.size, file.get());
    if (std::ferror(file.get()) != 0)
        throw made<Read_Failure>(messages::readFailure, here(), getName());
    if (wanted.read == wanted.size) return lookAhead();
    end = true;
    endKnown = true;
    if (wanted.read == 0) throw made<Read_EndOfFile>(messages::readEndOfFile, here());
}

bool BasicFile::readUntil(std::string& text, char delimiter) {
    const auto fetch = [this](std::string& to, char last) { fetchUntil(to, last); };
    return readUntilBy(fetch, text, delimiter);
}

// One call for the whole line, with the results of one call a byte.
void BasicFile::fetchUntil(std::string& text, char delimiter) {
    if (_atEnd()) return;
    forgetFailure();
    char* allocated = nullptr;
    std::size_t capacity = 0;
    const ssize_t count =
        getdelim(&allocated, &capacity, static_cast<unsigned char>(delimiter), file.get());
    const std::unique_ptr<char, Free> line(allocated);
    if (count > 0) text.append(line.get(), static_cast<std::size_t>(count));
    if (std::ferror(file.get()) != 0)
        throw made<Read_Failure>(messages::readFailure, here(), getName());
    if (count < 0 && std::feof(file.get()) == 0)
        throw made<Read_OutOfMemory>(messages::outOfMemory, here());
    lookAhead();
}

void BasicFile::_writeBuffer(const char* data, unsigned long size) {
    if (std::fwrite(data, 1, size, file.get()) != size)
        throw made<Write_Failure>(messages::writeFailure, here(), getName());
}

void BasicFile::_flush() {
    if (std::fflush(file.get()) != 0)
        throw made<Write_Failure>(messages::writeFailure, here(), getName());
}

}  // namespace TarvikFilelib
