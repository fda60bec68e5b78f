/// The last bytes that were read from a stream that cannot go back.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace TarvikFilelib {

/// Bytes are kept in a ring, with an empty entry behind the last one. Putting back moves the place
/// of reading back among them; from there to the empty entry they are read once more.
class PutBackRing {
public:
    static constexpr std::size_t Size = 100;

    PutBackRing() { entries.fill(Empty); }

    void clear() { *this = {}; }
    /// All that was put back has been taken again.
    bool isUsedUp() const { return readIndex == writeIndex; }
    /// The next byte that was put back, or -1.
    int take() {
        const int byte = entries[readIndex];
        if (byte != Empty) readIndex = next(readIndex);
        return byte;
    }
    /// Keeps the last ones of these bytes, which come behind all others. Only if it is used up.
    void store(std::string_view bytes) {
        for (const char byte : bytes.substr(bytes.size() - std::min(bytes.size(), Size))) {
            entries[writeIndex] = static_cast<unsigned char>(byte);
            writeIndex = next(writeIndex);
        }
        entries[writeIndex] = Empty;
        readIndex = writeIndex;
    }
    /// Goes back as far as there are bytes: 99 at most.
    void putBack(unsigned long long count) {
        for (; count > 0 && entries[previous(readIndex)] != Empty; --count)
            readIndex = previous(readIndex);
    }

private:
    static constexpr std::int16_t Empty = -1;
    static std::size_t next(std::size_t index) { return index + 1 == Size ? 0 : index + 1; }
    static std::size_t previous(std::size_t index) { return (index == 0 ? Size : index) - 1; }

    std::array<std::int16_t, Size> entries{};
    std::size_t readIndex = 0;
    std::size_t writeIndex = 0;
};

}  // namespace TarvikFilelib
