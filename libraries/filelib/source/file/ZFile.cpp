#include "libraries/filelib/source/file/ZFile.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/filelib/source/file/FileMessages.h"

#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace TarvikFilelib {

using TarvikCorelib::Descriptor;
using TarvikCorelib::here;
using TarvikCorelib::made;

namespace {

constexpr const char* className = "ZFile";

// The library counts in `int`.
constexpr unsigned long largestPiece = 1UL << 30;

// A read that meets damage keeps back all that it has got before. So only what is at hand is asked
// for, or one byte, which brings the next block.
unsigned int pieceAtHand(const gzFile_s& file, unsigned long rest) {
    return static_cast<unsigned int>(std::min<unsigned long>(rest, std::max(file.have, 1U)));
}

}  // namespace

void ZFile::Closer::operator()(gzFile open) const {
    gzclose(open);
}

ZFile::~ZFile() noexcept(false) {
    closeAtLast();
}

// --- opening and closing

void ZFile::take(gzFile opened, int error, const FileMode& mode) {
    if (opened == nullptr)
        throw made<Open_Failure>(messages::openFailure, here(), getName(),
                                 messages::openReason(mode.word, error));
    file.reset(opened);
    end = false;
    position = 0;
    ring.clear();
    aheadFull = false;
    failed = false;
    if ((mode.state & FileReadable) != 0) lookAhead();
}

void ZFile::openNamed(const FileMode& mode) {
    gzFile_s* const opened = openByName(getName(), mode, gzopen);
    const int error = errno;
    take(opened, error, mode);
}

void ZFile::openRaw(Descriptor descriptor, const std::string& rawName, const FileMode& mode) {
    close();
    setRawName(rawName);
    setEncoding(Unicode::PlainEncoding);
    const auto open = [this, &descriptor, &mode] {
        gzFile_s* const opened = gzdopen(descriptor.get(), mode.stdio);
        const int error = errno;
        if (opened != nullptr) descriptor.release();
        take(opened, error, mode);
    };
    openAs(mode.state, open, [this] {
        if (gzdirect(file.get()) != 0)
            throw made<Read_Failure>(messages::readFailure, here(), getName());
    });
}

void ZFile::openRawIn(Descriptor from, const std::string& rawName) {
    openRaw(std::move(from), rawName, modeIn);
}

void ZFile::openRawOut(Descriptor to, const std::string& rawName) {
    openRaw(std::move(to), rawName, modeOut);
}

void ZFile::_openIn() {
    openNamed(modeIn);
}

void ZFile::_openOut() {
    openNamed(modeOut);
}

void ZFile::_openAppend() {
    throw made<Open_NotSupported>(messages::openNotSupported, here(), "openAppend", className);
}

void ZFile::_openReadWrite(ReadWriteOption /*option*/) {
    throw made<Open_NotSupported>(messages::openNotSupported, here(), "openReadWrite", className);
}

void ZFile::_close() {
    // Closing tells nothing of damaged data.
    const bool damaged = failed || hasError();
    position = 0;
    end = false;
    if (gzclose(file.release()) != Z_OK || damaged)
        throw made<Close_Failure>(messages::closeFailure, here(), getName());
}

bool ZFile::hasError() const {
    int error = Z_OK;
    gzerror(file.get(), &error);
    return error != Z_OK;
}

// --- positions

long long ZFile::getCurBytePos() const {
    return position;
}

void ZFile::_setCurBytePos(long long wanted) {
    if (wanted < 0 || wanted < position)
        throw made<SetBytePos_NegativeMove>(messages::setBytePosNegativeMove, here(), wanted,
                                            className);
    if (gzseek64(file.get(), wanted, SEEK_SET) < 0)
        throw made<SetBytePos_Failure>(messages::setBytePosFailure, here(), wanted,
                                       "ZFile::seek_set");
    position = wanted;
    ring.clear();
    aheadFull = false;
    end = false;
    if (isReadable()) lookAhead();
}

