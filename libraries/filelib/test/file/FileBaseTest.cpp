#include "libraries/filelib/source/file/BasicFile.h"
#include "libraries/filelib/source/file/File.h"
#include "libraries/filelib/source/file/ZFile.h"
#include "test/support/FileFaults.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cstdlib>
#include <functional>
#include <stdexcept>

namespace TarvikFilelib {
namespace {

using namespace std::string_literals;
using tarvik_test::FileFaults;
using tarvik_test::TempDir;
using enum TarvikCorelib::Unicode::UnicodeEncoding;
using enum FileBase::ReadWriteOption;
using TarvikCorelib::Unicode;

const std::string longLine(9999, 'x');
const std::string mark = "\xEF\xBB\xBF";

/// Reads lines by the byte, as a class does that has nothing better.
struct ByByte : BasicFile {
    using BasicFile::BasicFile;
    using BasicFile::readUntil;
    bool readUntil(std::string& text, char delimiter) override {
        // NOLINTNEXTLINE(bugprone-parent-virtual-call): that is what it is for.
        return FileBase::readUntil(text, delimiter);
    }
};

/// A plain file is the same for all kinds; the last one cannot do both.
using Files = std::vector<std::unique_ptr<FileBase>>;
Files filesOf(const std::string& name, bool readOnly = true) {
    Files files;
    files.push_back(std::make_unique<BasicFile>(name));
    files.push_back(std::make_unique<ByByte>(name));
    files.push_back(std::make_unique<File>(name));
    if (readOnly) files.push_back(std::make_unique<ZFile>(name));
    return files;
}

std::string messageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const TarvikCorelib::Exception& failure) {
        return failure.getFullMessage(true);
    }
    return "nothing thrown";
}

// --- the encoding

struct MarkCase {
    const char* name;
    std::string bytes;
    Unicode::UnicodeEncoding encoding;
    std::size_t position;
};

const auto marks = std::to_array<MarkCase>({
    {"nothing stays unknown", "", UnknownEncoding, 0},
    {"UTF-8", mark + "z", Utf8Encoding, 3},
    {"a mark and no more", mark, Utf8Encoding, 3},
    {"UTF-16, low byte first", "\xFF\xFEz", Utf16LeEncoding, 2},
    {"UTF-16, high byte first", "\xFE\xFFz", Utf16BeEncoding, 2},
    {"only the first byte of a mark", "\xEFz", PlainEncoding, 0},
    {"all but the last", "\xEF\xBBz", PlainEncoding, 0},
});

TEST(FileBaseTest, OnlyAMarkTellsTheEncodingAndIsPassedOver) {
    const TempDir directory;
    for (const auto& [name, bytes, encoding, position] : marks) {
        for (const auto& file : filesOf(directory.write("marked", bytes))) {
            std::string rest;
            file->openIn();
            EXPECT_EQ(file->getEncoding(), encoding) << name;
            EXPECT_EQ(file->getCurBytePos(), position) << name;
            file->readUntil(rest, '\n');
            EXPECT_EQ(rest, bytes.substr(position)) << name;
        }
    }
    BasicFile cutOff(directory.write("cut-off", "\xEF\xBB"));
    EXPECT_EQ(messageOf([&] { cutOff.openIn(); }),
              "SetBytePos_Failure: Failed to set position = -3 (move)");
    EXPECT_EQ(cutOff.getState(), 0);
    File packed(directory.write("cut-off.gz", "\xEF\xBB"));
    packed.openIn();
    EXPECT_EQ(packed.getCurBytePos(), -1) << "looked for once, not once more by the facade";
}

TEST(FileBaseTest, TextsInEachEncodingAreThoseOfIconv) {
    const TempDir directory;
    const Unicode text({'a', 0x20AC, 0x10A});  // The last one has a line feed as a byte.
    const std::string utf8 = directory.write("utf8", "\uFEFFa\u20AC\u010A\nb\n");
    BasicFile file(directory.path() + "/ours");
    for (const auto& [name, encoding] : {std::pair{"UTF-8", Utf8Encoding},
                                         {"UTF-16LE", Utf16LeEncoding},
                                         {"UTF-16BE", Utf16BeEncoding}}) {
        file.openOut(encoding);
        file.writeLine(text);
        file.writeLine(Unicode({'b'}));
        file.openIn(UnknownEncoding);
        EXPECT_EQ(file.readUnicodeUntil('\n').compare(text), 0) << name;
        EXPECT_EQ(file.readUnicodeUntil('\n').getUTF8(), "b\n") << "at the end it is text";
        const std::string convert = "iconv -f UTF-8 -t "s + name + " " + utf8;
        EXPECT_EQ(std::system((convert + " | cmp - " + file.getName()).c_str()), 0) << name;
    }
}

