#include "apps/handlechecker/validation/NameSet.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik {
namespace {

constexpr std::size_t nameCount = 400;
constexpr std::size_t tableSize = 1024;

// Names whose hashes all point to the given part of a table of this size.
std::vector<std::string> namesIn(std::size_t firstPlace, std::size_t endPlace) {
    std::vector<std::string> names;
    for (int number = 0; names.size() < nameCount; ++number) {
        std::string name = "name " + std::to_string(number);
        const std::size_t place = std::hash<std::string_view>()(name) % tableSize;
        if (place >= firstPlace && place < endPlace) names.push_back(name);
    }
    return names;
}

struct NamesCase {
    const char* name;
    std::size_t firstPlace;
    std::size_t endPlace;
};

constexpr auto namesCases = std::to_array<NamesCase>({
    {"ordinary names", 0, tableSize},
    {"names made to collide", 32, 64},
    {"names made to collide at the end of the table", tableSize - 32, tableSize},
});

TEST(NameSetTest, ANameIsNewOnceUntilTheSetIsCleared) {
    for (const NamesCase& row : namesCases) {
        const std::vector<std::string> names = namesIn(row.firstPlace, row.endPlace);
        NameSet set;
        for (const int round : {1, 2}) {
            for (const std::string& name : names)
                EXPECT_TRUE(set.insert(name)) << row.name << ", " << name << " in round " << round;
            for (const std::string& name : names)
                EXPECT_FALSE(set.insert(name)) << row.name << ", " << name << " in round " << round;
            set.clear();
        }
    }
}

}  // namespace
}  // namespace Tarvik
