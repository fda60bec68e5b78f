#include "shared/library/common/BasicFile.h"

#include "test/support/FileFaults.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <tuple>
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

Lines viewAll(BasicFile& file) {
    Lines lines;
    std::string spare;
    while (!file.atEof(OperationAny))
        lines.emplace_back(file.viewLine(spare));
    return lines;
}

// What an operation that failed reports.
std::int32_t errorAfter(const BasicFile& file, bool succeeded) {
    return succeeded ? FileNoError : file.getLastError();
}

// A name, the bytes of a file, and its lines.
using LineCase = std::tuple<const char*, std::string, Lines>;

const std::string zeroByte("a\0b", 3);
const std::string almostABuffer(1023, 'x');

const auto lineCases = std::to_array<LineCase>({
    {"no bytes are no lines", "", {}},
    {"a closing line feed adds no line", "a\n\n", {"a", ""}},
    {"carriage returns go wherever they stand", "\ra\r\nb\rc\r\r\n\r", {"a", "bc", ""}},
    {"a line may span buffers", std::string(3000, 'x') + "\ny", {std::string(3000, 'x'), "y"}},
    {"a line may end with the buffer", almostABuffer + "\ny", {almostABuffer, "y"}},
    {"a zero byte is a byte", zeroByte + "\n", {zeroByte}},
    {"lines lie in the buffer, or lead out of it",
     "a\n\nb\n" + almostABuffer + "\nc\n",
     {"a", "", "b", almostABuffer, "c"}},
});

TEST(BasicFileTest, LinesAreReadWithoutTheirEnds) {
    const tarvik_test::TempDir dir;
    for (const auto& [name, bytes, lines] : lineCases) {
        BasicFile file;
        ASSERT_TRUE(file.open(dir.write("lines", bytes), AccessRead)) << name;
        EXPECT_EQ(readAll(file), lines) << name;
        EXPECT_EQ(file.getLastError(), FileNoError) << name;
        EXPECT_TRUE(file.seek(0, FromStart, OperationRead)) << name;
        EXPECT_EQ(viewAll(file), lines) << name;
    }
}

TEST(BasicFileTest, AViewFailsWhereALineDoes) {
    const tarvik_test::TempDir dir;
    const std::string path = dir.write("lines", "one\ntwo\nthree and more\n");
    std::string spare;
    BasicFile file;
    ASSERT_TRUE(file.open(path, AccessRead));
    EXPECT_EQ(file.viewLine(spare), "one");
    EXPECT_EQ(file.viewLine(spare), "two");
    file.close();
    EXPECT_EQ(errorAfter(file, !file.viewLine(spare).empty()), FileNotReadable);

    ASSERT_TRUE(file.open(path, AccessRead));
    tarvik_test::FileFaults faults;
    faults.shortAt(1, EIO, "fread");
    EXPECT_EQ(errorAfter(file, !file.readLine().empty()), FileReadFailed);
    EXPECT_EQ(errorAfter(file, !file.viewLine(spare).empty()), FileReadFailed) << "the same buffer";
    EXPECT_TRUE(file.seek(0, FromStart, OperationRead));
    EXPECT_EQ(file.viewLine(spare), "one");
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
    file.validateLine("a\x1f");
    EXPECT_EQ(file.getLastError(), FileControlCharacter);
    file.validateLine("a\t\r\n\x7f");
    EXPECT_EQ(file.getLastError(), FileNoError);
}

TEST(BasicFileTest, OnlyWhatIsNeverWaitedForIsOpened) {
    const tarvik_test::TempDir dir;
    const std::string fifo = dir.path() + "/fifo";
    ASSERT_EQ(mkfifo(fifo.c_str(), S_IRUSR | S_IWUSR), 0);
    const int reader = ::open(fifo.c_str(), O_RDONLY | O_NONBLOCK);
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    using Row = std::tuple<const char*, std::string, FileAccessMode, bool>;
    for (const auto& [name, path, mode, opened] :
         {Row{"a directory", dir.path(), AccessRead, false},
          {"a FIFO without a writer", fifo, AccessRead, false},
          {"a FIFO whose reader never reads", fifo, AccessWrite, false},
          {"a pipe of a process", "/dev/fd/" + std::to_string(ends[1]), AccessWrite, true},
          {"its other end", "/dev/fd/" + std::to_string(ends[0]), AccessRead, false},
          {"a device", "/dev/null", AccessWrite, true}})
        EXPECT_EQ(BasicFile().open(path, mode), opened) << name;
    const int next = dup(ends[1]);
    EXPECT_EQ(next, ends[1] + 1) << "what was not opened was closed";
    for (const int descriptor : {reader, ends[0], ends[1], next})
        close(descriptor);
}

TEST(BasicFileTest, ATerminalHasNoSizeAndIsNotWaitedFor) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || unlockpt(terminal) != 0) GTEST_SKIP() << "no terminals here";
    BasicFile file;
    EXPECT_TRUE(file.open(ptsname(terminal), AccessRead));
    EXPECT_TRUE(file.atEof(OperationAny));
    close(terminal);
}

TEST(BasicFileTest, AFileEndsAtTheSizeItHadWhenOpenedOrAfterTwoFillsWithoutAByte) {
    const tarvik_test::TempDir dir;
    const std::string shrinks = dir.write("shrinks", "a\n");
    const std::string grows = dir.write("grows", "b\nc\n");
    BasicFile file;
    ASSERT_TRUE(file.open(shrinks, AccessRead));
    ASSERT_EQ(truncate(shrinks.c_str(), 0), 0);
    EXPECT_EQ(readAll(file), Lines({"", ""}));
    EXPECT_TRUE(file.seek(0, FromStart, OperationRead));
    EXPECT_EQ(readAll(file), Lines({"", ""})) << "a seek begins a new count";
    file.close();
    ASSERT_TRUE(file.open(grows, AccessRead));
    dir.write("grows", "b\nc\nd\n");
    EXPECT_EQ(readAll(file), Lines({"b", "c"})) << "and so does another file";
    EXPECT_TRUE(file.seek(0, FromStart, OperationRead));
    EXPECT_EQ(file.readLine(), "b");
    file.close();
    ASSERT_TRUE(file.open(grows, AccessRead));
    EXPECT_EQ(readAll(file), Lines({"b", "c", "d"})) << "nothing of the buffer is left";
    EXPECT_EQ(file.getName(), grows);
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
