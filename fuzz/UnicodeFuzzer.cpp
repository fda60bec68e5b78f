// Any bytes in each of the three encodings, decoded beside iconv and encoded again.

#include "libraries/corelib/source/system/Unicode.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

#include "fuzz/Feed.h"

namespace {

using fuzz::check;
using TarvikCorelib::Unicode;

struct Encoding {
    const char* name;
    void (Unicode::*set)(std::string_view text);
    std::string (Unicode::*get)() const;
    unsigned int (*decode)(const char** p, std::size_t n);
    std::size_t (*lengthFrom)(std::string_view text, std::size_t pos);
    bool isStrict;      // It refuses just what iconv refuses.
    unsigned int last;  // Up to here encoding gives back what was decoded.
};
constexpr auto encodings = std::to_array<Encoding>({
    {"UTF-8", &Unicode::setUTF8, &Unicode::getUTF8, Unicode::fromUTF8, Unicode::getUTF8Length, true,
     0x10FFFF},
    {"UTF-16LE", &Unicode::setUTF16LE, &Unicode::getUTF16LE, Unicode::fromUTF16LE,
     Unicode::getUTF16LELength, false, 0xFFFF},
    {"UTF-16BE", &Unicode::setUTF16BE, &Unicode::getUTF16BE, Unicode::fromUTF16BE,
     Unicode::getUTF16BELength, false, 0xFFFF},
});

// Nothing if it is refused.
std::optional<std::vector<unsigned int>> byIconv(const char* encoding, std::string text) {
    iconv_t converter = iconv_open("UTF-32LE", encoding);
    std::vector<unsigned int> codes(text.size() + 1);
    char* from = text.data();
    auto* to = reinterpret_cast<char*>(codes.data());
    std::size_t left = text.size();
    std::size_t room = codes.size() * sizeof codes[0];
    const bool isRead = iconv(converter, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
    iconv_close(converter);
    codes.resize(codes.size() - room / sizeof codes[0]);
    return isRead ? std::optional(codes) : std::nullopt;
}

// What `set` does, by the single steps.
std::vector<unsigned int> stepByStep(const Encoding& encoding, const std::string& text) {
    std::vector<unsigned int> codes;
    const char* at = text.data();
    const char* const end = at + text.size();
    try {
        while (at != end) {
            const char* const before = at;
            codes.push_back(encoding.decode(&at, static_cast<std::size_t>(end - at)));
            check(before < at && at <= end);
        }
    } catch (const Unicode::Unicode_Invalid&) {
        check(at <= end);
    }
    return codes;
}

void checkEncoding(const Encoding& encoding, const std::string& text) {
    Unicode decoded;
    bool isRead = true;
    try {
        (decoded.*encoding.set)(text);
    } catch (const Unicode::Unicode_Invalid&) {
        isRead = false;
    }
    const std::vector<unsigned int> codes = stepByStep(encoding, text);
    check(decoded.compare(Unicode(codes)) == 0);
    check(encoding.lengthFrom(text, 0) <= text.size());

    const auto expected = byIconv(encoding.name, text);
    if (encoding.isStrict) check(isRead == expected.has_value());
    if (!isRead || !expected) return;
    check(codes == *expected);
    check(encoding.lengthFrom(text, 0) == codes.size());
    const bool isCommon =
        std::all_of(codes.begin(), codes.end(), [&](unsigned int c) { return c <= encoding.last; });
    if (isCommon) check((decoded.*encoding.get)() == text);
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const Encoding& encoding : encodings)
        checkEncoding(encoding, text);
    return 0;
}
