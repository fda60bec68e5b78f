#include "libraries/filelib/source/file/File.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/filelib/source/file/BasicFile.h"
#include "libraries/filelib/source/file/FileMessages.h"
#include "libraries/filelib/source/file/ZFile.h"

#include <new>

namespace TarvikFilelib {

using TarvikCorelib::here;
using TarvikCorelib::made;

namespace {

bool isCompressed(const std::string& name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos) return false;
    std::string suffix = name.substr(dot + 1);
    return TarvikCorelib::StringTools::lower(suffix) == "gz";
}

}  // namespace

File::~File() noexcept(false) {
    // Here, since no smart pointer lets a failure out.
    closeAtLast();
}

void File::makeInner(const std::string& name) {
    try {
        if (isCompressed(name))
            inner = std::make_unique<ZFile>(name);
        else
            inner = std::make_unique<BasicFile>(name);
    } catch (const std::bad_alloc&) {
        throw made<File_OutOfMemory>(messages::outOfMemory, here());
    }
}

FileBase& File::source() {
    if (!inner) throw made<Read_CannotRead>(messages::readCannotRead, here());
    return *inner;
}

void File::setName(const std::string& newName) {
    if (inner)
        throw made<SetName_AlreadySet>(messages::setNameAlreadySet, here(), newName, getName());
    makeInner(newName);
}

const std::string& File::getName() const {
    return inner ? inner->getName() : FileBase::getName();
}

TarvikCorelib::Unicode::UnicodeEncoding File::getEncoding() const {
    return inner ? inner->getEncoding() : FileBase::getEncoding();
}

int File::getState() const {
    return inner ? inner->getState() : FileBase::getState();
}

long long File::getCurBytePos() const {
    return inner ? inner->getCurBytePos() : 0;
}

unsigned long long File::getNumLinesRead() const {
    return inner ? inner->getNumLinesRead() : FileBase::getNumLinesRead();
}

unsigned long long File::getNumLinesReadBeforeLastRead() const {
    return inner ? inner->getNumLinesReadBeforeLastRead()
                 : FileBase::getNumLinesReadBeforeLastRead();
}

void File::setEncoding(Unicode::UnicodeEncoding newEncoding) {
    if (inner) inner->setEncoding(newEncoding);
}

void File::testEncoding() {
    if (inner) inner->testEncoding();
}

void File::writeBom() {
    if (inner) inner->writeBom();
}

// --- reading

char File::read() {
    return source().read();
}

unsigned int File::readUnicode() {
    return source().readUnicode();
}

std::string File::read(unsigned long count) {
    return source().read(count);
}

std::string File::readUntil(char delimiter) {
    return source().readUntil(delimiter);
}

bool File::readUntil(std::string& text, char delimiter) {
    return source().readUntil(text, delimiter);
}

// --- writing

void File::write(char byte) {
    if (inner) inner->write(byte);
}

void File::writeUnicode(unsigned int codePoint) {
    if (inner) inner->writeUnicode(codePoint);
}

void File::write(const std::string& text) {
    if (inner) inner->write(text);
}

void File::write(const Unicode& text) {
    if (inner) inner->write(text);
}

void File::write(const std::string& text, char end) {
    if (inner) inner->write(text, end);
}

void File::write(const Unicode& text, unsigned int end) {
    if (inner) inner->write(text, end);
}

void File::writeLine(const std::string& text) {
    if (inner) inner->writeLine(text);
}

void File::writeLine(const Unicode& text) {
    if (inner) inner->writeLine(text);
}

void File::flush() {
    if (inner) inner->flush();
}

void File::writeBuffer(const char* data, unsigned long size) {
    if (inner) inner->writeBuffer(data, size);
}

// --- the primitives: the inner file does what goes before and after, too, and knows its positions

void File::_setCurBytePos(long long position) {
    if (inner) inner->setCurBytePos(position);
}

void File::_moveCurBytePos(long long distance) {
    if (inner) inner->moveCurBytePos(distance);
}

void File::_openIn() {
    if (inner) inner->openIn();
}

void File::_openOut() {
    if (inner) inner->openOut();
}

void File::_openAppend() {
    if (inner) inner->openAppend();
}

void File::_openReadWrite(ReadWriteOption option) {
    if (inner) inner->openReadWrite(option);
}

void File::_close() {
    if (inner) inner->close();
}

void File::_readBuffer(FileData& wanted) {
    source().fill(wanted);
}

void File::_putback(unsigned long long count) {
    if (inner) inner->_putback(count);
}

bool File::_atEnd() {
    return inner && inner->atEnd();
}

void File::_writeBuffer(const char* data, unsigned long size) {
    if (inner) inner->writeBuffer(data, size);
}

void File::_flush() {
    if (inner) inner->flush();
}

}  // namespace TarvikFilelib
