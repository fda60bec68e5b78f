#include "libraries/appframe/source/AppFrame.h"

#include "libraries/appframe/source/AppFrameMessages.h"
#include "libraries/appframe/source/ExitValues.h"
#include "libraries/corelib/source/diagnostics/DiagnosticsMessages.h"
#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/process/GlobalData.h"
#include "libraries/corelib/source/system/Release.h"
#include "libraries/corelib/source/system/SystemTools.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <vector>

namespace TarvikCorelib {

using messages::fill;

namespace {

std::string instanceText(const AppInstanceDefs& instance) {
    switch (instance.type) {
    case AppInstanceDefs::Named: return instance.name;
    case AppInstanceDefs::ByProcess: return std::to_string(getpid());
    case AppInstanceDefs::Enumerated: return std::to_string(instance.id);
    default: return "0";
    }
}

// Quirk: a text ends at its first NUL, as it would for a format.
void print(std::string_view text) noexcept {
    std::fwrite(text.data(), 1, std::min(text.find('\0'), text.size()), stdout);
}

// Returns the exit value. A failure of the log is ignored: there is one to report already.
template <class Failure>
int reportFailure(const Logger& log, const std::string& text, const Failure& failure) {
    AppFrame::output(text, false);
    try {
        log.fatal(failure);
    } catch (...) {
        return exitFailed;
    }
    return exitFailed;
}

std::string joinLines(const std::vector<std::string>& lines) {
    std::string text = lines.front();
    for (std::size_t index = 1; index < lines.size(); ++index)
        text += "\n" + lines[index];
    return text;
}

}  // namespace

constinit std::int32_t AppFrame::CommandLineC = 0;
constinit char** AppFrame::CommandLineV = nullptr;
std::string AppFrame::DisplayName;
std::string AppFrame::Vendor;
std::string AppFrame::AppVersion;
AppInstanceDefs AppFrame::AppInstance;
constinit std::atomic<bool> AppFrame::NoPopupOutput{false};
constinit bool AppFrame::AppQuitOnLogOff = false;

AppFrame::AppFrame(const std::string& displayName, const std::string& appName,
                   const std::string& version, const std::string& moduleType, bool standardOptions,
                   const std::string& vendor)
    : ImsAgent("appframe") {
    Vendor = vendor;
    DisplayName = displayName;
    SystemTools::setAppName(appName);
    SystemTools::getHostName(true);
    AppVersion = version;
    GlobalData::prepare();
    prepareSignalText();
    if (!moduleType.empty()) EnvTools::set("TarvikModuleType", moduleType);
    commandLine.init(appName, standardOptions, false, false);
    setModuleName("appframe");
}

AppFrame::~AppFrame() {
    // An exception that left a destructor would end the process on the spot.
    try {
        processLock.unlock();
        if ((AppInstance.type & AppInstanceDefs::Enumerated) != 0) removeEnum();
    } catch (...) {
        return;
    }
}

int AppFrame::handleMessage(const ImsMessage& message) {
    return static_cast<int>(handleDirectMsg(message));
}

int AppFrame::hookMessage(unsigned long long hookId, const ImsMessage& message) {
    return static_cast<int>(handleHookedMsg(hookId, message));
}

bool AppFrame::setAppInstance() {
    return false;
}

bool AppFrame::handleDirectMsg(const ImsMessage& /*message*/) {
    return true;
}

bool AppFrame::handleHookedMsg(unsigned long long /*hookId*/, const ImsMessage& /*message*/) {
    return true;
}

void AppFrame::setup() {
    if (!setAppInstance()) return;
    SystemTools::setAppInstance(instanceText(AppInstance));
    prepareSignalText();
}

bool AppFrame::parseCmd() {
    std::string response;  // An error, or the usage text if that was asked for.
    if (!commandLine.parse(CommandLineC, CommandLineV, response, "")) {
        output(fill(messages::error, {response}), false);
        return false;
    }
    std::vector<std::string> lines;
    if (commandLine.haveOption('?')) lines.push_back(response);
    if (commandLine.haveOption("version")) lines.push_back(fill(messages::version, {REL_VERSION}));
    if (commandLine.haveOption("revision"))
        lines.push_back(fill(messages::revision, {REL_REVISION}));
    if (lines.empty()) return true;
    setAppState(AppStateDone);
    // Quirk: the last line has no line end.
    output(joinLines(lines), false);
    return true;
}

// The texts are made here, in the handlers. If memory is missing for them too, that exception
// leaves this function, and `main` says what is wrong.
int AppFrame::runApp() {
    try {
        return finishRun(run());
    } catch (const Exception& exception) {
        return reportFailure(runLogger, exception.getFullMessage(false) + "\n", exception);
    } catch (const std::exception& exception) {
        const std::string text = exception.what();
        return reportFailure(runLogger, fill(messages::standardError, {text}), text);
    } catch (const char* thrown) {
        const std::string text = thrown != nullptr ? thrown : "";
        return reportFailure(runLogger, fill(messages::error, {text}), text);
    } catch (const std::string& text) {
        return reportFailure(runLogger, fill(messages::error, {text}), text);
    } catch (...) {
        return reportFailure(runLogger, fill(messages::unknownError), unknownExceptionRecord());
    }
}

std::string AppFrame::unknownExceptionRecord() {
    constexpr std::uint32_t line = 831;
    return std::string(messages::unknownException) +
           Logger::formatSource("libraries/appframe/source/AppFrame", line);
}

int AppFrame::finishRun(int exitValue) const {
    runLogger.info(messages::endingWith, ParamStream() << exitValue);
    std::string reason;
    if (!GlobalData::mustQuit(reason)) return exitValue;
    runLogger.info(messages::quittingBecause, ParamStream() << reason);
    if (GlobalData::SCode != GlobalData::Restart) return exitValue;
    runLogger.info(messages::restartRequested);
    return exitRestart;
}

int AppFrame::exitProgram() const {
    return appState == AppStateFailed ? exitFailed : 0;
}

// A format might need memory. The stream would like some for its buffer, but goes on byte by byte
// without it.
void AppFrame::output(std::string_view text, bool /*flag*/) noexcept {
    if (NoPopupOutput) {
        print(DisplayName);
        print(": ");
    }
    print(text);
    std::fflush(stdout);
}

void AppFrame::output(const std::wstring& text, bool flag) {
    output(StringTools::convert(text), flag);
}

void AppFrame::detachFromParentProcess(int /*argc*/, char** /*argv*/) {}

}  // namespace TarvikCorelib
