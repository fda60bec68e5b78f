// Handle names that more than one file has.
//
// The names are gathered before the first validation, by a validator of their own, since each file
// is compared with all others. The two read a name by different rules: the scan takes the last name
// in a file and keeps a comment behind it, the validation takes the handle's own.

#include "apps/handlechecker/HandleChecker.h"
#include "apps/handlechecker/validation/HandleMessages.h"
#include "libraries/corelib/source/system/FileTools.h"

#include <set>

namespace Tarvik {

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers may pass a text of their own.
void HandleChecker::scanHandleNames(std::string dir) {
    HandleValidator scanner;
    std::set<std::string> files;
    TarvikCorelib::FileTools::readDir(dir, "*.conf", &files, nullptr);
    for (const std::string& file : files) {
        std::string path = pathIn(dir, file);
        if (!scanner.loadHandle(path)) continue;
        std::string handleName;
        scanner.nameScanner(handleName);
        handleNames.emplace(std::move(handleName), std::move(path));
    }
}

void HandleChecker::validateName() {
    // Files without a name are no duplicates of each other.
    if (validator.getName().empty()) return;
    const auto [first, last] = handleNames.equal_range(validator.getName());
    for (auto entry = first; entry != last; ++entry) {
        // Quirk: paths are compared as text, so the same file by another path is a duplicate.
        if (entry->second == currentFile) continue;
        validator.addToErrorList(messages::fill(messages::duplicateHandleName, {entry->second}),
                                 validator.getNameLine());
    }
}

std::string HandleChecker::pathIn(const std::string& dir, const std::string& file) {
    std::string path;
    path.reserve(dir.size() + 1 + file.size());
    return path.append(dir).append("/").append(file);
}

}  // namespace Tarvik
