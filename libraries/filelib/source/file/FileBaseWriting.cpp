#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/filelib/source/file/FileBase.h"
#include "libraries/filelib/source/file/FileMessages.h"

namespace TarvikFilelib {

using TarvikCorelib::here;
using TarvikCorelib::made;

// --- bytes

// A stream needs a seek between a read and a write, and the first look ahead is a read, too.
void FileBase::startWrite() {
    if (!isReadable() || now.lastOperation == WriteOperation) return;
    const bool appending = (getState() & FileAppending) != 0;
    _setCurBytePos(appending ? now.writePosition : now.readPosition);
}

void FileBase::writeBuffer(const char* data, unsigned long size) {
    if (!isWritable()) throw made<Write_CannotWrite>(messages::writeCannotWrite, here());
    if (size == 0) return;
    startWrite();
    _writeBuffer(data, size);
    finish(WriteOperation, now.writePosition);
    if (isReadable() && (getState() & FileAppending) != 0) _setCurBytePos(now.readPosition);
}

void FileBase::write(char byte) {
    writeBuffer(&byte, 1);
}

void FileBase::write(const std::string& text) {
    writeBuffer(text.data(), text.size());
}

void FileBase::write(const std::string& text, char end) {
    write(text);
    write(end);
}

void FileBase::writeLine(const std::string& text) {
    write(text, '\n');
}

void FileBase::flush() {
    if (isWritable()) _flush();
}

// --- code points

std::string FileBase::encoded(unsigned int codePoint) const {
    switch (getEncoding()) {
    case Unicode::Utf8Encoding: return Unicode::toUTF8(codePoint);
    case Unicode::Utf16LeEncoding: return Unicode::toUTF16LE(codePoint);
    case Unicode::Utf16BeEncoding: return Unicode::toUTF16BE(codePoint);
    default: return "#" + std::to_string(codePoint);
    }
}

void FileBase::writeUnicode(unsigned int codePoint) {
    write(encoded(codePoint));
}

void FileBase::write(const Unicode& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i)
        bytes += encoded(text[i]);
    write(bytes);
}

void FileBase::write(const Unicode& text, unsigned int end) {
    write(text);
    writeUnicode(end);
}

void FileBase::writeLine(const Unicode& text) {
    write(text, static_cast<unsigned int>('\n'));
}

// --- the mark

void FileBase::writeBom() {
    if (now.bomWritten || now.encoding == Unicode::UnknownEncoding || !isWritable()) return;
    const std::string mark = Unicode::getBom(now.encoding);
    if (mark.empty()) return;
    startWrite();
    _writeBuffer(mark.data(), mark.size());
    now.bomWritten = true;
    // Reading, too, begins behind the mark.
    now.lastOperation = WriteOperation;
    rememberPosition();
}

void FileBase::writeBomIfNew() {
    if (getRawByteSize() == 0) writeBom();
}

}  // namespace TarvikFilelib
