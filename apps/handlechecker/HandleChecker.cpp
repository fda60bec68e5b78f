#include "apps/handlechecker/HandleChecker.h"

#include "apps/handlechecker/HandleCheckerMessages.h"
#include "libraries/corelib/source/diagnostics/NoDestructor.h"
#include "libraries/corelib/source/services/SystemBase.h"
#include "libraries/corelib/source/system/FileTools.h"
#include "shared/library/common/FileOps.h"

#include <string_view>

namespace Tarvik {

using messages::fill;
using TarvikCorelib::CmdParser;

namespace {

struct Option {
    const char* name;
    char letter;
    const char* description;
};

constexpr Option fileOption{"file", 'f', "File directory"};
constexpr Option dirOption{"dir", 'd', "Directory"};
constexpr Option handleDirOption{"handle-dir", 'h', "Include duplicate name checking"};
constexpr Option saveOutputOption{"save-output", 's', "Save output as a .json file"};
constexpr Option fileCheckingOption{"enable-file-checking", 'e', "Enable file checking"};

// Quirk: the directory that is probed and the one that is then used are spelled differently.
// Quirk: the separators are backslashes on every platform; here they are part of one long file
// name.
std::string defaultScanDirectory() {
    const std::string configuration = TarvikCorelib::SystemBase::getConfDir();
    if (FileOps::exists(configuration + R"(\dist\usagewardn\task)")) {
        return configuration + R"(\dist\usagewarden\tasks)";
    }
    return configuration + R"(\usagewarden\tasks)";
}

// An option that was given is found by its letter, whether the letter or the name was typed.
bool isGiven(const CmdParser& commandLine, const Option& option) {
    return commandLine.haveOption(option.letter);
}

// True, with the value in `out`, if the option was given; else `out` stays unchanged.
bool takeValue(const CmdParser& commandLine, const Option& option, std::string& out) {
    return commandLine.getOptionValue(option.letter, out);
}

// --file takes precedence over --dir. Directories are compared as text, as the paths in them are.
bool isValidated(const std::string& scanDirectory, const CmdParser& commandLine) {
    std::string directory;
    return !isGiven(commandLine, fileOption) && takeValue(commandLine, dirOption, directory) &&
           directory == scanDirectory;
}

}  // namespace

HandleChecker::HandleChecker(int argc, char** argv)
    : AppFrame("Handle Checker", "HandleChecker", "1", "", true, "Tarvik, Inc.") {
    CommandLineC = argc;
    CommandLineV = argv;
    setup();
    if (!HandleChecker::construct()) setAppState(AppStateFailed);
    parseCmd();
}

HandleChecker::~HandleChecker() {
    // It only logs. An exception that left a destructor would end the process on the spot.
    try {
        HandleChecker::destruct();
    } catch (...) {
        return;
    }
}

bool HandleChecker::construct() {
    setModuleName("main");
    logger.info(messages::constructing);
    for (const Option& option : {fileOption, dirOption, handleDirOption}) {
        commandLine.specifyOptionWithValueArg(option.description, option.letter, option.name, {});
    }
    for (const Option& option : {saveOutputOption, fileCheckingOption}) {
        commandLine.specifyOptionOnlyArg(option.description, option.letter, option.name);
    }
    for (const char* line : messages::usageLines)
        commandLine.addDocLine(line);
    return true;
}

bool HandleChecker::destruct() {
    logger.info(messages::ending);
    return true;
}

// Where names are looked for: --handle-dir takes precedence over --dir, and both over the default.
int HandleChecker::run() {
    std::string scanDirectory = defaultScanDirectory();
    directoryRun = false;
    saveOutput = isGiven(commandLine, saveOutputOption);
    if (!isGiven(commandLine, fileCheckingOption)) validator.setFilechecking();
    takeValue(commandLine, dirOption, scanDirectory);
    takeValue(commandLine, handleDirOption, scanDirectory);
    if (isValidated(scanDirectory, commandLine)) {
        scanAndValidateDir(scanDirectory);
    } else {
        scanHandleNames(scanDirectory);
        validateChosen();
    }
    parseResultsToJsonFormat();
    if (saveOutput) {
        createJsonFiles();
        showSummary();
    } else {
        showResultInConsole();
    }
    return 0;
}

// Destroying the records of a large handle, most of them nodes of their own, took a sixth of its
// run. A move leaves them where they are.
void HandleChecker::leaveRecords() {
    static TarvikCorelib::NoDestructor<HandleData> data;
    static TarvikCorelib::NoDestructor<std::list<ValidationResult>> errors;
    *data = validator.takeData();
    *errors = std::move(results);
}

// --file takes precedence over --dir.
void HandleChecker::validateChosen() {
    if (isGiven(commandLine, fileOption)) {
        if (takeValue(commandLine, fileOption, currentFile)) validateFile();
        return;
    }
    std::string directory;
    if (takeValue(commandLine, dirOption, directory)) validateHandleDir(directory);
}

bool HandleChecker::validateFile() {
    const bool valid = validateOnly();
    validateName();
    results.push_back({currentFile, validator.takeErrors()});
    return valid;
}

// Leaves the result in the validator.
bool HandleChecker::validateOnly() {
    if (!validator.loadHandle(currentFile)) {
        throw Source_BadDir(fill(messages::invalidFilePath, {currentFile}));
    }
    try {
        return validator.validate();
    } catch (...) {
        throw Source_ValidationErr(fill(messages::validationFailed));
    }
}

void HandleChecker::validateHandleDir(std::string& dir) {
    for (const std::string& file : handlesToValidate(dir)) {
        currentFile = pathIn(dir, file);
        validateFile();
    }
}

std::set<std::string> HandleChecker::handlesToValidate(const std::string& dir) {
    directoryRun = true;
    std::set<std::string> files;
    TarvikCorelib::FileTools::readDir(dir, "*.conf", &files, nullptr);
    if (files.empty()) {
        throw Source_BadDir(fill(messages::noHandlesInDirectory, {dir}));
    }
    return files;
}

}  // namespace Tarvik
