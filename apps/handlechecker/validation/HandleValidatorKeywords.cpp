// The words of the format and their codes.

#include "apps/handlechecker/validation/HandleRecords.h"
#include "apps/handlechecker/validation/HandleValidator.h"
#include "shared/library/common/StringTools.h"
#include "shared/library/tables/Keywords.h"

#include <array>

namespace Tarvik {

namespace {

using TarvikTables::codeOf;
using TarvikTables::Keyword;

constexpr auto suspendActions = std::to_array<Keyword>({
    {"resume", 1},
    {"terminate", 2},
});

constexpr auto disableMethods = std::to_array<Keyword>({
    {"apptracker", 1},
    {"none", 2},
    {"log", 3},
    {"suspend", 4},
    {"terminate", 5},
    {"standby", 6},
    {"hibernate", 7},
    {"corrupt", 8},
    {"encrypt", 9},
});

constexpr auto weekDays = std::to_array<Keyword>({
    {"mon", 0},
    {"tue", 1},
    {"wed", 2},
    {"thu", 3},
    {"fri", 4},
    {"sat", 5},
    {"sun", 6},
});

constexpr auto prioritiesByWord = std::to_array<Keyword>({
    {"low", 0},
    {"normal", 1},
    {"high", 2},
    {"total", 3},
});

constexpr auto counterIDs = std::to_array<Keyword>({
    {"cpu", 0},
    {"io", 1},
    {"mouse", 2},
    {"keyboard", 3},
});

constexpr auto licenseTypes = std::to_array<Keyword>({
    {"none", 1},
    {"flex", 2},
    {"lum", 3},
    {"elan", 4},
    {"rms", 5},
    {"rlm", 6},
});

}  // namespace

int mapCounterID(const std::string& word) {
    return codeOf(word, counterIDs, unknownCounterID);
}

int mapDisableMethod(const std::string& word) {
    return codeOf(word, disableMethods, unknownDisableMethod);
}

int HandleValidator::mapSuspendAction(std::string word) {
    StringTools::makeLower(word);
    return codeOf(word, suspendActions, UnknownSuspendAction);
}

int HandleValidator::mapWeekDay(const std::string& word) {
    return codeOf(word, weekDays, UnknownWeekDay);
}

int HandleValidator::mapPriority(const std::string& word) {
    return codeOf(word, prioritiesByWord, UnknownPriority);
}

int HandleValidator::mapLicenseType(const std::string& word) {
    return codeOf(word, licenseTypes, UnknownLicenseType);
}

}  // namespace Tarvik
