#include "libraries/corelib/source/system/FileOps.h"

#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <fcntl.h>

namespace TarvikCorelib {
namespace {

class FileOpsTest : public testing::Test {
protected:
    void TearDown() override { FileOps::closeF(stream); }

    const tarvik_test::TempDir directory;
    const std::string path = directory.write("file", "\n\r\r\r\r\rbcd\rrow");
    std::FILE* stream = FileOps::openFIO(path, false, false);
    std::string text = "old";
    std::wstring wide = std::wstring(path.begin(), path.end());
    char c = '?';
};

TEST_F(FileOpsTest, EachOpenHasItsModeAndIsClosedInOtherPrograms) {
    const auto add = [this](std::FILE* opened, char byte) {
        EXPECT_EQ(fcntl(fileno(opened), F_GETFD), FD_CLOEXEC);
        FileOps::writeFC(opened, byte);
        EXPECT_TRUE(FileOps::closeF(opened));
        return directory.read("file");
    };
    EXPECT_EQ(add(FileOps::openFOut(wide), '1'), "1");
    EXPECT_EQ(add(FileOps::openFAppend(path), '2'), "12");
    EXPECT_EQ(add(FileOps::openFIO(wide, false, true), '3'), "123");
    EXPECT_EQ(add(FileOps::openFIO(path, false, false), '4'), "423");
    EXPECT_EQ(add(FileOps::openFIO(path, true, true), '5'), "5");
    EXPECT_EQ(add(FileOps::openFIn(wide), '6'), "5");
    EXPECT_FALSE(FileOps::openFOut("") || FileOps::openFIO(path + "2", false, false));
}

TEST_F(FileOpsTest, ReadsStopAtTheCountTheStopOrTheEnd) {
    EXPECT_TRUE(FileOps::readFUntil(stream, text, '\n') && text.empty());
    EXPECT_TRUE(FileOps::readFStr(stream, text, 3, true) && text == "bcd") << "five do not count";
    EXPECT_TRUE(FileOps::readFUntil(stream, text, 'x') && text == "\rrow") << "the end will do";
    EXPECT_FALSE(FileOps::readFUntil(stream, text, 'w') || !text.empty());
}

TEST_F(FileOpsTest, AReadMayFollowAWriteAndLosesWhatWasPutBack) {
    EXPECT_TRUE(FileOps::writeFC(stream, 'A') && FileOps::readFC(stream, c, true) && c == 'b');
    std::ungetc('!', stream);
    EXPECT_TRUE(FileOps::readFC(stream, c) && c == 'b');
}

TEST_F(FileOpsTest, APipeIsReadThoughItHasNoPosition) {
    std::FILE* const pipe = popen("printf ab", "re");
    EXPECT_TRUE(FileOps::readFC(pipe, c) && FileOps::readFStr(pipe, text, 9) && text == "b");
    EXPECT_EQ(pclose(pipe), 0);
}

TEST_F(FileOpsTest, WhatCannotBeDoneIsFalseAndAMarkIsMissedAloud) {
    EXPECT_FALSE(FileOps::readFC(nullptr, c) || FileOps::readFStr(nullptr, text, 1));
    EXPECT_FALSE(FileOps::readFUntil(nullptr, text, 'x') || FileOps::writeFC(nullptr, 'x'));
    // It has neither a descriptor nor room.
    std::FILE* const full = fmemopen(&c, 0, "wb");
    testing::internal::CaptureStderr();
    FileOps::markHandle(full);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed to set FD_CLOEXEC\n");
    EXPECT_TRUE(FileOps::writeFC(full, 'x') && !FileOps::closeF(full) && !FileOps::closeF(nullptr));
}

// Both bytes of 0x0D0D are carriage returns. The file ends in half a character.
TEST_F(FileOpsTest, AWideReadDropsCharactersAndNotBytes) {
    EXPECT_TRUE(FileOps::writeFWStr(stream, L"\r\x0D0D\r,z"));
    std::rewind(stream);
    EXPECT_TRUE(FileOps::readFWUntil(stream, wide, L',', true) && wide == L"\x0D0D");
    EXPECT_TRUE(FileOps::readFWStr(stream, wide, std::string::npos) && wide == L"z\x6F72");
}

TEST_F(FileOpsTest, AWideTextHasItsBytesAndComesBackFromThem) {
    const std::wstring_view chars(L"\0\U00010000\U0010FFFF\xDC00\xD800\xD800z", 7);
    const std::string_view bytes("\0\0\0\xD8\0\xDC\xFF\xDB\xFF\xDF\0\xDC\0\xD8\0\xD8z\0", 18);
    EXPECT_TRUE(FileOps::toUTF16LE(chars) == bytes && FileOps::fromUTF16LE(bytes) == chars);
    EXPECT_EQ(FileOps::toUTF16LE(L"\x110000"), "\xFD\xFF") << "no character";
}

}  // namespace
}  // namespace TarvikCorelib