TEST(FileBaseTest, OnlyCodePointsAreEncodedAndOnlyANewFileGetsAMark) {
    const TempDir directory;
    BasicFile file(directory.path() + "/file");
    file.openAppend(Utf8Encoding);
    file.writeLine("\xE9");
    file.openAppend();
    file.writeUnicode(0xE9);
    file.openAppend(PlainEncoding);
    file.write(Unicode({0x20AC}), '1');
    file.close();
    EXPECT_EQ(directory.read("file"), mark + "\xE9\n\xC3\xA9#8364#49");
}

// --- opening and closing

TEST(FileBaseTest, WhatCannotBeOpenedIsNamed) {
    const TempDir directory;
    const std::string missing = directory.path() + "/no/file";
    const std::string impossible = directory.write("file", "") + "\0x"s;
    for (const std::string& name : {""s, directory.path(), missing, impossible})
        EXPECT_EQ(messageOf([&] { File(name).openIn(); }),
                  "Open_FileMustExist: Trying to open non-existing file \"" + name + "\"");
    for (const auto& file : filesOf(impossible))
        EXPECT_EQ(messageOf([&] { file->openOut(); }),
                  "Open_Failure: Failed to open \"" + impossible +
                      "\" (out, errno=2=No such file or directory)");
    EXPECT_THROW(File("a").openReadWrite(FileBase::ReadWriteOption{3}), FileBase::Open_Failure);
}

TEST(FileBaseTest, OpeningAnOpenFileStartsAfreshAndALineFeedThatTellsTheEncodingCountsTwice) {
    const TempDir directory;
    for (const auto& file : filesOf(directory.write("file", "\n2\n3"))) {
        const int next = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        ::close(next);
        file->openIn();
        EXPECT_EQ(::fcntl(next, F_GETFD), FD_CLOEXEC) << "no other program gets it";
        file->readUntil('\n');
        EXPECT_EQ(file->getNumLinesRead(), 2U);
        EXPECT_EQ(file->getNumLinesReadBeforeLastRead(), 1U);
        EXPECT_THROW(file->setEncoding(Utf8Encoding), FileBase::SetEncoding_FileOpen);
        file->openIn(Utf8Encoding);
        EXPECT_EQ(file->readUntil('3'), "\n2\n");
        EXPECT_EQ(file->getNumLinesRead(), 2U);
    }
}

template <class OneFile>
void lose(bool unwinding) {
    OneFile file("/dev/full");
    file.openOut();
    file.write("text");
    if (unwinding) throw std::runtime_error("the first failure");
}

TEST(FileBaseTest, AFailedCloseThrowsFromTheDestructorToo) {
    EXPECT_THROW(lose<File>(false), FileBase::Close_Failure);
    EXPECT_THROW(lose<File>(true), std::runtime_error);
    EXPECT_THROW(lose<ZFile>(false), FileBase::Close_Failure);
    FileFaults faults;
    faults.failAt(1, EIO, "fclose");
    BasicFile file("/dev/null");
    file.openOut();
    EXPECT_THROW(file.close(), FileBase::Close_Failure);
    EXPECT_EQ(file.getState(), 0) << "closed all the same, and not once more";
}

// --- lines and blocks

struct LineCase {
    const char* name;
    std::string text;
    char delimiter;
    std::string parts;  ///< With "|" behind each.
    unsigned long long lines;
};

const auto lineCases = std::to_array<LineCase>({
    {"a last line without an end", "a\nb", '\n', "a|b|", 1},
    {"a last line with one", "a\n\n", '\n', "a||", 2},
    {"a carriage return and a zero byte stay", "a\r\n\0\n"s, '\n', "a\r|\0|"s, 2},
    {"line feeds count at any delimiter", "a\n\nb;\nc", ';', "a\n\nb|\nc|", 3},
    {"a byte above 127", "a\xFF\xFE", '\xFF', "a|\xFE|", 0},
    {"longer than a buffer", longLine + "\ny", '\n', longLine + "|y|", 1},
});

TEST(FileBaseTest, PartsEndAtTheDelimiterOrAtTheEnd) {
    const TempDir directory;
    for (const auto& [name, text, delimiter, expected, lines] : lineCases) {
        for (const auto& file : filesOf(directory.write("lines", text))) {
            file->openIn(PlainEncoding);
            std::string parts;
            for (std::string part; file->readUntil(part, delimiter); part.clear()) {
                parts += part + "|";
                EXPECT_EQ(file->atEnd(), parts == expected) << name;
            }
            EXPECT_EQ(parts, expected) << name;
            EXPECT_EQ(file->getNumLinesRead(), lines) << name;
            EXPECT_EQ(file->getCurBytePos(), text.size()) << name;
        }
    }
}

TEST(FileBaseTest, AtTheEndSomeReadingThrowsAndSomeTells) {
    const TempDir directory;
    std::string text;
    for (const auto& file : filesOf(directory.write("file", "abc"))) {
        EXPECT_THROW(file->read(text, 1), FileBase::Read_CannotRead);
        file->openIn();
        EXPECT_TRUE(file->read(text, 2));
        EXPECT_FALSE(file->read(text, 2));
        EXPECT_EQ(text, "c");
        EXPECT_THROW(file->read(), FileBase::Read_EndOfFile);
        EXPECT_EQ(
            messageOf([&] { file->read(text, 1); }).substr(0, 14),
            dynamic_cast<ZFile*>(file.get()) == nullptr ? "Read_EndOfFile" : "nothing thrown");
        EXPECT_THROW(file->write('a'), FileBase::Write_CannotWrite);
    }
}