void ZFile::_moveCurBytePos(long long distance) {
    if (distance == 0) return;
    if (distance < 0)
        throw made<SetBytePos_NegativeMove>(messages::setBytePosNegativeMove, here(), distance,
                                            className);
    long long rest = distance;
    while (rest > 0 && ring.take() >= 0)
        --rest;
    if (rest > 0) {
        ring.clear();  // The bytes that are left out now would be missing in it.
        if (std::exchange(aheadFull, false)) --rest;
    }
    if (rest > 0 && gzseek64(file.get(), rest, SEEK_CUR) < 0)
        throw made<SetBytePos_Failure>(messages::setBytePosFailure, here(), distance,
                                       "ZFile::seek_cur");
    position += distance;
    if (isReadable()) lookAhead();
}

void ZFile::_putback(unsigned long long count) {
    position -= static_cast<long long>(count);
    ring.putBack(count);
    end = false;
}

bool ZFile::_atEnd() {
    return end;
}

// A file that is damaged from here on has no end: the next read is to fail.
void ZFile::lookAhead() {
    if (!ring.isUsedUp() || aheadFull || failed) return;
    const int byte = gzeof(file.get()) != 0 ? -1 : gzgetc(file.get());
    aheadFull = byte >= 0;
    if (aheadFull)
        ahead = static_cast<unsigned char>(byte);
    else
        noteStop();
}

void ZFile::noteStop() {
    failed = failed || gzeof(file.get()) == 0 || hasError();
    end = !failed;
}

// --- reading and writing

// The next bytes come from three places, in this order: the ring has those that were put back,
// `ahead` the one that was read to find out whether the file ends, and the library all others. What
// comes from the last two is stored in the ring, so that it can be put back in its turn.
void ZFile::_readBuffer(FileData& wanted) {
    wanted.read = 0;
    const auto add = [&wanted](int byte) { wanted.data[wanted.read++] = static_cast<char>(byte); };
    while (wanted.read < wanted.size && !ring.isUsedUp())
        add(ring.take());
    const unsigned long old = wanted.read;
    if (wanted.read < wanted.size && std::exchange(aheadFull, false)) add(ahead);
    for (int count = 1; wanted.read < wanted.size && count > 0 && !failed;) {
        const unsigned int piece = pieceAtHand(*file, wanted.size - wanted.read);
        count = gzread(file.get(), wanted.data + wanted.read, piece);
        if (count > 0) wanted.read += static_cast<unsigned long>(count);
        if (count <= 0) noteStop();
    }
    if (wanted.read == 0 && failed)
        throw made<Read_Failure>(messages::readFailure, here(), getName());
    position += static_cast<long long>(wanted.read);
    if (wanted.read > old) ring.store({wanted.data + old, wanted.read - old});
    lookAhead();
}

bool ZFile::readUntil(std::string& text, char delimiter) {
    const auto fetch = [this](std::string& to, char last) { fetchUntil(to, last); };
    return readUntilBy(fetch, text, delimiter);
}

// A loop over the buffer of the library, with the results of one `_readBuffer` a byte.
void ZFile::fetchUntil(std::string& text, char delimiter) {
    const std::size_t start = text.size();
    bool found = false;
    const auto add = [&text, &found, delimiter](int byte) {
        text.push_back(static_cast<char>(byte));
        found = text.back() == delimiter;
    };
    while (!found && !ring.isUsedUp())
        add(ring.take());
    const std::size_t old = text.size();
    if (!found && std::exchange(aheadFull, false)) add(ahead);
    int byte = failed ? -1 : 0;
    while (!found && byte >= 0) {
        byte = gzgetc(file.get());
        if (byte >= 0)
            add(byte);
        else
            noteStop();
    }
    position += static_cast<long long>(text.size() - start);
    if (text.size() > old) ring.store(std::string_view(text).substr(old));
    if (!found && failed) throw made<Read_Failure>(messages::readFailure, here(), getName());
    lookAhead();
}

void ZFile::_writeBuffer(const char* data, unsigned long size) {
    for (unsigned long done = 0; done < size;) {
        const auto piece = static_cast<unsigned int>(std::min(size - done, largestPiece));
        const int count = gzwrite(file.get(), data + done, piece);
        if (count > 0) position += count;
        if (std::cmp_not_equal(count, piece))
            throw made<Write_Failure>(messages::writeFailure, here(), getName());
        done += piece;
    }
}

void ZFile::_flush() {
    if (gzflush(file.get(), Z_FINISH) != Z_OK)
        throw made<Write_Failure>(messages::writeFailure, here(), getName());
}

}  // namespace TarvikFilelib
