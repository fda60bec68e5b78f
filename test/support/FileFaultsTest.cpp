#include "test/support/FileFaults.h"

#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>

namespace tarvik_test {
namespace {

TEST(FileFaultsTest, OnlyTheChosenCallsFail) {
    const TempDir directory;
    const std::string path = directory.write("file", "12345678");
    const volatile std::size_t size = 8;  // Unknown to the compiler, so hardened code checks it.
    std::array<char, 8> bytes{};
    FileFaults faults;
    faults.runAt(
        2, [&] { ::unlink(path.c_str()); }, "open");
    const int file = ::open(path.c_str(), O_RDONLY);
    EXPECT_EQ(::open(path.c_str(), O_RDONLY), -1) << "gone ahead of the call";
    faults.shortAt(1, 0, "read");
    EXPECT_EQ(::read(file, bytes.data(), size), 4);
    faults.failFrom(2, EIO, "read");
    EXPECT_EQ(::read(file, bytes.data(), size) + ::read(file, bytes.data(), 1), -2);
    EXPECT_EQ(errno, EIO);
    faults.failAt(6, EINTR);
    EXPECT_EQ(::close(file), -1);
    EXPECT_EQ(faults.hitName(), "close") << "the sixth call, as those of the action do not count";
    EXPECT_EQ(::fcntl(file, F_GETFD), -1) << "closed all the same";
}

TEST(FileFaultsTest, AStreamThatFailsHasItsErrorFlag) {
    const TempDir directory;
    const std::string path = directory.path() + "/file";
    FileFaults faults;
    std::FILE* const stream = ::fopen64(path.c_str(), "w");
    faults.shortAt(1, ENOSPC, "fwrite");
    EXPECT_EQ(::fwrite("1234", 1, 4, stream), 2U);
    EXPECT_NE(std::ferror(stream), 0);
    faults.failAt(1, EDQUOT, "fclose");
    EXPECT_EQ(std::fclose(stream), EOF);  // NOLINT(cppcoreguidelines-owning-memory)
    EXPECT_EQ(directory.read("file"), "") << "what the stream held is lost";
}

}  // namespace
}  // namespace tarvik_test
