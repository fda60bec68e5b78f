// Handle names that more than one file has.
//
// Each file is compared with all others, so a name is compared when all of them are known: those of
// another directory are gathered beforehand, by a validator of their own, those of the directory
// that is validated along the way. The two read a name by different rules: the scan takes the last
// name in a file and keeps a comment behind it, the validation takes the handle's own.

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
    for (const std::string& file : files)
        scanHandleName(scanner, pathIn(dir, file));
}

void HandleChecker::scanHandleName(HandleValidator& scanner, std::string path) {
    if (!scanner.loadHandle(path)) return;
    std::string handleName;
    scanner.nameScanner(handleName);
    handleNames.emplace(std::move(handleName), std::move(path));
}

void HandleChecker::validateName() {
    for (std::string& message : duplicatesOf(validator.getName(), currentFile))
        validator.addToErrorList(std::move(message), validator.getNameLine());
}

// A message for each other file that was noted with the name.
std::vector<std::string> HandleChecker::duplicatesOf(const std::string& name,
                                                     const std::string& path) const {
    std::vector<std::string> duplicates;
    // Files without a name are no duplicates of each other.
    if (name.empty()) return duplicates;
    const auto [first, last] = handleNames.equal_range(name);
    for (auto entry = first; entry != last; ++entry) {
        // Quirk: paths are compared as text, so the same file by another path is a duplicate.
        if (entry->second == path) continue;
        duplicates.push_back(messages::fill(messages::duplicateHandleName, {entry->second}));
    }
    return duplicates;
}

void HandleChecker::scanAndValidateDir(const std::string& dir) {
    struct OwnName {
        std::string name;
        unsigned long line;
        ValidationResult& result;
    };
    std::vector<OwnName> ownNames;
    HandleValidator scanner;
    for (const std::string& file : handlesToValidate(dir)) {
        currentFile = pathIn(dir, file);
        validateOnly();
        if (!validator.getScannedName().empty()) {
            handleNames.emplace(validator.getScannedName(), currentFile);
        } else {
            // An empty file before this one may have kept the validator from reading it.
            scanHandleName(scanner, currentFile);
        }
        results.push_back({currentFile, validator.takeErrors()});
        ownNames.push_back({validator.getName(), validator.getNameLine(), results.back()});
    }
    for (const OwnName& own : ownNames) {
        for (std::string& message : duplicatesOf(own.name, own.result.path))
            own.result.errors.push_back({std::move(message), std::to_string(own.line)});
    }
}

std::string HandleChecker::pathIn(const std::string& dir, const std::string& file) {
    std::string path;
    path.reserve(dir.size() + 1 + file.size());
    return path.append(dir).append("/").append(file);
}

}  // namespace Tarvik
