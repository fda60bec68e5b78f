#include "apps/handlechecker/validation/HandleValidator.h"

#include "apps/handlechecker/validation/HandleMessages.h"
#include "shared/library/common/FileOps.h"
#include "shared/library/common/StringTools.h"

#include <utility>

namespace Tarvik {

bool HandleValidator::loadHandle(std::string& path) {
    if (!FileOps::exists(path)) return false;
    file.open(path, AccessRead);
    return true;
}

bool HandleValidator::loadHandle(BasicFile& other) {
    std::string path = other.getName();
    return loadHandle(path);
}

bool HandleValidator::validate() {
    clear();
    if (file.atEof(OperationAny)) {
        // The file stays open: the next loadHandle then fails in silence. On purpose.
        addToErrorList(std::string(messages::fileEmpty), lineNumber);
        return false;
    }
    hadLineError = 0;
    const ReadingResult reading = readLines();
    file.close();
    checkExecutablesAndName(reading);
    // A file that only lacks its closing brace passes: the brace is missed only where there are
    // faults of other kinds. On purpose.
    if (hadLineError == 0 && errors.empty()) return true;
    if (!reading.closed) addToErrorList(std::string(messages::handleNotClosed), lineNumber);
    return false;
}

HandleValidator::ReadingResult HandleValidator::readLines() {
    ReadingResult reading;
    while (!file.atEof(OperationAny)) {
        file.readLine(currentLine);
        ++lineNumber;
        const std::string_view line = StringTools::trimmed(currentLine);
        if (line.empty() || line.front() == '#') continue;
        // Ahead of the line's own parsing: a name on the last significant line counts as missing,
        // on purpose.
        if (!name.empty()) reading.nameMissing = false;
        const int result = parseLine(std::string(line));
        if (result == LineRejected) hadLineError = 1;
        if (result == HandleClosed) reading.closed = true;
    }
    return reading;
}

void HandleValidator::checkExecutablesAndName(const ReadingResult& reading) {
    if (executablesLine == 0) {
        addToErrorList(std::string(messages::executablesMissing), lineNumber);
    }
    if (reading.nameMissing) addToErrorList(std::string(messages::nameNotFound), lineNumber);
}

void HandleValidator::nameScanner(std::string& handleName) {
    std::string line;
    while (!file.atEof(OperationAny)) {
        file.readLine(line);
        StringTools::trim(line);
        if (line.find('=') == std::string::npos) continue;
        std::string value = keyLineDivider(line);
        if (currentKey == NameKey) handleName = std::move(value);
    }
    file.close();
}

std::string HandleValidator::keyLineDivider(std::string& line) {
    currentKey = StringTools::split(line, '=');
    StringTools::trimRight(currentKey);
    StringTools::trimLeft(line);
    return line;
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

void HandleValidator::clear() {
    lineNumber = 0;
    errors.clear();
    currentKey.clear();
    state = OutsideHandle;
    name.clear();
    sectionsSeen.clear();
    currentLine.clear();
    nameLine = 0;
    executablesLine = 0;
    licensesLine = 0;
}

}  // namespace Tarvik
