// Any bytes as a file, plain and compressed, whole and damaged; told its encoding and read in
// pieces.

#include "libraries/filelib/source/file/BasicFile.h"
#include "libraries/filelib/source/file/ZFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "fuzz/Feed.h"

namespace {

using fuzz::check;
using TarvikCorelib::Descriptor;
using TarvikCorelib::Exception;
using TarvikCorelib::Unicode;
using TarvikFilelib::BasicFile;
using TarvikFilelib::FileBase;
using TarvikFilelib::ZFile;

// One file in memory for all inputs, which leaves nothing behind however the run ends.
const std::string& path() {
    static const std::string name =
        "/proc/self/fd/" + std::to_string(::memfd_create("fuzzed", MFD_CLOEXEC));
    return name;
}

// Its name is a link to nowhere, so it must not be followed beforehand.
template <class OneFile>
struct Stored : OneFile {
    Stored() { this->setRawName(path()); }
};

void store(const std::string& bytes) {
    Descriptor file(::open(path().c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
    check(::write(file.get(), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
}

std::string load() {
    Descriptor file(::open(path().c_str(), O_RDONLY | O_CLOEXEC));
    std::string bytes(static_cast<std::size_t>(::lseek(file.get(), 0, SEEK_END)), '\0');
    check(::pread(file.get(), bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()));
    return bytes;
}

// A byte, a block or a part, with the delimiter that it ended at.
void readPiece(FileBase& file, unsigned char how, std::string& text) {
    if (how % 3 == 0) {
        text += file.read();
        return;
    }
    if (how % 3 == 1) {
        text += file.read(1UL + how);
        return;
    }
    const char delimiter = how % 2 == 0 ? '\n' : static_cast<char>(how);
    const auto end = static_cast<std::size_t>(file.getCurBytePos()) - text.size();
    check(file.readUntil(text, delimiter));
    if (static_cast<std::size_t>(file.getCurBytePos()) - text.size() != end) text += delimiter;
}

// The rest of a file. A damaged one throws, here or when it is closed.
void readRest(FileBase& file, fuzz::Feed how, std::string& text) {
    const long long start = file.getCurBytePos();
    while (!file.atEnd()) {
        readPiece(file, how.byte(), text);
        check(file.getCurBytePos() == start + static_cast<long long>(text.size()));
    }
    std::string more;
    check(!file.readLine(more) && more.empty());
    file.close();
}

bool endsInsideAMark(const std::string& bytes) {
    return bytes == "\xEF" || bytes == "\xEF\xBB" || bytes == "\xFE" || bytes == "\xFF";
}

template <class OneFile>
void checkPlain(const std::string& bytes, const fuzz::Feed& how) {
    Stored<OneFile> file;
    try {
        file.openIn();
    } catch (const FileBase::SetBytePos_Failure&) {
        check(endsInsideAMark(bytes));
        return;
    }
    if (endsInsideAMark(bytes)) return;
    const std::string mark = Unicode::getBom(file.getEncoding());
    check(bytes.starts_with(mark));
    check(bytes.empty() == (file.getEncoding() == Unicode::UnknownEncoding));
    if (mark.empty() && !bytes.empty())
        check(!Unicode::getPotentialEncodings(bytes.substr(0, 2)).contains(bytes.substr(0, 2)) &&
              !Unicode::getPotentialEncodings(bytes.substr(0, 3)).contains(bytes.substr(0, 3)));
    std::string rest;
    readRest(file, how, rest);
    check(mark + rest == bytes);
}

// Whether the file could be read to its end. What must not happen is that it is and lacks
// something.
bool readIfWhole(const fuzz::Feed& how, std::string& text) {
    Stored<ZFile> file;
    try {
        file.openIn(Unicode::PlainEncoding);
        readRest(file, how, text);
        return true;
    } catch (const Exception&) {
        try {
            file.close();
        } catch (const FileBase::Close_Failure&) {
            // It has told so already.
        }
        return false;
    }
}

void checkCompressed(const std::string& text, const fuzz::Feed& how, std::size_t place) {
    Stored<ZFile> file;
    file.openOut(Unicode::PlainEncoding);
    file.write(text.substr(0, place % (text.size() + 1)));
    if (place % 2 == 0) file.flush();
    const std::size_t second = load().size();
    file.write(text.substr(place % (text.size() + 1)));
    file.openIn();
    std::string whole;
    readRest(file, how, whole);
    check(whole == text);

    // Without its first two bytes, a file is plain, and a second member is ignored.
    std::string bytes = load();
    const std::size_t at = 2 + place % (bytes.size() - 2);
    if (at == second || at == second + 1) return;
    bytes[at] = static_cast<char>(bytes[at] ^ static_cast<char>(1U << place % 8));
    store(bytes);
    std::string got;
    const bool isWhole = readIfWhole(how, got);
    check(!isWhole || got == text);
    std::string byBytes;
    check(readIfWhole({nullptr, 0}, byBytes) == isWhole && byBytes == got);
}

}  // namespace

// A place and the ways to read, ended by a zero byte; behind it the bytes.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Feed feed(data, size);
    const std::size_t place = feed.byte() * 256U + feed.byte();
    const std::string ways = feed.text();
    const fuzz::Feed how(reinterpret_cast<const std::uint8_t*>(ways.data()), ways.size());
    std::string bytes;
    while (!feed.isEmpty())
        bytes += static_cast<char>(feed.byte());

    store(bytes);
    checkPlain<BasicFile>(bytes, how);
    std::string any;
    if (bytes.starts_with("\x1F\x8B"))
        readIfWhole(how, any);
    else
        checkPlain<ZFile>(bytes, how);
    checkCompressed(bytes, how, place);
    return 0;
}
