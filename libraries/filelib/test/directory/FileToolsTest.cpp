#include "libraries/filelib/source/directory/FileTools.h"

#include "test/support/FileFaults.h"
#include "test/support/ScopedEnv.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>

namespace TarvikFilelib {
namespace {

namespace fs = std::filesystem;
using tarvik_test::FileFaults;

// All below the current directory, in the order of the names: "a:x b:y". A content "->x" is a link
// to x, "|" a FIFO, "gz:x" a compressed x; "d/:" is an empty directory. Only to make, "=x" is a
// second name of x, which must come before it.
using State = std::string;

void makeEntry(const std::string& name, const std::string& content) {
    if (fs::path(name).has_parent_path()) fs::create_directories(fs::path(name).parent_path());
    if (name.back() == '/') return;
    if (content.starts_with("->")) return fs::create_symlink(content.substr(2), name);
    if (content.starts_with("=")) return fs::create_hard_link(content.substr(1), name);
    if (content.starts_with("gz:")) {
        gzFile file = gzopen(name.c_str(), "wb");
        gzputs(file, content.c_str() + 3);
        gzclose(file);
    } else if (content != "|") {
        std::ofstream(name, std::ios::binary) << content;
    } else {
        ASSERT_EQ(mkfifo(name.c_str(), 0600), 0);
    }
}

void reset(const State& state) {
    for (const fs::directory_entry& entry : fs::directory_iterator("."))
        fs::remove_all(entry.path());
    std::istringstream entries(state);
    for (std::string entry; entries >> entry;)
        makeEntry(entry.substr(0, entry.find(':')), entry.substr(entry.find(':') + 1));
}

std::string contentOf(const fs::directory_entry& entry) {
    if (entry.is_symlink()) return "->" + fs::read_symlink(entry.path()).string();
    if (entry.is_fifo()) return "|";
    std::string content = tarvik_test::readFile(entry.path());
    if (!content.starts_with("\x1f\x8b")) return content;
    std::array<char, 100> text{};
    gzFile file = gzopen(entry.path().c_str(), "rb");
    const int size = gzread(file, text.data(), text.size());
    return gzclose(file) == Z_OK && size >= 0 ? "gz:" + std::string(text.data(), text.data() + size)
                                              : "damaged";
}

State found() {
    std::map<std::string, std::string> entries;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(".")) {
        const std::string name = entry.path().string().substr(2);
        if (entry.is_symlink() || !entry.is_directory())
            entries[name] = contentOf(entry);
        else if (fs::is_empty(entry.path()))
            entries[name + "/"] = "";
    }
    State state;
    for (const auto& [name, content] : entries)
        state.append(state.empty() ? "" : " ").append(name).append(":").append(content);
    return state;
}

// Runs in a directory of its own, so that all names are relative.
class FileToolsTest : public testing::Test {
protected:
    void SetUp() override { fs::current_path(directory.path()); }
    void TearDown() override { fs::current_path("/"); }

    // In memory, if there is such a place: the operations wait for the disk thousands of times.
    tarvik_test::ScopedEnv memory{"TMPDIR", fs::is_directory("/dev/shm") ? "/dev/shm" : "/tmp"};
    tarvik_test::TempDir directory;
};

// The name and the text of what is thrown.
std::string failureOf(const std::function<void()>& run) {
    try {
        run();
    } catch (const TarvikCorelib::Exception& failure) {
        return failure.getFullMessage(true);
    }
    return "";
}

using Operation = void(const std::string& first, const std::string& second, int flags);

constexpr Operation* copy = FileTools::copy;
constexpr Operation* move = FileTools::move;
constexpr Operation* renaming = FileTools::rename;
constexpr Operation* value = FileTools::stringToFile;

void append(const std::string& path, const std::string& text, int /*flags*/) {
    FileTools::appendToFile(path, text);
}

void enumerate(const std::string& path, const std::string& /*none*/, int digits) {
    FileTools::createFile(FileTools::getNextEnumeration(path, static_cast<unsigned int>(digits)));
}

void removal(const std::string& path, const std::string& /*none*/, int force) {
    FileTools::remove(path, force != 0);
}

void reading(const std::string& path, const std::string& text, int /*flags*/) {
    EXPECT_EQ(FileTools::fileToString(path), text);
}

void zip(const std::string& path, const std::string& /*none*/, int flags) {
    FileTools::gzip(path, flags);
}

void unzip(const std::string& path, const std::string& /*none*/, int flags) {
    FileTools::ungzip(path, flags);
}

struct Scenario {
    const char* name;
    State before;
    Operation* run;
    std::string first;
    std::string second;
    int flags;
    State after;
    std::string failure = {};  // Part of it.
    // From that one on these calls fail, for want of descriptors.
    std::size_t failsFrom = 0;
    const char* call = "";

