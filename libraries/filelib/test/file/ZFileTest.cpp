#include "libraries/filelib/source/file/ZFile.h"

#include "test/support/FileFaults.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <sys/mman.h>

#include <cerrno>
#include <cstdlib>

namespace TarvikFilelib {
namespace {

using tarvik_test::TempDir;

struct Open : ZFile {
    using ZFile::_putback;
    using ZFile::ZFile;
};

std::string someText(std::size_t size) {
    std::string text;
    while (text.size() < size)
        text += "line " + std::to_string(text.size()) + '\n';
    return text.substr(0, size);
}

std::string pack(const TempDir& directory, const std::string& text) {
    ZFile file(directory.path() + "/packed.gz");
    file.openOut();
    file.write(text.substr(0, 200));
    file.flush();  // What follows is a member of its own.
    file.write(text.substr(200));
    file.close();
    return file.getName();
}

TEST(ZFileTest, GzipReadsWhatIsWrittenHereAndTheReverse) {
    const TempDir directory;
    const std::string text = someText(300'000);
    ZFile file(pack(directory, text));
    const std::string there = "cd " + directory.path() + " && ";
    EXPECT_EQ(std::system((there + "gzip -t packed.gz && zcat packed.gz >packed").c_str()), 0);
    EXPECT_EQ(directory.read("packed"), text);
    EXPECT_EQ(std::system((there + "gzip -9f packed").c_str()), 0);
    file.openIn();
    EXPECT_EQ(file.read(300'001), text);
}

TEST(ZFileTest, OnlyNinetyNineBytesCanBePutBackAndASeekLeavesNone) {
    const TempDir directory;
    const std::string text = someText(50'000);
    Open file(pack(directory, text));
    file.openIn();
    file.read(300);
    file._putback(100);
    EXPECT_EQ(file.getCurBytePos(), 200) << "as if it were 100";
    EXPECT_EQ(file.read(49), text.substr(201, 49));
    file._putback(10);
    file.moveCurBytePos(5);
    EXPECT_EQ(file.read(99), text.substr(245, 99));
    file._putback(2);
    file.moveCurBytePos(4);
    EXPECT_EQ(file.read(), text[346]) << "past the ring and the byte looked at";
    EXPECT_THROW(file.moveCurBytePos(-1), FileBase::SetBytePos_NegativeMove);
    EXPECT_THROW(file.setCurBytePos(9), FileBase::SetBytePos_NegativeMove);
    file.setCurBytePos(49'990);
    file._putback(5);
    EXPECT_EQ(file.read(11), text.substr(49'990));
    file._putback(3);
    file.read();
    EXPECT_FALSE(file.atEnd());
}

// A block, and then the rest. The first call of the name fails.
void readAll(const std::string& bytes, std::string& text, unsigned block, const char* call = "-") {
    TarvikCorelib::Descriptor memory(::memfd_create("packed", MFD_CLOEXEC));
    EXPECT_EQ(::pwrite(memory.get(), bytes.data(), bytes.size(), 0), bytes.size());
    tarvik_test::FileFaults faults;
    faults.failAt(1, EIO, call);
    ZFile file;
    file.openRawIn(std::move(memory), "memory");
    text = file.read(block);
    file.readUntil(text, '\0');
}

TEST(ZFileTest, ADamagedFileNeverLooksShort) {
    const TempDir directory;
    const std::string text = someText(3000);
    const std::string whole = tarvik_test::readFile(pack(directory, text));
    std::string got;
    // A member that begins with the damage is ignored, so only the second one is damaged.
    for (std::size_t at = whole.find("\x1F\x8B", 2) + 10; at < whole.size(); ++at) {
        std::string changed = whole;
        changed[at] = static_cast<char>(~changed[at]);
        EXPECT_THROW(readAll(changed, got, 9), FileBase::Read_Failure) << at;
        EXPECT_THROW(readAll(whole.substr(0, at), got, 9), FileBase::Read_Failure) << at;
        EXPECT_TRUE(text.starts_with(got)) << at;
    }
    EXPECT_GT(got.size(), 2000U) << "what is whole can be read";
    ZFile file(directory.write("cut.gz", whole.substr(0, whole.size() - 1)));
    file.openIn();
    file.read(300);
    EXPECT_THROW(file.close(), FileBase::Close_Failure) << "also if the damage was not reached";
    for (const char* bytes : {"", "\x1F", "plain"})
        EXPECT_THROW(readAll(bytes, got, 9), FileBase::Read_Failure) << bytes;
}

TEST(ZFileTest, ABlockHasWhatCameBeforeAFailure) {
    std::string bytes = tarvik_test::readFile(pack(TempDir(), someText(50'000)));
    std::string got;
    for (const char* call : {"gzread", "gzgetc"})
        EXPECT_THROW(readAll(bytes, got, 9, call), FileBase::Read_Failure) << call;
    ++bytes[bytes.size() - 8];  // Of the checksum.
    EXPECT_THROW(readAll(bytes, got, 60'000), FileBase::Read_Failure);
    EXPECT_GT(got.size(), 30'000U);
}

TEST(ZFileTest, AWriteThatFallsShortIsReported) {
    ZFile file("/dev/null");
    tarvik_test::FileFaults faults;
    faults.shortAt(1, ENOSPC, "gzwrite");
    file.openOut();
    EXPECT_THROW(file.write("text"), FileBase::Write_Failure);
    EXPECT_EQ(file.getCurBytePos(), 2);
}

}  // namespace
}  // namespace TarvikFilelib
