/// How a table of words is read: each word stands for a code, and all others for one more.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace TarvikTables {

struct Keyword {
    std::string_view word;
    int code;
};

/// The code of the first row whose word is exactly this one, case included, or `unknown`.
template <std::size_t Rows>
constexpr int codeOf(std::string_view word, const std::array<Keyword, Rows>& table, int unknown) {
    for (const Keyword& row : table) {
        if (row.word == word) return row.code;
    }
    return unknown;
}

}  // namespace TarvikTables
