#include "libraries/corelib/source/system/SystemDatabase.h"

#include "libraries/corelib/source/system/Descriptor.h"
#include "libraries/corelib/source/system/FileReplacement.h"

#include <fcntl.h>

#include <array>

namespace TarvikCorelib {

std::string searchFile(const char* path,
                       const std::function<std::string_view(std::string_view)>& search) {
    const Descriptor file(::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    std::array<char, 4096> block;  // NOLINT(cppcoreguidelines-pro-type-member-init): read first.
    std::string text;
    std::size_t size = block.size();
    // A block that is not full is the last one. What follows the last line end of a full one waits
    // for the next block.
    while (size == block.size()) {
        if (readSome(file.get(), block.data(), block.size(), size) != 0) return {};
        text.append(block.data(), size);
        const std::size_t whole = size < block.size() ? text.size() : text.rfind('\n') + 1;
        const std::string_view found = search(std::string_view(text).substr(0, whole));
        if (!found.empty()) return std::string(found);
        text.erase(0, whole);
    }
    return {};
}

}  // namespace TarvikCorelib