    [[nodiscard]] std::string failureNow() const {
        return failureOf([this] { run(first, second, flags); });
    }
};

const std::string longest(255, 'n');

const std::vector<Scenario> scenarios{
    {"refused", "a:n b:o", copy, "a", "b", 0, "a:n b:o", R"("a" to "b" (target exists))"},
    {"replaced", "a:n b:o", copy, "a", "b", 2, "a:n b:n"},
    {"nobody to ask", "a:n b:o", copy, "a", "b", 6, "a:n b:o", "(target exists)"},
    {"a temporary", "a:n b.CPYTMP:o", copy, "a", "b.CPYTMP", 2, "a:n b.CPYTMP:o", "cpytmp files)"},
    {"quirk: a new one ends under another name", "a:n b:o", copy, "a", "b.cpytmp", 0, "a:n b:n"},
    {"its own temporary", "b:o b.cpytmp:n", copy, "b.cpytmp", "b", 2, "b:o b.cpytmp:n", "cpytmp f"},
    {"a FIFO is not waited for", "a:|", copy, "a", "b", 0, "a:|", "(not a plain file)"},
    {"a FIFO as target", "a:n b:|", copy, "a", "b", 2, "a:n b:n"},
    {"a directory as target", "a:n d/c:o", copy, "a", "d", 2, "a:n d/c:o", "errno=21"},
    {"a FIFO at the temporary", "a:n b:o b.cpytmp:|", copy, "a", "b", 2, "a:n b:n"},
    {"a link there", "a:n b:o b.cpytmp:->v v:x", copy, "a", "b", 2, "a:n b:n v:x"},
    {"a second name there", "a:n b:o v:x b.cpytmp:=v", copy, "a", "b", 2, "a:n b:n v:x"},
    {"a link as target", "a:n b:->v v:x", copy, "a", "b", 2, "a:n b:n v:x"},
    {"a link to nothing exists", "a:n b:->v", copy, "a", "b", 0, "a:n b:->v", "(target exists)"},
    {"a link is followed", "a:->c c:n", copy, "a", "b", 0, "a:->c b:n c:n"},
    {"onto itself", "a:x", copy, "a", "./a", 2, "a:x"},
    {"by a linked directory", "d/a:x l:->d", copy, "d/a", "l/a", 2, "d/a:x l:->d"},
    {"a number", "a:n e.cpytmp:o", copy, "a", "e.cpytmp", 3, "a:n e-0001.cpytmp:n e.cpytmp:o"},
    {"no source to close", "a:n", copy, "a", "b", 0, "a:n", "(file write error)", 2, "fclose"},
    {"no descriptor", "a:n b:o", copy, "a", "b", 2, "a:n b:o", "(in, errno=24", 1, "open"},
    {"itself under a number", "a:x", copy, "a", "a", 3, "a:x a-0001:x"},
    {"no source", "b:o", copy, "a", "b", 2, "b:o", R"(NoSuchFile: Trying to access "a", but)"},
    {"no name", "a:x", copy, "a", "", 0, "a:x", R"("target_path" must not be empty (copy))"},

    {"moved over a file", "a:n b:o", move, "a", "b", 2, "b:n"},
    {"elsewhere", "a:n d/b:o d/b._tmpmove_:x", move, "a", "d/b", 2, "d/b:n d/b._tmpmove_:x"},
    {"quirk: a skipped move drops its source", "a:n b:o", move, "a", "b", 1, "b:o"},
    {"not if the target leads to it", "a:x b:->c c:->a", move, "a", "b", 1, "a:x b:->c c:->a"},
    {"a link onto its way", "a:x l:->m m:->a", move, "l", "m", 2, "a:x l:->m m:->a"},
    {"quirk: a new name loses its suffix", "a:n b:o", move, "a", "b.cpytmp", 0, "b:n"},
    {"a directory moved", "d/c:x", move, "d", "e", 0, "d/c:x", "(copy failed when moving)\nCopy_"},

    {"name taken", "a:n b:o", renaming, "a", "b", 0, "a:n b:o", R"(/b" must not exists prior)"},
    {"no old name", "a:x", renaming, "", "a", 2, "a:x", R"("path" must not be empty (rename))"},
    {"a blank name", "a:x", renaming, "a", " ", 2, "a:x", "must not be empty (rename)"},
    {"a directory renamed", "d/:", renaming, "d", "e", 0, "d/:", "NoSuchFile"},
    {"over a directory", "a:x d/:", renaming, "a", "d", 2, "a:x d/:", "(errno=21)"},
    {"to a number", "a:n b:o", renaming, "a", "b", 3, "b:o b-0001:n"},
    {"no suffix, no dot", "d.x/a:x", enumerate, "d.x/a", "", 4, "d.x/a:x d.x/a-0001:"},
    {"no digits", "a-1.gz:x a.gz:x", enumerate, "a.gz", "", 0, "a-1.gz:x a-2.gz: a.gz:x"},
    {"a link goes alone", "a:->b b:x", removal, "a", "", 1, "b:x"},
    {"what is not empty stays", "d/a:x", removal, "d", "", 1, "d/a:x", "Remove_Failed"},

    {"one that exists", "b:o", value, "b", "n", 0, "b:o", "prior to operation (stringToFile)"},
    {"a planted link", "b:o b.cpytmp:->v v:x", value, "b", "n", 2, "b:n v:x"},
    {"a value that is a link", "b:->v v:longer", value, "b", "n", 2, "b:->v v:n"},
    {"a link to nothing yet", "b:->v", value, "b", "n", 2, "b:->v v:n"},
    {"a second name", "b:o v:=b", value, "b", "new", 2, "b:new v:new"},
    {"no room", "a:n " + longest + ":o", copy, "a", longest, 2, "a:n " + longest + ":n"},
    {"no descriptor", "b:o", value, "b", "n", 2, "b:o", "Write_Failure", 1, "open"},
    {"a FIFO without a reader", "b:|", value, "b", "n", 2, "b:|", "Write_Failure"},
    {"no directory", "", value, "d/b", "n", 2, "", "NoSuchFile"},
    {"a FIFO is no text", "b:|", reading, "b", "", 0, "b:|", "no such file (fileToString)"},
    {"more of it", "b:o", append, "b", "n", 0, "b:on"},

    {"odd name", "a$A%B%:x", zip, "a$A%B%", "", 0, "a$A%B%:x a$A%B%.gz:gz:x"},
    {"compressed over a link", "a:x a.gz:->v v:x", zip, "a", "", 2, "a:x a.gz:gz:x v:x"},
    {"a mark", "A.GZ:gz:\xef\xbb\xbf", unzip, "A.GZ", "", 0, "A:\xef\xbb\xbf A.GZ:gz:\xef\xbb\xbf"},
    {"nothing to take away", "a.x:x", unzip, "a.x", "", 0, "a.x:x", "Ungzip_NotGzipFile"},
    {"no name left", "d/.gz:gz:x", unzip, "d/.gz", "", 0, "d/.gz:gz:x", "Ungzip_NotGzipFile"},
    {"not compressed", "a.gz:text", unzip, "a.gz", "", 0, "a.gz:text", "Read_Failure"},
    {"damaged", "a:o a.gz:\x1f\x8b\x08?", unzip, "a.gz", "", 2, "a:o a.gz:damaged", "_Failure"},
};

TEST_F(FileToolsTest, EachOperationEndsInOneState) {
    for (const Scenario& scenario : scenarios) {
        SCOPED_TRACE(scenario.name);
        reset(scenario.before);
        FileFaults faults;
        if (scenario.failsFrom > 0) faults.failFrom(scenario.failsFrom, EMFILE, scenario.call);
        const std::string failure = scenario.failureNow();
        EXPECT_NE(failure.find(scenario.failure), std::string::npos) << failure;
        EXPECT_EQ(failure.empty(), scenario.failure.empty()) << failure;
        EXPECT_EQ(found(), scenario.after);
    }
}

// What may be there after a fault is the old state or the new one; or, of a move that had to copy,
// the one under `failure`.
const std::vector<Scenario> faultScenarios{
    {"copy", "a:n", copy, "a", "b", 0, "a:n b:n"},
    {"copy over", "a:n b:o", copy, "a", "b", 2, "a:n b:n"},
    {"move", "a:n", move, "a", "b", 0, "b:n", "a:n b:n"},
    {"move over", "a:n b:o", move, "a", "b", 2, "b:n", "a:n b:n"},
    {"move elsewhere", "a:n d/b:o", move, "a", "d/b", 2, "d/b:n", "a:n d/b:n"},
    {"onto its other name", "a:x b:=a", move, "a", "b", 2, "b:x", "a:x b:x"},
    {"skipped move", "a:n b:o", move, "a", "b", 1, "b:o", "a:n b:o"},
    {"value", "", value, "b", "new", 0, "b:new"},
    {"value over", "b:old", value, "b", "new", 2, "b:new"},
    {"shorter in place", "b:->v v:old", value, "b", "n", 2, "b:->v v:n"},
    {"longer in place", "b:->v v:old", value, "b", "newer", 2, "b:->v v:newer"},
    {"more", "b:old", append, "b", "er", 0, "b:older"},
    {"gzip", "a:n", zip, "a", "", 0, "a:n a.gz:gz:n"},
    {"gzip over", "a:n a.gz:gz:o", zip, "a", "", 2, "a:n a.gz:gz:n"},
    {"ungzip over", "a:o a.gz:gz:n", unzip, "a.gz", "", 2, "a:n a.gz:gz:n"},
    {"remove", "a:x", removal, "a", "", 1, ""},
};

std::size_t openFiles() {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
}

// False if there is no such call.
bool runWithFault(const Scenario& scenario, std::size_t number, bool isShort) {
    reset(scenario.before);
    const State before = found();
    const std::size_t openBefore = openFiles();
    FileFaults faults;
    isShort ? faults.shortAt(number, ENOSPC) : faults.failAt(number, EIO);
    const std::string failure = scenario.failureNow();
    if (!faults.hit()) return false;

    SCOPED_TRACE(scenario.name + (" " + std::to_string(number)) + faults.hitName() + failure);
    EXPECT_EQ(openFiles(), openBefore);
    const State after = found();
    const bool isOld = !failure.empty() && after == before;
    EXPECT_TRUE(isOld || after == scenario.after || after == scenario.failure) << after;
    return true;
}

TEST_F(FileToolsTest, AFaultAtAnyCallLeavesTheOldOrTheNew) {
    std::size_t faultsMade = 0;
    for (const Scenario& scenario : faultScenarios)
        for (const bool isShort : {false, true})
            for (std::size_t number = 1; runWithFault(scenario, number, isShort); ++number)
                ++faultsMade;
    EXPECT_GT(faultsMade, 400U);
}

TEST_F(FileToolsTest, ANameWithANulIsNoFilesName) {
    reset("a:x v:->a");
    const std::string name("v\0x", 3);
    for (Operation* run : {removal, copy, move, renaming, value, append, reading, zip, enumerate})
        EXPECT_TRUE(failureOf([&] { run(name, "b", 2); }).starts_with("NoSuchFile"));
    EXPECT_EQ(found(), "a:x v:->a");
}

TEST_F(FileToolsTest, AValueWhoseWriterIsKilledIsTheOldOrTheNew) {
    constexpr std::size_t points = 500;
    const std::array<std::string, 2> values{std::string(70'000, 'o'), std::string(90'000, 'n')};
    for (std::size_t point = 1; point <= points; ++point) {
        FileTools::stringToFile("b", values[0], 2);
        ASSERT_FALSE(FileTools::exists("b.cpytmp")) << "what the last one left is cleared up";
        const pid_t child = fork();
        if (child == 0) {
            FileFaults faults;
            faults.runAt(point, [] { kill(getpid(), SIGKILL); });
            failureOf([&values] {
                for (std::size_t i = 1;; ++i)
                    FileTools::stringToFile("b", values.at(i % 2), 2);
            });
            _exit(1);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));
        const std::string content = tarvik_test::readFile("b");
        ASSERT_TRUE(content == values[0] || content == values[1]) << point;
    }
}

