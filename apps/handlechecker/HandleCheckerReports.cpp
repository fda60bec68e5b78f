// The two forms of a report: JSON texts on the console, or JSON files with a summary.
//
// Both are made from the same maps, which are ordered by path, so the order of a report does not
// depend on the order of validation.

#include "apps/handlechecker/HandleChecker.h"
#include "apps/handlechecker/HandleCheckerJson.h"
#include "apps/handlechecker/HandleCheckerMessages.h"
#include "shared/library/common/BasicFile.h"
#include "shared/library/common/FileOps.h"

#include <stdexcept>
#include <string_view>

namespace Tarvik {

using messages::fill;

namespace {

// The whole text of a valid handle. A handle is also recognised as valid by it.
constexpr std::string_view validHandleText = "{}\n";

// Bytes, at most.
constexpr std::size_t pieceSize = 65536;

// Quirk: the first ".conf" of the whole path is replaced, even in the name of a directory.
std::string jsonPathOf(const std::string& path) {
    constexpr std::string_view handleSuffix = ".conf";
    const auto found = path.find(handleSuffix);
    if (found == std::string::npos) throw std::out_of_range("basic_string::replace");
    return std::string(path).replace(found, handleSuffix.size(), ".json");
}

// Quirk: a failure is ignored, so a file that was there before counts as written. That includes a
// pipe, which is never opened for writing, since nobody might read it.
void writeFile(const std::string& path, const std::string& text) {
    BasicFile file;
    if (file.open(path, AccessWrite)) file.write(text);
}

std::string invalidHandleLine(const std::string& path, long count) {
    if (count == 1) return fill(messages::oneErrorFound, {path});
    return fill(messages::errorsFound, {path, std::to_string(count)});
}

}  // namespace

void HandleChecker::parseResultsToJsonFormat() {
    // The end is tried first: the files of a directory come in the order of their paths.
    for (const ValidationResult& result : results) {
        const auto count = static_cast<long>(result.errors.size());
        errorCounts.insert_or_assign(errorCounts.end(), result.path, count);
        jsonResults.insert_or_assign(
            jsonResults.end(), result.path,
            result.errors.empty() ? std::string(validHandleText) : renderErrors(result));
    }
}

std::string HandleChecker::renderErrors(const ValidationResult& result) const {
    const bool nested = directoryRun && !saveOutput;
    return nested ? jsonText(result.errors, result.path) : jsonText(result.errors);
}

// Most texts are short, and each output is a call of the system, so they leave in pieces.
void HandleChecker::showResultInConsole() {
    std::string piece;
    for (const auto& [path, text] : jsonResults) {
        if (piece.size() + text.size() <= pieceSize) {
            piece += text;
            continue;
        }
        output(piece, false);
        output(text, false);
        piece.clear();
    }
    output(piece, false);
}

void HandleChecker::createJsonFiles() {
    for (const auto& [path, text] : jsonResults) {
        if (text == validHandleText) continue;
        const std::string jsonPath = jsonPathOf(path);
        writeFile(jsonPath, text);
        if (!FileOps::exists(jsonPath)) {
            throw Source_BadDir(fill(messages::fileNotCreated, {jsonPath}));
        }
        createdFiles.push_back(jsonPath);
    }
}

void HandleChecker::showSummary() {
    std::string valid = fill(messages::validHandles);
    std::string invalid = fill(messages::invalidHandles);
    std::string created = fill(messages::filesCreated);
    for (const auto& [path, count] : errorCounts) {
        if (count == 0) {
            valid += fill(messages::listedPath, {path});
        } else {
            invalid += invalidHandleLine(path, count);
        }
    }
    for (const std::string& path : createdFiles)
        created += fill(messages::listedPath, {path});
    output(valid + "\n" + invalid + "\n" + created, false);
}

}  // namespace Tarvik