TEST(FileBaseTest, AnErrorOfTheDeviceFailsNoLaterRead) {
    const TempDir directory;
    BasicFile file(directory.write("file", "abc\n"));
    FileFaults faults;
    faults.failAt(1, EIO, "fread");
    file.openIn();
    EXPECT_EQ(file.getEncoding(), UnknownEncoding) << "it could not be told";
    EXPECT_EQ(file.read(), 'a');
    faults.failAt(faults.count("fread") + 1, EIO, "fread");
    EXPECT_THROW(file.read(2), FileBase::Read_Failure);
    EXPECT_EQ(file.readUntil('\n'), "bc");

    BasicFile memory("/proc/self/mem");  // Its first page gives EIO.
    memory.openIn();
    EXPECT_THROW(memory.readUntil('\n'), FileBase::Read_Failure);
}

TEST(FileBaseTest, APipeIsReadIfItsEncodingIsGiven) {
    const TempDir directory;
    BasicFile file(directory.path() + "/pipe");
    ASSERT_EQ(::mkfifo(file.getName().c_str(), 0600), 0);
    const int other = ::open(file.getName().c_str(), O_RDWR | O_CLOEXEC);
    EXPECT_EQ(::write(other, "a\nb", 3), 3);
    file.openIn(PlainEncoding);
    ::close(other);
    EXPECT_EQ(file.readUntil('\n'), "a");
    EXPECT_EQ(file.read(), 'b');
    EXPECT_TRUE(file.atEnd());
}

// --- positions

struct UpdateCase {
    const char* name;
    FileBase::ReadWriteOption option;
    std::string text;   ///< Empty: a UTF-8 file is begun.
    std::string steps;  ///< "r": read a byte; "0", "e": to the start, to the last byte; any other
                        ///< is written.
    std::string seen;
    std::string left;
};

const auto updates = std::to_array<UpdateCase>({
    {"each goes on behind the other", ReadWriteExisting, "abcdef", "rXrYr", "ace", "aXcYef"},
    {"a first write goes to the start", ReadWriteExisting, "abc", "Xr", "b", "Xbc"},
    {"or behind a mark", ReadWriteExisting, mark + "ab", "Xr", "b", mark + "Xb"},
    {"a position set between", ReadWriteExisting, "abc", "rX0rYer", "aac", "aYc"},
    {"truncated first", ReadWriteTruncate, "abc", "XY0r", "X", "XY"},
    {"appending leaves the place of reading", ReadWriteAppend, "abc", "rXrYrrr", "abcXY", "abcXY"},
    {"from the first write on", ReadWriteAppend, "ab", "Xr", "a", "abX"},
    {"reading begins behind a mark just written", ReadWriteAppend, "", "Xr", "X", mark + "X"},
});

TEST(FileBaseTest, ReadingAndWritingTakeTurns) {
    const TempDir directory;
    for (const auto& [name, option, text, steps, seen, left] : updates) {
        for (const auto& file : filesOf(directory.path() + "/file", false)) {
            directory.write("file", text);
            file->openReadWrite(text.empty() ? Utf8Encoding : UnknownEncoding, option);
            std::string got;
            for (const char step : steps) {
                if (step == 'r')
                    got += file->read();
                else if (step == '0' || step == 'e')
                    file->setCurBytePos(step == '0' ? 0 : -1);
                else
                    file->write(step);
            }
            file->close();
            EXPECT_EQ(got, seen) << name;
            EXPECT_EQ(directory.read("file"), left) << name;
        }
    }
}

// --- which kind

TEST(FileBaseTest, TheSuffixOfAFileSaysWhetherItIsCompressed) {
    const TempDir directory;
    directory.write("b.gz/c", "");
    for (const std::string name : {"DATA.GZ", ".gz", "a.gz.txt", "gz", "b.gz/c"}) {
        File file(directory.path() + "/" + name);
        file.openOut();
        file.write("text");
        file.close();
        EXPECT_EQ(directory.read(name) != "text", name == "DATA.GZ" || name == ".gz") << name;
    }
    EXPECT_THROW(File("a.gz").openAppend(), FileBase::Open_NotSupported);
}

TEST(FileBaseTest, WithoutANameOnlyReadingFails) {
    File file;
    file.openReadWrite(ReadWriteTruncate);
    EXPECT_THROW(file.readBuffer(1), FileBase::Read_CannotRead);
    file.setName("a");
    EXPECT_THROW(file.setName("b"), File::SetName_AlreadySet);
}

}  // namespace
}  // namespace TarvikFilelib
