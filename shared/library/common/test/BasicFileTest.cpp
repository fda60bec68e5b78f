#include "shared/library/common/BasicFile.h"

#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <vector>

namespace Tarvik {
namespace {

using Lines = std::vector<std::string>;

Lines readAll(BasicFile& file) {
    Lines lines;
    while (!file.atEof(OperationAny))
        lines.push_back(file.readLine());
    return lines;
}

// What an operation that failed reports.
std::int32_t errorAfter(const BasicFile& file, bool succeeded) {
    return succeeded ? FileNoError : file.getLastError();
}

struct LineCase {
    const char* name;
    std::string bytes;
    Lines lines;
};

const auto lineCases = std::to_array<LineCase>({
    {"no bytes are no lines", "", {}},
    {"the last line needs no line feed", "a\nb", {"a", "b"}},
    {"a closing line feed adds no line", "a\n\n", {"a", ""}},
    {"carriage returns go wherever they stand", "\ra\r\nb\rc\r\r\n\r", {"a", "bc", ""}},
    {"a line may span buffers", std::string(3000, 'x') + "\ny", {std::string(3000, 'x'), "y"}},
    {"a line may end with the buffer",
     std::string(1023, 'x') + "\ny",
     {std::string(1023, 'x'), "y"}},
    {"a zero byte is a byte", std::string("a\0b\n", 4), {std::string("a\0b", 3)}},
});

TEST(BasicFileTest, LinesAreReadWithoutTheirEnds) {
    const tarvik_test::TempDir dir;
    for (const LineCase& row : lineCases) {
        BasicFile file;
        ASSERT_TRUE(file.open(dir.write("lines", row.bytes), AccessRead)) << row.name;
        EXPECT_EQ(readAll(file), row.lines) << row.name;
        EXPECT_EQ(file.getLastError(), FileNoError) << row.name;
    }
}

TEST(BasicFileTest, EachWrongUseHasItsCode) {
    const tarvik_test::TempDir dir;
    const std::string path = dir.write("f", "text");
    BasicFile file;
    EXPECT_EQ(errorAfter(file, file.getPos(OperationAny) != -1), FileNotOpen);
    EXPECT_FALSE(file.seek(0, FromStart, OperationAny));
    EXPECT_EQ(errorAfter(file, file.open(path, static_cast<FileAccessMode>(7))),
              FileUnknownAccessMode);
    EXPECT_TRUE(file.open(path, AccessClosed));
    EXPECT_TRUE(file.isClosed());
    EXPECT_EQ(errorAfter(file, file.open(dir.path() + "/none", AccessRead)), FileOpenFailed);
    EXPECT_EQ(errorAfter(file, !file.readLine().empty()), FileNotReadable);
    file.validateLine("");
    EXPECT_EQ(errorAfter(file, !file.read(1).empty()), FileNotReadable);

    ASSERT_TRUE(file.open(path, AccessRead));
    EXPECT_EQ(errorAfter(file, file.open(path, AccessRead)), FileAlreadyOpen);
    EXPECT_EQ(errorAfter(file, file.write("x")), FileNotWriteable);
    EXPECT_EQ(errorAfter(file, file.seek(0, static_cast<FilePosBase>(3), OperationRead)),
              FileUnknownPosBase);
    EXPECT_EQ(errorAfter(file, file.seek(-1, FromStart, OperationRead)), FileSeekFailed);
    EXPECT_EQ(file.read(-1), "");
    EXPECT_EQ(file.getLastError(), FileNoError);
    file.validateLine("a\x1f");
    EXPECT_EQ(file.getLastError(), FileControlCharacter);
    file.validateLine("a\t\r\n\x7f");
    EXPECT_EQ(file.getLastError(), FileNoError);
}

TEST(BasicFileTest, AFifoAndADirectoryAreNotOpenedAndNotWaitedFor) {
    const tarvik_test::TempDir dir;
    const std::string fifo = dir.path() + "/fifo";
    ASSERT_EQ(mkfifo(fifo.c_str(), S_IRUSR | S_IWUSR), 0);
    const int freeDescriptor = dup(STDERR_FILENO);
    close(freeDescriptor);
    BasicFile file;
    EXPECT_FALSE(file.open(dir.path(), AccessRead));
    EXPECT_FALSE(file.open(fifo, AccessRead));
    EXPECT_FALSE(file.open(fifo, AccessWrite)) << "no reader";
    const int reader = ::open(fifo.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_EQ(reader, freeDescriptor) << "what was not opened was closed";
    EXPECT_FALSE(file.open(fifo, AccessWrite)) << "a reader that never reads";
    EXPECT_EQ(file.getLastError(), FileOpenFailed);
    EXPECT_TRUE(file.atEof(OperationAny));
    close(reader);
}

TEST(BasicFileTest, DevicesAndThePipesOfProcessesCanBeWritten) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    for (const std::string& path : {"/dev/fd/" + std::to_string(ends[1]), std::string("/dev/null")})
        EXPECT_TRUE(BasicFile().open(path, AccessWrite)) << path;
    EXPECT_FALSE(BasicFile().open("/dev/fd/" + std::to_string(ends[0]), AccessRead));
    close(ends[0]);
    close(ends[1]);
}

TEST(BasicFileTest, ATerminalHasNoSizeAndIsNotWaitedFor) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || unlockpt(terminal) != 0) GTEST_SKIP() << "no terminals here";
    BasicFile file;
    EXPECT_TRUE(file.open(ptsname(terminal), AccessRead));
    EXPECT_TRUE(file.atEof(OperationAny));
    close(terminal);
}

