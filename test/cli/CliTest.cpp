// Whole runs of the tool and of the example agent. Each folder of the cases is one test; a new case
// is files and no code:
//
//   command   what the shell runs, in a fresh copy of files/; "$TOOL" and "$AGENT" are the
//             programs, "$CASE" is the folder of the case
//   files/    what lies in the working directory at the start (may be left out)
//   stdout    the bytes that must come out
//   status    the exit status, where it is not 0
//   after/    files that must hold exactly these bytes afterwards (may be left out)
//   absent    names, one a line, that must not exist afterwards (may be left out)

#include "test/support/ScopedEnv.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using tarvik_test::readFile;
using tarvik_test::ScopedEnv;

// A run that takes longer is killed, and no case expects its status then.
constexpr const char* runCommand =
    "unset TARVIK_FREG TARVIK_FREG_DIR tarvik_application_instance tarvik_hostname && "
    R"(cd "$WORK" && exec timeout -k 1 20 /bin/sh "$CASE/command" </dev/null >../stdout 2>../stderr)";

std::vector<std::string> allCases() {
    std::vector<std::string> cases;
    for (const auto& entry : fs::directory_iterator(CLI_CASES_DIR))
        cases.push_back(entry.path().filename().string());
    std::sort(cases.begin(), cases.end());
    return cases;
}

std::string testName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

class CliTest : public testing::TestWithParam<std::string> {
protected:
    CliTest() {
        fs::create_directory(work);
        if (fs::exists(folder / "files")) {
            fs::copy(folder / "files", work, fs::copy_options::recursive);
        }
    }

    int run() const {
        const ScopedEnv tool("TOOL", HANDLE_CHECKER);
        const ScopedEnv agent("AGENT", AGENT);
        const ScopedEnv caseFolder("CASE", folder.string());
        const ScopedEnv workFolder("WORK", work.string());
        const int status = std::system(runCommand);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    int expectedStatus() const {
        const fs::path file = folder / "status";
        return fs::exists(file) ? std::stoi(readFile(file)) : 0;
    }

    void expectFilesAfter() const {
        if (!fs::exists(folder / "after")) return;
        for (const auto& entry : fs::recursive_directory_iterator(folder / "after")) {
            if (!entry.is_regular_file()) continue;
            const fs::path name = fs::relative(entry.path(), folder / "after");
            EXPECT_EQ(readFile(work / name), readFile(entry.path())) << "in " << name;
        }
    }

    void expectNothingAtAbsentNames() const {
        if (!fs::exists(folder / "absent")) return;
        std::istringstream names(readFile(folder / "absent"));
        for (std::string name; std::getline(names, name);)
            EXPECT_FALSE(fs::exists(fs::symlink_status(work / name))) << name << " was made";
    }

    tarvik_test::TempDir scratch;
    fs::path folder = fs::path(CLI_CASES_DIR) / GetParam();
    fs::path work = fs::path(scratch.path()) / "work";
};

TEST_P(CliTest, TheRunEndsAsTheCaseSays) {
    const int status = run();
    const std::string errors = scratch.read("stderr");

    EXPECT_EQ(status, expectedStatus()) << errors;
    EXPECT_EQ(scratch.read("stdout"), readFile(folder / "stdout")) << errors;
    EXPECT_EQ(errors.find("Sanitizer"), std::string::npos) << errors;
    EXPECT_EQ(errors.find("runtime error"), std::string::npos) << errors;
    expectFilesAfter();
    expectNothingAtAbsentNames();
}

INSTANTIATE_TEST_SUITE_P(Cases, CliTest, testing::ValuesIn(allCases()), testName);

}  // namespace
