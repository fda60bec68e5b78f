#include "libraries/corelib/source/system/FileReading.h"

#include "libraries/corelib/source/system/FileReplacement.h"

#include <array>
#include <string_view>

namespace TarvikCorelib {

namespace {

// A plain file, read block by block.
class BlockReader {
public:
    explicit BlockReader(const std::string& path) : isGood(openPlainFile(path, file) == 0) {}

    // Full blocks, but for the last one; empty at the end and after a failure.
    std::string_view next() {
        std::size_t size = 0;
        std::size_t part = 1;
        while (isGood && part > 0 && size < block.size()) {
            isGood = readSome(file.get(), block.data() + size, block.size() - size, part) == 0;
            size += part;
        }
        return {block.data(), isGood ? size : 0};
    }

    [[nodiscard]] bool good() const { return isGood; }

private:
    Descriptor file;
    bool isGood;
    std::array<char, 65536> block{};
};

}  // namespace

bool readContent(const std::string& path, std::string& content) {
    BlockReader reader(path);
    for (auto block = reader.next(); !block.empty(); block = reader.next())
        content += block;
    return reader.good();
}

bool haveSameContent(const std::string& first, const std::string& second) {
    BlockReader one(first);
    BlockReader other(second);
    std::string_view block;
    do {
        block = one.next();
        if (block != other.next()) return false;
    } while (!block.empty());
    return one.good() && other.good();
}

}  // namespace TarvikCorelib
