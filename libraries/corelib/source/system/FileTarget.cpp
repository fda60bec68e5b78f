#include "libraries/corelib/source/system/FileTarget.h"

#include "libraries/corelib/source/system/FilePathText.h"
#include "libraries/corelib/source/system/FileProperties.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"

namespace TarvikCorelib {

FileTarget chooseTarget(const std::string& path, int flags) {
    if (path.empty()) return {.path = {}, .succeeds = false};
    if (!FileProperties<char>::exists(path)) return {.path = path};
    switch (flags & existingMask) {
    case CopySkipExisting: return {};
    case CopyOverwrite: return {.path = path, .mayReplace = true};
    case CopyEnumerate: {
        const std::string name = nextEnumeration(path);
        return {.path = name, .succeeds = !name.empty()};
    }
    default: return {.path = {}, .succeeds = false};
    }
}

std::string freeNumberedName(std::string_view front, std::string_view end, const IsTaken& isTaken,
                             unsigned int digits) {
    constexpr unsigned int firstUncounted = 100'000;
    for (unsigned int counter = 1; counter < firstUncounted; ++counter) {
        std::string number = std::to_string(counter);
        std::string name(front);
        name.append(1, '-').append(StringTools::padLeft(number, digits, '0')).append(end);
        if (!isTaken(name)) return name;
    }
    return {};
}

std::string nextEnumeration(const std::string& path) {
    std::string front = path;
    const bool hasSuffix = FilePathText<char>::findSuffixStart(path) != StringTools::npos;
    std::string suffix = FilePathText<char>::splitSuffix(front);
    if (hasSuffix) suffix.insert(0, 1, '.');
    return freeNumberedName(front, suffix, FileProperties<char>::exists);
}

}  // namespace TarvikCorelib
