/// What is to become of a target that exists already.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// For operations that make a file or a directory. 0 fails where the name is taken.
enum CopyFlag : std::int32_t {
    CopySkipExisting = 1,  ///< Succeed, and leave both as they are.
    CopyOverwrite = 2,     ///< Replace a file, never a directory.
    CopyEnumerate = 3,     ///< Take a new name: "a-0001.txt" for "a.txt".
    CopyMerge = 8,         ///< Go into a directory that exists, with the other flags for its files.
};
/// The bits that are one number.
inline constexpr int existingMask = CopySkipExisting | CopyOverwrite | CopyEnumerate;

struct FileTarget {
    std::string path;  ///< To write to; empty if nothing is to be done.
    bool succeeds = true;
    bool mayReplace = false;
};

/// By the flags and by whether the name is taken. An empty path fails.
FileTarget chooseTarget(const std::string& path, int flags);

inline constexpr unsigned int enumerationDigits = 4;
using IsTaken = std::function<bool(const std::string& name)>;
/// The first name of "a-0001.txt", "a-0002.txt" and so on that is free, for "a" and ".txt"; empty
/// if 99999 of them are taken. Shorter numbers are filled with zeros.
std::string freeNumberedName(std::string_view front, std::string_view end, const IsTaken& isTaken,
                             unsigned int digits = enumerationDigits);
/// The same by path, for "a.txt".
std::string nextEnumeration(const std::string& path);

}  // namespace TarvikCorelib
