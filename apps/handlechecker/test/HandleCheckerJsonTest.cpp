// The layout against that of the JSON library, which reads and writes the same document.

#include "apps/handlechecker/HandleCheckerJson.h"

#include <gtest/gtest.h>
#include <json/value.h>
#include <json/writer.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Tarvik::HandleValidator;
using Errors = std::vector<HandleValidator::Error>;

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
std::string styled(const Json::Value& root) {
    return Json::StyledWriter().write(root);
}
#pragma GCC diagnostic pop

void expectLayoutOfTheLibrary(const Errors& errors, const std::string& path) {
    Json::Value list(Json::arrayValue);
    for (const auto& error : errors) {
        Json::Value item;
        item["line"] = error.line;
        item["message"] = error.message;
        list.append(item);
    }
    Json::Value flat;
    flat["Error"] = list;
    Json::Value nested;
    nested["Data"]["Path"] = path;
    nested["Data"]["Error"] = list;
    EXPECT_EQ(Tarvik::jsonText(errors), styled(flat));
    EXPECT_EQ(Tarvik::jsonText(errors, path), styled(nested));
}

TEST(HandleCheckerJsonTest, TheFaultsOfEachCaseAreLaidOutAsByTheLibrary) {
    std::size_t count = 0;
    for (const auto& entry : fs::recursive_directory_iterator(HANDLE_CASES_DIR)) {
        std::string path = entry.path().string();
        HandleValidator validator;
        if (!path.ends_with(".conf") || !validator.loadHandle(path)) continue;
        if (validator.validate()) continue;
        SCOPED_TRACE(path);
        expectLayoutOfTheLibrary(validator.takeErrors(), path);
        ++count;
    }
    EXPECT_GT(count, 20U);
}

TEST(HandleCheckerJsonTest, AnyBytesAreQuotedAsByTheLibrary) {
    constexpr auto pieces = std::to_array<std::string_view>(
        {"\"", "\\", "/", "a", "some words", " ", "<", "\t", "\x1f", "\x7f", "\xc3\xa9",
         "\xe2\x82\xac", "\xf0\x9f\x98\x80", "\xc3", "\xf0\x9f"});
    std::mt19937 random(1);  // Each run draws the same.
    const auto anyText = [&random, &pieces] {
        std::string text;
        for (auto left = random() % 8; left > 0; --left) {
            if (random() % 4 == 0) {
                text += static_cast<char>(random() % 256);
            } else {
                text += pieces[random() % pieces.size()];
            }
        }
        return text;
    };

    for (int round = 0; round < 3000 && !testing::Test::HasFailure(); ++round) {
        Errors errors(1 + random() % 3);
        for (auto& error : errors)
            error = {.message = anyText(), .line = anyText()};
        expectLayoutOfTheLibrary(errors, anyText());
    }
    expectLayoutOfTheLibrary({{.message = std::string("a\0b", 3), .line = "1"}}, "");
}

}  // namespace
