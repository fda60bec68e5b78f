/// What the fuzzers share: how an input is cut up, and how a property is asked for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace fuzz {

/// Ends the run with a finding.
inline void check(bool holds) {
    if (!holds) std::abort();
}

/// Takes an input apart from its front. At its end there are zeros and empty texts.
class Feed {
public:
    Feed(const std::uint8_t* data, std::size_t size)
        : rest(reinterpret_cast<const char*>(data), size) {}

    [[nodiscard]] bool isEmpty() const { return rest.empty(); }

    unsigned char byte() {
        if (rest.empty()) return 0;
        const char first = rest.front();
        rest.remove_prefix(1);
        return static_cast<unsigned char>(first);
    }

    /// Any number. The first byte shortens it, so that small ones are as likely as large ones.
    long long number() {
        const int shift = byte() % 64;
        std::uint64_t bits = 0;
        for (std::size_t i = 0; i < sizeof bits; ++i)
            bits = bits << 8 | byte();
        return static_cast<long long>(bits) >> shift;
    }

    /// All up to the next zero byte, which is dropped.
    std::string text() {
        const std::string_view taken = rest.substr(0, rest.find('\0'));
        rest.remove_prefix(taken.size() < rest.size() ? taken.size() + 1 : taken.size());
        return std::string(taken);
    }

private:
    std::string_view rest;
};

}  // namespace fuzz
