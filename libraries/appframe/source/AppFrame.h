/// The base of every application of the suite: the life of its process.
#pragma once

#include "libraries/corelib/source/messaging/ImsAgent.h"
#include "libraries/corelib/source/messaging/Logger.h"
#include "libraries/corelib/source/process/ProcessLock.h"
#include "libraries/corelib/source/services/ConfAgent.h"
#include "libraries/corelib/source/services/SystemBase.h"
#include "libraries/corelib/source/system/CmdParser.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// How an application's instances are told apart.
struct AppInstanceDefs {
    enum Type : std::int32_t { Untold = 0, Named = 1, ByProcess = 2, Enumerated = 4 };

    std::int32_t type = Untold;
    std::string name;
    std::int32_t id = 0;
};

/// A life goes like this. `main` installs `signalQuit` and sets `CommandLineC` and `CommandLineV`;
/// the application's constructor calls `setup`, `construct` and `parseCmd`; then `main` calls
/// `configure` and `runApp`, unless the state is done or failed.
class AppFrame : public ImsAgent {
public:
    enum AppState : std::int32_t {
        AppStateRun = 0,     ///< Go on.
        AppStateDone = 2,    ///< The command line asked for a text only.
        AppStateFailed = 3,  ///< The construction failed.
    };

    /// A `moduleType` that is not empty is exported in the environment. `standardOptions` gives the
    /// command line the options of every application, such as help.
    AppFrame(const std::string& displayName, const std::string& appName, const std::string& version,
             const std::string& moduleType, bool standardOptions, const std::string& vendor);
    AppFrame(const AppFrame&) = delete;
    AppFrame& operator=(const AppFrame&) = delete;
    ~AppFrame() override;

    int handleMessage(const ImsMessage& message) override;
    int hookMessage(unsigned long long hookId, const ImsMessage& message) override;
    /// True from an application that has filled `AppInstance`.
    virtual bool setAppInstance();
    virtual bool construct() = 0;
    virtual bool destruct() = 0;
    /// The work. Answers the exit value.
    virtual int run() = 0;
    virtual bool handleDirectMsg(const ImsMessage& message);
    virtual bool handleHookedMsg(unsigned long long hookId, const ImsMessage& message);

    /// Tells the system which instance this is, if the application says that there are several.
    void setup();
    /// Reads the command line and prints what it asks for. False, with the error printed, if it is
    /// rejected; the state stays as it was, so that the caller decides.
    bool parseCmd();
    /// Always true.
    bool configure();
    /// Calls `run` and answers its exit value, or 2 if a restart was asked for. Whatever is thrown
    /// is printed, and the answer is 4.
    int runApp();

    [[nodiscard]] AppState getAppState() const { return appState; }
    /// 4 if the state is failed, else 0.
    [[nodiscard]] int exitProgram() const;

    /// The only way to the console. Prints the text, behind the display name once a signal came,
    /// and flushes. The flag has no effect. What standard output makes of it is not looked at.
    /// Needs no memory, so it can say that there is none.
    static void output(std::string_view text, bool flag) noexcept;
    /// The same, in the encoding of the process locale. Needs memory.
    static void output(const std::wstring& text, bool flag);

    /// Does nothing on this platform.
    static void detachFromParentProcess(int argc, char** argv);

    /// The handler of all intercepted signals: tells the user, and asks the process to stop. Ends
    /// it with 3 for SIGABRT. Does only what is safe in a handler.
    static void signalQuit(int signalNumber);

    static std::int32_t CommandLineC;        ///< Process-wide. The arguments of `main`.
    static char** CommandLineV;              ///< Process-wide. The arguments of `main`.
    static std::string DisplayName;          ///< Process-wide. The name shown to the user.
    static std::string Vendor;               ///< Process-wide.
    static std::string AppVersion;           ///< Process-wide. The application's, not the suite's.
    static AppInstanceDefs AppInstance;      ///< Process-wide.
    static std::atomic<bool> NoPopupOutput;  ///< Process-wide. `output` names the program.
    static_assert(std::atomic<bool>::is_always_lock_free);
    static bool AppQuitOnLogOff;  ///< Process-wide. For other applications of the suite.

protected:
    void setAppState(AppState state) { appState = state; }
    /// Names the records of `logger`. Only the first ten characters count.
    void setModuleName(std::string_view name) { logger.setName(name.substr(0, 10)); }

    /// The log record of an exception whose type nobody knows. Its location is a fixed one,
    /// wherever the exception came from: logs are searched for it.
    static std::string unknownExceptionRecord();

    Logger logger;
    SystemBase systemBase;
    ProcessLock processLock;
    Logger runLogger;  ///< `runApp` writes to it.

private:
    /// Writes anew what `signalQuit` prints; to be called when one of the names in it changes.
    static void prepareSignalText();

    void logEnd(int& exitValue) const;
    void removeEnum();

    AppState appState = AppStateRun;

protected:
    CmdParser commandLine;
    ConfAgent confAgent;
};

}  // namespace TarvikCorelib
