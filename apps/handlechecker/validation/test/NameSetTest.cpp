#include "apps/handlechecker/validation/NameSet.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

// Names whose hashes point to the places from `first` to before `end` of a table of 1024.
std::vector<std::string> namesIn(std::size_t first, std::size_t end) {
    std::vector<std::string> names;
    for (int number = 0; names.size() < 400; ++number) {
        const std::string name = "name " + std::to_string(number);
        const std::size_t place = std::hash<std::string_view>()(name) % 1024;
        if (place >= first && place < end) names.push_back(name);
    }
    return names;
}

// Ordinary names, and two kinds that are made to collide: the second at the end of the table.
TEST(NameSetTest, ANameIsNewOnceUntilTheSetIsCleared) {
    for (const auto& [first, end] : {std::pair(0U, 1024U), {32U, 64U}, {992U, 1024U}}) {
        NameSet set;
        const std::vector<std::string> names = namesIn(first, end);
        for (const char* const round : {"first", "second"}) {
            for (const bool isNew : {true, false}) {
                for (const std::string& name : names)
                    EXPECT_EQ(set.insert(name), isNew) << name << " from " << first << round;
            }
            set.clear();
        }
    }
}

}  // namespace
}  // namespace Tarvik