TEST(BasicFileTest, AFileEndsAtTheSizeItHadWhenOpened) {
    const tarvik_test::TempDir dir;
    BasicFile grown;
    ASSERT_TRUE(grown.open(dir.write("grows", "a\n"), AccessRead));
    dir.write("grows", "a\nb\n");
    EXPECT_EQ(readAll(grown), Lines({"a"}));

    const std::string path = dir.write("shrinks", std::string(5000, 'x') + "\n");
    BasicFile shrunk;
    ASSERT_TRUE(shrunk.open(path, AccessRead));
    ASSERT_EQ(truncate(path.c_str(), 0), 0);
    EXPECT_EQ(readAll(shrunk), Lines({"", ""})) << "two fills without a byte are the end";
    EXPECT_TRUE(shrunk.seek(0, FromStart, OperationRead));
    EXPECT_FALSE(shrunk.atEof(OperationRead)) << "but not behind a seek";
}

TEST(BasicFileTest, AFileThatIsOpenedBehindAnotherStartsAnew) {
    const tarvik_test::TempDir dir;
    const std::string shrinks = dir.write("shrinks", "a\nb\nc\n");
    BasicFile file;
    ASSERT_TRUE(file.open(shrinks, AccessRead));
    EXPECT_EQ(file.readLine(), "a");
    file.close();
    ASSERT_TRUE(file.open(shrinks, AccessRead));
    ASSERT_EQ(truncate(shrinks.c_str(), 0), 0);
    EXPECT_EQ(readAll(file), Lines({"", ""})) << "nothing of the buffer is left";
    file.close();
    const std::string other = dir.write("other", "d\n");
    ASSERT_TRUE(file.open(other, AccessRead));
    EXPECT_EQ(readAll(file), Lines({"d"}));
    EXPECT_EQ(file.getName(), other);
}

TEST(BasicFileTest, WhatTheSystemRefusesIsReported) {
    static constexpr char text[] = "text";  // NOLINT(modernize-avoid-c-arrays): its address counts.
    BasicFile file;
    // The memory of this process: nothing is at address 0.
    ASSERT_TRUE(file.open("/proc/self/mem", AccessRead));
    EXPECT_EQ(errorAfter(file, !file.readLine().empty()), FileReadFailed);
    EXPECT_EQ(errorAfter(file, !file.read(1).empty()), FileReadFailed);
    EXPECT_TRUE(file.seek(reinterpret_cast<std::intptr_t>(&text[0]), FromStart, OperationRead));
    EXPECT_EQ(file.read(4), "text");
    EXPECT_EQ(file.getLastError(), FileNoError) << "the earlier failures are over";
    file.close();
    ASSERT_TRUE(file.open("/dev/full", AccessWrite));
    EXPECT_TRUE(file.write("x"));
    EXPECT_EQ(errorAfter(file, file.flush()), FileNotWriteable);
    EXPECT_EQ(errorAfter(file, file.write(std::string(100000, 'x'))), FileShortWrite);
    EXPECT_TRUE(file.write(""));
    EXPECT_EQ(file.getLastError(), FileNoError);
}

TEST(BasicFileTest, PositionsCountWhatWasGivenOutNotWhatWasBuffered) {
    const tarvik_test::TempDir dir;
    const std::string path = dir.write("f", "one\ntwo\nthree\n");
    BasicFile file;
    ASSERT_TRUE(file.open(path, AccessUpdate));
    EXPECT_EQ(file.readLine(), "one");
    EXPECT_EQ(file.getPos(OperationRead), 4);
    EXPECT_TRUE(file.seek(4, FromCurrent, OperationRead));
    EXPECT_EQ(file.read(3), "thr");
    EXPECT_TRUE(file.seek(-14, FromEnd, OperationRead));
    EXPECT_EQ(file.readLine(), "one");
    EXPECT_TRUE(file.write("TWO"));
    EXPECT_EQ(file.getSize(), 14) << "measured without a move";
    EXPECT_EQ(file.readLine(), "");
    EXPECT_EQ(file.read(100), "three\n");
    EXPECT_TRUE(file.writeLine("four"));
    EXPECT_TRUE(file.flush());
    EXPECT_EQ(file.getSize(), 19);
    file.close();
    EXPECT_EQ(dir.read("f"), "one\nTWO\nthree\nfour\n");
}

TEST(BasicFileTest, AppendingKeepsWhatIsThereAndCreatingDropsIt) {
    const tarvik_test::TempDir dir;
    const std::string path = dir.write("f", "old");
    BasicFile file;
    ASSERT_TRUE(file.open(path, AccessAppend));
    EXPECT_EQ(file.getPos(OperationWrite), 3);
    EXPECT_TRUE(file.write("new"));
    file.close();
    EXPECT_EQ(dir.read("f"), "oldnew");
    ASSERT_TRUE(file.open(path, AccessCreateUpdate));
    EXPECT_EQ(file.getSize(), 0);
    EXPECT_TRUE(file.write("x"));
    EXPECT_EQ(file.getSize(), 1);
}

}  // namespace
}  // namespace Tarvik
