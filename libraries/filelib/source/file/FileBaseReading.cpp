#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"
#include "libraries/filelib/source/file/FileBase.h"
#include "libraries/filelib/source/file/FileMessages.h"

#include <algorithm>
#include <new>
#include <string_view>
#include <utility>

namespace TarvikFilelib {

using TarvikCorelib::Exception;
using TarvikCorelib::here;
using TarvikCorelib::made;

// --- the buffer

// NOLINTBEGIN(cppcoreguidelines-owning-memory): the record is the owner.
FileBase::FileData::FileData(unsigned long size)
    : data(new (std::nothrow) char[std::max(size, 1UL)]), size(size) {
    if (data == nullptr) throw made<Read_OutOfMemory>(messages::outOfMemory, here());
}

FileBase::FileData::FileData(FileData&& other) noexcept
    : data(std::exchange(other.data, nullptr)), size(other.size), read(other.read) {}

FileBase::FileData& FileBase::FileData::operator=(FileData&& other) noexcept {
    std::swap(data, other.data);
    size = other.size;
    read = other.read;
    return *this;
}

FileBase::FileData::~FileData() {
    delete[] data;
}
// NOLINTEND(cppcoreguidelines-owning-memory)

// --- what goes before and after

void FileBase::startRead() {
    if (!isReadable()) throw made<Read_CannotRead>(messages::readCannotRead, here());
    if (now.lastOperation != WriteOperation) return;
    const bool appending = (getState() & FileAppending) != 0;
    _setCurBytePos(appending ? now.readPosition : now.writePosition);
    finish(ReadOperation, now.readPosition);
}

void FileBase::ensureNotAtEnd() {
    if (_atEnd()) throw made<Read_EndOfFile>(messages::readEndOfFile, here());
}

void FileBase::fill(FileData& wanted) {
    startRead();
    if (wanted.size == 0) return;
    _readBuffer(wanted);
    finish(ReadOperation, now.readPosition);
}

// A line feed that ends the text is the only one in it.
void FileBase::passLines(const std::string& text, std::size_t start, char delimiter) {
    const std::string_view passed = std::string_view(text).substr(start);
    now.lines += delimiter == '\n'
                     ? static_cast<std::uint64_t>(passed.ends_with('\n'))
                     : static_cast<std::uint64_t>(std::count(passed.begin(), passed.end(), '\n'));
    finish(ReadOperation, now.readPosition);
}

bool FileBase::atEnd() {
    if (isReadable()) startRead();
    return _atEnd();
}

// --- bytes

char FileBase::read() {
    startRead();
    now.linesBefore = now.lines;
    ensureNotAtEnd();
    FileData byte(1);
    fill(byte);
    // A file that has shrunk meanwhile, or a compressed one that is cut off.
    if (byte.read == 0) throw made<Read_EndOfFile>(messages::readEndOfFile, here());
    if (*byte.data == '\n') ++now.lines;
    return *byte.data;
}

std::string FileBase::read(unsigned long count) {
    startRead();
    ensureNotAtEnd();
    const FileData bytes = readBuffer(count);
    return {bytes.data, bytes.read};
}

bool FileBase::read(std::string& text, unsigned long count) {
    const FileData bytes = readBuffer(count);
    text.assign(bytes.data, bytes.read);
    return bytes.read == count;
}

FileBase::FileData FileBase::readBuffer(unsigned long size) {
    startRead();
    FileData wanted(size);
    fill(wanted);
    return wanted;
}

// --- lines

std::string FileBase::readUntil(char delimiter) {
    startRead();
    ensureNotAtEnd();
    std::string text;
    readUntil(text, delimiter);
    return text;
}

bool FileBase::readUntil(std::string& text, char delimiter) {
    const auto byByte = [this](std::string& to, char end) {
        FileData byte(1);
        while (!_atEnd()) {
            _readBuffer(byte);
            if (byte.read == 0) return;
            to.push_back(*byte.data);
            if (*byte.data == end) return;
        }
    };
    return readUntilBy(byByte, text, delimiter);
}

bool FileBase::readLine(std::string& text) {
    return readUntil(text, '\n');
}

// --- code points

unsigned int FileBase::readUnicode() {
    switch (getEncoding()) {
    case Unicode::Utf8Encoding: return readUTF8();
    case Unicode::Utf16LeEncoding: return readUTF16LE();
    case Unicode::Utf16BeEncoding: return readUTF16BE();
    default: return static_cast<unsigned int>(TarvikCorelib::StringTools::convert(read()));
    }
}

unsigned int FileBase::readUTF8() {
    std::string bytes(1, read());
    const std::size_t count = Unicode::getNumUTF8Bytes(static_cast<unsigned char>(bytes.front()));
    while (bytes.size() < count)
        bytes.push_back(read());
    return Unicode::fromUTF8(bytes);
}

unsigned int FileBase::readUTF16LE() {
    const std::uint16_t unit = read2Bytes(true);
    if (Unicode::getNumUTF16LEBytes(unit) == 2) return unit;
    return Unicode::fromUTF16LE(Unicode::toUTF16LE(unit) + Unicode::toUTF16LE(read2Bytes(true)));
}

unsigned int FileBase::readUTF16BE() {
    const std::uint16_t unit = read2Bytes(false);
    if (Unicode::getNumUTF16BEBytes(unit) == 2) return unit;
    return Unicode::fromUTF16BE(Unicode::toUTF16BE(unit) + Unicode::toUTF16BE(read2Bytes(false)));
}

std::uint16_t FileBase::read2Bytes(bool littleEndian) {
    return static_cast<std::uint16_t>(readNumber(2, littleEndian));
}

std::uint32_t FileBase::read4bytes(bool littleEndian) {
    return readNumber(4, littleEndian);
}

std::uint32_t FileBase::readNumber(std::size_t bytes, bool littleEndian) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < bytes; ++i) {
        const std::uint32_t byte = static_cast<unsigned char>(read());
        number = littleEndian ? number | byte << 8 * i : number << 8 | byte;
    }
    return number;
}

FileBase::Unicode FileBase::readUnicodeUntil(unsigned int delimiter) {
    Unicode text;
    unsigned int codePoint = readUnicode();
    while (!atEnd()) {
        if (codePoint == delimiter) return text;
        text.push_back(codePoint);
        codePoint = readUnicode();
    }
    text.push_back(codePoint);
    return text;
}

// --- the encoding

void FileBase::testEncoding() {
    if (now.encoding != Unicode::UnknownEncoding || !isReadable()) return;
    startRead();
    std::string prefix;
    const auto stepBack = [this](unsigned long long count) {
        _putback(count);
        finish(ReadOperation, now.readPosition);
    };
    for (unsigned long long before = 0;; ++before) {
        if (_atEnd()) {
            if (before == 0) return;
            // Quirk: one byte more than was read, so this throws for a file that cannot do it.
            return stepBack(before + 1);
        }
        try {
            prefix.push_back(read());
        } catch (const Exception&) {
            return stepBack(before);
        }
        const Unicode::Boms marks = Unicode::getPotentialEncodings(prefix);
        if (marks.empty()) {
            now.encoding = Unicode::PlainEncoding;
            return stepBack(before + 1);
        }
        if (marks.size() == 1 && marks.begin()->first == prefix) {
            now.encoding = marks.begin()->second;
            return;
        }
    }
}

}  // namespace TarvikFilelib
