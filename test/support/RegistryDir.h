/// A file registry for a test.
#pragma once

#include "libraries/corelib/source/services/FileRegistry.h"
#include "test/support/TempDir.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace tarvik_test {

/// A fresh directory that is the root of the registry as long as the object lives. The destructor
/// restores the root before, and removes the lock files of the keys, which are left in /tmp.
class RegistryDir : public TempDir {
public:
    RegistryDir() { TarvikCorelib::FileRegistry::setRootDir(path()); }
    RegistryDir(const RegistryDir&) = delete;
    RegistryDir& operator=(const RegistryDir&) = delete;
    ~RegistryDir() {
        *TarvikCorelib::FileRegistry::RootDir = before;
        std::string name = path();
        std::replace(name.begin(), name.end(), '/', '_');
        std::error_code ignored;
        for (const auto& entry : std::filesystem::directory_iterator("/tmp", ignored))
            if (entry.path().filename().string().starts_with("lock_" + name))
                std::filesystem::remove(entry, ignored);
    }

private:
    std::optional<std::string> before = *TarvikCorelib::FileRegistry::RootDir;
};

}  // namespace tarvik_test
