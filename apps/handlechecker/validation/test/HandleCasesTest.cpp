// Each handle under handles/ against the faults listed in the file beside it, whole and in
// order, one "line: message" a fault. A new case is two files and no code.

#include "apps/handlechecker/validation/HandleValidator.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::vector<std::string> allCases() {
    std::vector<std::string> cases;
    for (const auto& entry : fs::recursive_directory_iterator(HANDLE_CASES_DIR)) {
        if (entry.path().extension() != ".conf") continue;
        fs::path relative = fs::relative(entry.path(), HANDLE_CASES_DIR);
        cases.push_back(relative.replace_extension().string());
    }
    std::sort(cases.begin(), cases.end());
    return cases;
}

std::string testName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    const auto isOther = [](char c) { return c == '-' || c == '/'; };
    std::replace_if(name.begin(), name.end(), isOther, '_');
    return name;
}

std::string asText(const std::vector<Tarvik::HandleValidator::Error>& errors) {
    std::string text;
    for (const auto& error : errors)
        text += error.line + ": " + error.message + "\n";
    return text;
}

class HandleCasesTest : public testing::TestWithParam<std::string> {};

TEST_P(HandleCasesTest, TheFaultsAreThoseListedBesideTheHandle) {
    const std::string base = std::string(HANDLE_CASES_DIR) + "/" + GetParam();
    std::string path = base + ".conf";
    Tarvik::HandleValidator validator;
    validator.setFilechecking();

    ASSERT_TRUE(validator.loadHandle(path));
    const bool valid = validator.validate();

    EXPECT_EQ(asText(validator.getErrorList()), tarvik_test::readFile(base + ".expected"));
    EXPECT_EQ(valid, validator.getErrorList().empty());
}

INSTANTIATE_TEST_SUITE_P(Handles, HandleCasesTest, testing::ValuesIn(allCases()), testName);

}  // namespace