// Somebody swaps the directory for a link once it is open.
TEST_F(FileToolsTest, ADirectoryThatIsSwappedLeadsNowhereElse) {
    const std::vector<Scenario> swapped{
        {"value", "", value, "d/b", "new", 2, ""},
        {"copy", "", copy, "a", "d/b", 2, ""},
        {"gzip", "", zip, "d/b", "", 2, ""},
    };
    for (const Scenario& scenario : swapped) {
        reset("a:new d/b:old d/b.gz:old v/b:victim v/b.gz:victim");
        FileFaults faults;
        const auto swap = [] {
            fs::rename("d", "e");
            fs::create_symlink("v", "d");
        };
        faults.runAt(1, swap, "openat");
        EXPECT_EQ(scenario.failureNow(), "");
        EXPECT_TRUE(faults.hit()) << scenario.name;
        EXPECT_TRUE(found().ends_with(" v/b:victim v/b.gz:victim")) << found();
    }
}

TEST_F(FileToolsTest, AFullDeviceKeepsWhatItHas) {
    EXPECT_EQ(failureOf([] { FileTools::stringToFile("/dev/full", "x", 2); }),
              "Write_Failure: Failed to write to \"/dev/full\"");
    fs::create_directory("small");
    if (mount("tmpfs", "small", "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "no small device: may not mount one";
    const std::string large(100'000, 'x');
    makeEntry("large", large);
    fs::current_path("small");
    for (const Scenario& scenario : std::vector<Scenario>{
             {"value", "", value, "b", large, 2, ""},
             {"in place", "", value, "c", large, 2, ""},
             {"copy", "", copy, "../large", "b", 2, ""},
         }) {
        reset("b:old c:->b");
        EXPECT_NE(scenario.failureNow(), "") << scenario.name;
        EXPECT_EQ(found(), "b:old c:->b");
    }
    fs::current_path("..");
    umount("small");
}

TEST_F(FileToolsTest, WithoutPermission) {
    if (geteuid() != 0) GTEST_SKIP() << "needs another user to be";
    constexpr uid_t nobody = 65534;
    reset("closed:o open:o own/secret:o");
    fs::permissions(directory.path(), fs::perms(0755));
    fs::permissions("open", fs::perms(0666));
    fs::permissions("own", fs::perms(0777));
    fs::permissions("own/secret", fs::perms(04600));
    ASSERT_EQ(seteuid(nobody), 0);
    const std::string failures =
        failureOf([] { FileTools::fileToString("own/secret"); }).substr(0, 14) +
        failureOf([] { FileTools::stringToFile("closed", "x", 2); }).substr(0, 14) +
        failureOf([] { FileTools::remove("open"); }).substr(0, 14) +
        failureOf([] { FileTools::copy("open", "closed", 2); }).substr(0, 11);
    FileTools::stringToFile("open", "n", 2);
    FileTools::stringToFile("own/secret", "mine", 2);
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_EQ(failures, "AccessDenied: AccessDenied: AccessDenied: Copy_Failed");
    EXPECT_EQ(found(), "closed:o open:n own/secret:mine");
    EXPECT_EQ(fs::status("own/secret").permissions(), fs::perms(0600)) << "runs as nobody else";
}

TEST_F(FileToolsTest, WhoseModeAFileHas) {
    reset("a:x b:x");
    fs::permissions("a", fs::perms(04751));
    fs::permissions("b", fs::perms(0600));
    FileTools::stringToFile("a", "new", 2);
    EXPECT_EQ(fs::status("a").permissions(), fs::perms(04751)) << "a replaced one keeps its own";
    FileTools::copy("a", "c");
    EXPECT_EQ(FileTools::getPermissions("c", FileTools::Owner), 6) << "that of any new file";
    FileTools::gzip("b");
    EXPECT_EQ(fs::status("b.gz").permissions(), fs::perms(0600)) << "no secret is opened up";
    FileTools::removePermission("a", FileTools::Group, FileTools::Read);
    FileTools::setStatus("a", FileTools::Sticky);
    EXPECT_EQ(fs::status("a").permissions(), fs::perms(05711));
}

TEST_F(FileToolsTest, TimesAndLinks) {
    reset("a:x l:->" + std::string(300, 'x'));
    const TarvikCorelib::DateTime early(TarvikCorelib::unixEpoch - 1);
    FileTools::setLastModifiedTime("a", early);
    EXPECT_EQ(FileTools::getLastModifiedTime("a").time(), early.time());
    EXPECT_THROW(FileTools::setCreationTime("a", early), AccessDenied);
    EXPECT_EQ(FileTools::getLinkTarget("l"), std::string(300, 'x'));
}

TEST_F(FileToolsTest, TheFirstOfTheDirectoriesHasTheFile) {
    reset("one/dir/: three/tool:x two/tool:x");
    const tarvik_test::ScopedEnv path("PATH", "::two:three");
    EXPECT_EQ(FileTools::findFile("tool", 0, {"one", "", "three", "two"}), "three/tool");
    EXPECT_EQ(FileTools::findFile("tool", FileTools::FindInPath, {"one"}), "two/tool");
    EXPECT_EQ(FileTools::findPath("dir", {"two", "one"}), "one/dir");
    EXPECT_THROW(FileTools::findFile("dir", 0, {"one"}), FileTools::FileNotFound);
}

TEST_F(FileToolsTest, LinesAreReadAsTheyWereWritten) {
    const FileTools::List items{"", "b", "a", "b", ""};
    FileTools::listToFile("list", items);
    EXPECT_EQ(tarvik_test::readFile("list"), "\nb\na\nb\n\n");
    EXPECT_EQ(FileTools::fileToList("list"), items);
    const FileTools::MultiMap pairs{{"a", "1=2"}, {"a", ""}, {"b", "3"}};
    FileTools::multiMapToFile("map", pairs);
    EXPECT_EQ(FileTools::fileToMultiMap("map"), pairs);
    EXPECT_EQ(FileTools::fileToMap("map"), (FileTools::Map{{"a", "1=2"}, {"b", "3"}}));
}

TEST_F(FileToolsTest, GzipReadsWhatWasCompressedHereAndTheReverse) {
    std::string text;
    for (unsigned int i = 0; text.size() < 300'000; ++i)
        text += std::to_string(i * 2654435761U);
    makeEntry("a", text);
    FileTools::gzip("a");
    EXPECT_EQ(std::system("gzip -t a.gz && zcat a.gz | cmp - a && mv a b && gzip b"), 0);
    FileTools::ungzip("b.gz");
    EXPECT_TRUE(tarvik_test::readFile("b") == text);
}

struct Reporter : ProgressReporter {
    void reportOperationStart(const std::string& name, unsigned long long total) override {
        seen = name + " " + std::to_string(total);
    }
    void reportOperationUpdate(const std::string& /*name*/, unsigned long long amount) override {
        seen += " +" + std::to_string(amount);
    }
    void reportOperationEnd(const std::string& /*name*/, OperationStatus status,
                            const std::string& text) override {
        seen += " ." + std::to_string(static_cast<int>(status)) + text;
    }
    std::string askQuestion(const std::string& /*operation*/, const std::string& question,
                            const std::string& answers) override {
        seen += " " + question + answers;
        return answer;
    }
    std::string seen;
    std::string answer;
};

// What the reporter saw is under `second`, and the answer is the name.
const std::vector<Scenario> answers{
    {"No", "a:new b:o", copy, "a", " .1", 4, "a:new b:o"},
    {"Yes", "a:new b:o", copy, "a", " +1 +1 .0", 4, "a:new b:new"},
    {"Enumerate", "a:new b:o", copy, "a", " +1 +1 .0", 4, "a:new b:o b-0001:new"},
    {"Merge", "a:new b:o", copy, "a", " .2unknown error", 4, "a:new b:o", "(unknown error)"},
    {"Abort", "a:new b:o", copy, "a", " .3", 4, "a:new b:o",
     R"(Operation ("copy") was aborted ("Target exists"))"},
};

TEST_F(FileToolsTest, TheAnswersOfTheUser) {
    for (const Scenario& row : answers) {
        reset(row.before);
        Reporter reporter;
        reporter.answer = row.name;
        CopyParams params(&reporter, row.flags, 2);
        const std::string failure = failureOf([&] { FileTools::copy("a", "b", params); });
        EXPECT_NE(failure.find(row.failure), std::string::npos) << failure;
        EXPECT_EQ(reporter.seen,
                  "copyfile(a) 2 Target exists, overwrite?No|Yes|Enumerate" + row.second);
        EXPECT_EQ(found(), row.after);
    }
}

}  // namespace
}  // namespace TarvikFilelib
