#include "libraries/filelib/source/file/BinaryFile.h"

#include "test/support/FileFaults.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>

namespace TarvikFilelib {
namespace {

class BinaryFileTest : public testing::Test {
protected:
    tarvik_test::TempDir directory;
    // Nothing in it is a variable.
    std::string path = directory.write("$HOME%PATH%", "0123456789");
};

TEST_F(BinaryFileTest, TheEndIsMetBeforeItIsAFailure) {
    BinaryFile file(path);
    file.openIn();
    std::string bytes = "x";
    EXPECT_TRUE(file.read(bytes, 8));
    EXPECT_EQ(bytes, "x01234567") << "appended";
    EXPECT_EQ(file.read(), '8');
    EXPECT_FALSE(file.atEnd());
    EXPECT_FALSE(file.read(bytes, 2));
    EXPECT_EQ(bytes, "x012345679");
    EXPECT_TRUE(file.atEnd());
    EXPECT_THROW(file.read(), BinaryFile::Read_EndOfFile);
    file.setCurPos(-1);
    EXPECT_EQ(file.read(), '9');
    EXPECT_EQ(file.read(), -1);
}

TEST_F(BinaryFileTest, ReadingAndWritingShareThePosition) {
    BinaryFile file(path);
    file.openReadWrite(FileBase::ReadWriteExisting);
    EXPECT_EQ(file.read(), '0');
    file.write('a');
    EXPECT_EQ(file.read(), '2');
    file.moveCurPos(-2);
    file.write(std::string("b"));
    EXPECT_FALSE(file.atEnd());
    file.write('c');
    file.close();
    EXPECT_EQ(directory.read("$HOME%PATH%"), "0bc3456789");
}

struct FailureCase {
    const char* name;
    void (*prepare)(BinaryFile& file);
    void (*run)(BinaryFile& file);
    const char* failure;  // The beginning.
};

constexpr auto leave = [](BinaryFile&) {};
constexpr auto openIn = [](BinaryFile& file) { file.openIn(); };
constexpr auto openNew = [](BinaryFile& file) { file.openNew(); };
constexpr auto readByte = [](BinaryFile& file) { file.read(); };
constexpr auto writeByte = [](BinaryFile& file) { file.write('x'); };
constexpr auto addNul = [](BinaryFile& file) { file.setName(file.getName() + '\0'); };
constexpr auto setName = [](BinaryFile& file) { file.setName("missing/x"); };

constexpr auto failures = std::to_array<FailureCase>({
    {"reading a closed file", leave, readByte, "Read_EndOfFile: Trying to read past end of file"},
    {"writing what is read", openIn, writeByte, "Write_CannotWrite"},
    {"another name for it", openIn, setName, "SetName_FileOpen"},
    {"a name with a NUL", addNul, openIn, "Open_FileMustExist"},
    {"no such file", setName, openIn,
     R"(Open_FileMustExist: Trying to open non-existing file "miss)"},
    {"no such directory", setName, openNew,
     R"(Open_Failure: Failed to open "missing/x" (out, errno=2=No such file or directory))"},
});

TEST_F(BinaryFileTest, EachMisuseHasItsException) {
    for (const FailureCase& row : failures) {
        BinaryFile file(path);
        row.prepare(file);
        std::string failure;
        try {
            row.run(file);
        } catch (const TarvikCorelib::Exception& thrown) {
            failure = thrown.getFullMessage(true);
        }
        EXPECT_TRUE(failure.starts_with(row.failure)) << row.name << ": " << failure;
    }
}

TEST_F(BinaryFileTest, OneFailedReadDoesNotSpoilTheNext) {
    BinaryFile file(path);
    file.openIn();
    tarvik_test::FileFaults faults;
    faults.failAt(1, EIO, "fread");
    EXPECT_THROW(file.read(), BinaryFile::Read_Failure);
    EXPECT_EQ(file.read(), '0');
}

TEST_F(BinaryFileTest, AFailedCloseIsSaidOnce) {
    tarvik_test::FileFaults faults;
    faults.failFrom(1, EIO, "fclose");
    const auto write = [this] {
        BinaryFile file(path);
        file.openOut();
        file.write('x');
    };
    EXPECT_THROW(write(), BinaryFile::Close_Failure) << "by the destructor, too";
    BinaryFile file(path);
    file.openOut();
    EXPECT_THROW(file.close(), BinaryFile::Close_Failure);
    EXPECT_NO_THROW(file.close());
}

}  // namespace
}  // namespace TarvikFilelib
