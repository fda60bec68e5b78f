#include "apps/handlechecker/validation/HandleValidator.h"

#include "apps/handlechecker/validation/HandleMessages.h"
#include "shared/library/common/FileOps.h"
#include "shared/library/common/StringTools.h"

#include <ctime>
#include <optional>
#include <utility>

namespace Tarvik {

namespace {

struct KeyLine {
    std::string_view key;
    std::string_view value;
};

// The two sides of the first "=", or none without one.
std::optional<KeyLine> keyLineIn(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    return KeyLine{StringTools::trimmedRight(line.substr(0, equals)),
                   StringTools::trimmedLeft(line.substr(equals + 1))};
}

// The value of a trimmed line with that key, or none.
std::optional<std::string_view> valueOf(std::string_view key, std::string_view line) {
    // Most lines have another key, and four bytes tell.
    if (!line.starts_with(key)) return std::nullopt;
    const std::optional<KeyLine> keyLine = keyLineIn(line);
    if (!keyLine || keyLine->key != key) return std::nullopt;
    return keyLine->value;
}

}  // namespace

// What the closing checks need to know about the lines.
struct HandleValidator::ReadingResult {
    bool nameMissing = true;
    bool closed = false;
};

bool HandleValidator::loadHandle(std::string& path) {
    // For the older helpers no file exists at a path with a wildcard, even if it can be opened.
    if (FileOps::hasWildcard(path)) return false;
    // A file that opens is there, so only one that does not is looked up.
    return file.open(path, AccessRead) || FileOps::exists(path);
}

bool HandleValidator::loadHandle(BasicFile& other) {
    std::string path = other.getName();
    return loadHandle(path);
}

bool HandleValidator::validate() {
    clear();
    scannedName.clear();
    if (file.atEof(OperationAny)) {
        // Quirk: the file stays open, so the next loadHandle fails silently.
        addToErrorList(messages::fill(messages::fileEmpty), lineNumber);
        return false;
    }
    hadLineError = 0;
    const ReadingResult reading = readLines();
    file.close();
    checkEnd(reading);
    // Quirk: a file whose only fault is the missing closing brace is valid. The brace is reported
    // only beside other faults.
    if (hadLineError == 0 && errors.empty()) return true;
    if (!reading.closed) addToErrorList(messages::fill(messages::handleNotClosed), lineNumber);
    return false;
}

// One pass over the file, without a copy of most lines: each is a view into the reader's buffer,
// and so are its key, its value and the parameters, until they are stored. What the closing checks
// need is collected on the side.
HandleValidator::ReadingResult HandleValidator::readLines() {
    ReadingResult reading;
    std::string_view raw;
    while (!file.atEof(OperationAny)) {
        raw = file.viewLine(currentLine);
        ++lineNumber;
        const std::string_view line = contentOf(raw);
        if (line.empty()) continue;
        if (const auto value = valueOf(NameKey, line)) scannedName = *value;
        // Quirk: tested before the line is parsed, so a name on the last line is reported missing.
        if (!name.empty()) reading.nameMissing = false;
        const int result = takeLine(line);
        if (result == LineRejected) hadLineError = 1;
        if (result == HandleClosed) {
            checkLicenseSources();
            reading.closed = true;
        }
    }
    currentLine = raw;
    return reading;
}

// Run at each closing brace of a handle, so a second handle in the file can report it again.
void HandleValidator::checkLicenseSources() {
    if (licenseType == NoLicenses || skipFileChecks || licenses.empty()) return;
    if (!licenseFile.empty() || !licenseServers.empty() || !centralizedLicenses.empty()) return;
    addToErrorList(messages::fill(messages::licenseSourceMissing), licensesLine);
}

void HandleValidator::checkEnd(const ReadingResult& reading) {
    if (executablesLine == 0) {
        addToErrorList(messages::fill(messages::executablesMissing), lineNumber);
    }
    if (ruleLines.empty() && executablesLine != 0) {
        addToErrorList(messages::fill(messages::executablesEmpty), lineNumber);
    }
    if (licenseTypeText.empty() && licensesLine != 0) {
        addToErrorList(messages::fill(messages::licenseTypeMissing), licensesLine);
    }
    if (reading.nameMissing) addToErrorList(messages::fill(messages::nameNotFound), lineNumber);
}

// Knows no braces: it reads every line with an "=", since a faulty handle has a name too.
void HandleValidator::nameScanner(std::string& handleName) {
    std::string line;
    while (!file.atEof(OperationAny)) {
        file.readLine(line);
        const std::optional<KeyLine> keyLine = keyLineIn(StringTools::trimmed(line));
        if (!keyLine) continue;
        currentKey = keyLine->key;
        if (currentKey == NameKey) handleName = keyLine->value;
    }
    file.close();
}

std::string HandleValidator::keyLineDivider(std::string& line) {
    std::string_view value = line;
    if (!takeKey(value)) {
        currentKey = StringTools::trimmedRight(line);
        value = {};
    }
    return line = std::string(value);
}

// As keyLineDivider does. False, with nothing changed, for a line without "=".
bool HandleValidator::takeKey(std::string_view& line) {
    const std::optional<KeyLine> keyLine = keyLineIn(line);
    if (!keyLine) return false;
    currentKey = keyLine->key;
    line = keyLine->value;
    return true;
}

void HandleValidator::addToErrorList(std::string message, unsigned long line) {
    lastError.message = std::move(message);
    lastError.line = std::to_string(line);
    errors.push_back(lastError);
}

std::string HandleValidator::getErrors() const {
    if (errors.empty()) return {};
    std::string text;
    for (const Error& error : errors) {
        text.append("\n\t- ").append(error.message).append(" in line ").append(error.line);
    }
    return text.append("\n\t- Ignoring Handle");
}

// Nothing of the record survives. The open file, `skipFileChecks`, `lastError` and `hadLineError`
// do: they are not part of it.
void HandleValidator::clear() {
    // Copied, not moved: strings and vectors keep their memory from file to file.
    static const HandleData fresh;
    static_cast<HandleData&>(*this) = fresh;
    loadTime = std::time(nullptr);
}

}  // namespace Tarvik
