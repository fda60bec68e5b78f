#include "libraries/filelib/source/file/FileBase.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/filelib/source/file/FileMessages.h"
#include "libraries/filelib/source/path/PathTools.h"

#include <sys/stat.h>

#include <exception>

namespace TarvikFilelib {

using TarvikCorelib::Exception;
using TarvikCorelib::here;
using TarvikCorelib::made;

namespace {

// All steps that the path tools took when the files were made.
constexpr int nameSteps = 31;

bool lookUp(const std::string& name, struct stat& found) {
    return lstat(TarvikCorelib::systemName(name).c_str(), &found) == 0;
}

}  // namespace

FileBase::FileBase(const std::string& name) : name(PathTools::getValid(name, nameSteps)) {}

FileBase::~FileBase() noexcept(false) = default;

const std::string& FileBase::getName() const {
    return name;
}

TarvikCorelib::Unicode::UnicodeEncoding FileBase::getEncoding() const {
    return now.encoding;
}

int FileBase::getState() const {
    return now.state;
}

unsigned long long FileBase::getNumLinesRead() const {
    return now.lines;
}

unsigned long long FileBase::getNumLinesReadBeforeLastRead() const {
    return now.linesBefore;
}

void FileBase::setName(const std::string& newName) {
    if (getState() != FileClosed)
        throw made<SetName_FileOpen>(messages::setNameFileOpen, here(), getName(), newName);
    name = PathTools::getValid(newName, nameSteps);
}

void FileBase::setEncoding(Unicode::UnicodeEncoding newEncoding) {
    if (getState() != FileClosed)
        throw made<SetEncoding_FileOpen>(messages::setEncodingFileOpen, here());
    now.encoding = newEncoding;
}

bool FileBase::exists() const {
    struct stat found {};
    return lookUp(getName(), found) && !S_ISDIR(found.st_mode);
}

long long FileBase::getRawByteSize() const {
    struct stat found {};
    return lookUp(getName(), found) ? found.st_size : 0;
}

// --- opening and closing

void FileBase::openAs(std::int32_t state, const std::function<void()>& open,
                      const std::function<void()>& prepare) {
    close();
    const Unicode::UnicodeEncoding encoding = now.encoding;
    init();
    now.encoding = encoding;
    open();
    // A facade has opened another file by now, which has done all the rest.
    if (getState() != FileClosed) return;
    now.state = state;
    try {
        prepare();
    } catch (...) {
        try {
            close();
        } catch (const Exception&) {
            // The first failure is the one to report.
        }
        throw;
    }
}

void FileBase::openIn() {
    const auto open = [this] {
        if (!exists())
            throw made<Open_FileMustExist>(messages::openFileMustExist, here(), getName());
        _openIn();
    };
    openAs(modeIn.state, open, [this] { testEncoding(); });
}

void FileBase::openOut() {
    const auto open = [this] { _openOut(); };
    openAs(modeOut.state, open, [this] { writeBom(); });
}

void FileBase::openAppend() {
    const auto open = [this] { _openAppend(); };
    openAs(modeAppend.state, open, [this] { writeBomIfNew(); });
}

void FileBase::openReadWrite(ReadWriteOption option) {
    const auto open = [this, option] { _openReadWrite(option); };
    openAs(readWriteMode(option).state, open, [this, option] {
        if (option != ReadWriteTruncate) testEncoding();
        writeBomIfNew();
    });
}

void FileBase::openIn(Unicode::UnicodeEncoding encoding) {
    close();
    setEncoding(encoding);
    openIn();
}

void FileBase::openOut(Unicode::UnicodeEncoding encoding) {
    close();
    setEncoding(encoding);
    openOut();
}

void FileBase::openAppend(Unicode::UnicodeEncoding encoding) {
    close();
    setEncoding(encoding);
    openAppend();
}

void FileBase::openReadWrite(Unicode::UnicodeEncoding encoding, ReadWriteOption option) {
    close();
    setEncoding(encoding);
    openReadWrite(option);
}

void FileBase::close() {
    if (getState() == FileClosed) return;
    // First, so that a file whose close fails is closed all the same.
    now.state = FileClosed;
    now.lines = 0;
    now.linesBefore = 0;
    _close();
}

void FileBase::closeAtLast() {
    const bool unwinding = std::uncaught_exceptions() > 0;
    try {
        close();
    } catch (...) {
        if (!unwinding) throw;
    }
}

// --- positions

void FileBase::setCurBytePos(long long position) {
    if (getState() == FileClosed)
        throw made<SetBytePos_FileClosed>(messages::setBytePosFileClosed, here());
    _setCurBytePos(position);
    rememberPosition();
}

void FileBase::moveCurBytePos(long long distance) {
    if (getState() == FileClosed)
        throw made<SetBytePos_FileClosed>(messages::setBytePosFileClosed, here());
    _moveCurBytePos(distance);
    rememberPosition();
}

void FileBase::rememberPosition() {
    const std::int64_t position = getCurBytePos();
    if (isReadable()) now.readPosition = position;
    if (isWritable()) now.writePosition = position;
}

// An operation may go on only where the other one left off in a file that is open for both. The
// position is not asked for in others, which makes reading by the byte quicker.
void FileBase::finish(Operation operation, std::int64_t& position) {
    now.lastOperation = operation;
    if (isReadable() && isWritable()) position = getCurBytePos();
}

}  // namespace TarvikFilelib
