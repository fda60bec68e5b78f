/// The base of every application of the suite: the life of its process.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"
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

/// What distinguishes the instances of an application.
struct AppInstanceDefs {
    enum Type : std::int32_t { Untold = 0, Named = 1, ByProcess = 2, Enumerated = 4 };

    std::int32_t type = Untold;  ///< One of `Type`; any other value counts as `Untold`.
    std::string name;            ///< For `Named`.
    std::int32_t id = 0;         ///< For `Enumerated`.
};

/// An application derives from this class and implements `construct`, `destruct` and `run`. Its
/// process lives like this:
///
///     main             installs `signalQuit`, sets `CommandLineC` and `CommandLineV`
///       constructor    calls `setup`, `construct`, `parseCmd`
///         setup          asks `setAppInstance`, the place for `specifyFileRegistry` and `useEnum`
///       [ state ]      done: the process ends with 0; failed: it ends with 4
///       configure      chooses the file registry; false ends the process with 4
///       runApp         calls `run`, turns all that it throws into a text and an exit value
///       destructor     unlocks, and gives the number of an enumerated instance back
///
/// An application whose options decide which instance it is calls `setup` last in its constructor.
/// `setup` always precedes `configure`, so an application that numbers itself chooses
/// the registry first, in `setAppInstance`; otherwise its number comes from the default registry
/// and is given back to another one.
///
/// The frame never ends the process itself: it reports by its state and by results, and `main`
/// decides, so that destructors always run. Only SIGABRT is final. There is one application a
/// process, since much of what it is called is process-wide; all of it is used by the main thread,
/// apart from what the signal handler reads.
class AppFrame : public ImsAgent {
public:
    using AlreadyRunning = NamedException<AppFrame, "AlreadyRunning">;

    enum AppState : std::int32_t {
        AppStateRun = 0,     ///< Go on.
        AppStateDone = 2,    ///< The command line asked for a text only, which has been printed.
        AppStateFailed = 3,  ///< The construction failed.
    };

    /// `displayName` is for the user; `appName` is for other programs and in the usage text. A
    /// `moduleType` that is not empty is exported in the environment as `TarvikModuleType`.
    /// `standardOptions` gives the command line the options of every application, such as help.
    /// Throws `std::out_of_range` if `LANG` is too short, as `SystemTools::obtain` does.
    AppFrame(const std::string& displayName, const std::string& appName, const std::string& version,
             const std::string& moduleType, bool standardOptions, const std::string& vendor);
    AppFrame(const AppFrame&) = delete;
    AppFrame& operator=(const AppFrame&) = delete;
    ~AppFrame() override;

    // Quirk: the result of the next two is a truth value read as a status, so true is `MsgIgnored`.
    int handleMessage(const ImsMessage& message) override;
    int hookMessage(unsigned long long hookId, const ImsMessage& message) override;
    /// For an application with several instances: fills `AppInstance` and returns true.
    virtual bool setAppInstance();
    /// The application's own preparation, with the options it allows. False is a failure.
    virtual bool construct() = 0;
    virtual bool destruct() = 0;
    /// The work. Returns the exit value. May throw anything.
    virtual int run() = 0;
    virtual bool handleDirectMsg(const ImsMessage& message);
    virtual bool handleHookedMsg(unsigned long long hookId, const ImsMessage& message);

    /// Makes the instance known to child processes and to `signalQuit`, if `setAppInstance` says
    /// that there are several.
    void setup();
    /// Reads the command line. Prints usage, version and revision if they were asked for; the state
    /// is then `AppStateDone`. False, with the error printed, for a bad command line.
    /// Quirk: that leaves the state unchanged, so the caller decides whether to go on.
    bool parseCmd();
    /// The same as `specifyFileRegistry`. Always true.
    bool configure();
    /// Calls `run` and returns its exit value, or 2 if a restart was requested. Whatever is thrown
    /// is printed and logged, and the result is 4. Throws `std::bad_alloc` if memory is missing
    /// even for that.
    int runApp();

    /// Makes the file registry use the directory of the option `filereg`, for applications that
    /// have one, else that of the environment variable `TARVIK_FREG`, even if it is blank. Without
    /// either the registry keeps its directory. Options count behind `parseCmd` only.
    void specifyFileRegistry();
    /// The application name in lower case, without what is ahead of its first ":" and that colon.
    static std::string getAppNameForConf();
    /// The application name, ":" and the instance.
    static std::string getAppID();

    /// Makes sure that no other process of this application runs as the same instance on this host,
    /// until this object dies. Always true; throws `AlreadyRunning` after a tenth of a second, and
    /// `ProcessLock::AlreadyHaveName` if called again.
    /// Quirk: the message lacks the "@" of its template, as the text of any template does.
    bool ensureSingleInstance();
    /// Makes this process an enumerated instance, with the lowest number from `AppInstance.id` on
    /// that no other process of this application has. If all up to 999999 are taken it is 1000000,
    /// which several may share. Always true; to be called once, from `setAppInstance`.
    ///
    /// The numbers are a list in the local configuration, under the application name and "-enum".
    /// Quirk: what follows a ":" in a key is no part of it, so all applications of a name such as
    /// "suite:App" have the one list at "suite".
    /// A killed process keeps its number until somebody takes it out of that list. Waits for other
    /// processes as long as it takes. Throws `ProcessLock::LockFailed` if the lock cannot be used,
    /// and what the `ConfAgent` throws if the list cannot be read or written.
    bool useEnum();
    /// Takes `AppInstance.id` out of the list. A failure to read it is only logged; others throw as
    /// told for `useEnum`. The destructor of an enumerated instance calls it and drops failures.
    void removeEnum();

    [[nodiscard]] AppState getAppState() const { return appState; }
    /// 4 if the state is failed, else 0.
    [[nodiscard]] int exitProgram() const;

    /// The only way to the console. Prints the text up to its first NUL, after the display name if
    /// `NoPopupOutput` is set, and flushes. The flag has no effect. A failure of standard output is
    /// ignored. Needs no memory, so it can say that there is none.
    static void output(std::string_view text, bool flag) noexcept;
    /// The same, in the encoding of the process locale. Needs memory.
    static void output(const std::wstring& text, bool flag);

    /// Does nothing on this platform.
    static void detachFromParentProcess(int argc, char** argv);

    /// The handler of all intercepted signals: tells the user, and requests a stop by `GlobalData`.
    /// For SIGABRT it ends the process with 3 instead, after half a second. SIGCHLD is ignored.
    /// Does only what is safe in a handler.
    static void signalQuit(int signalNumber);

    static std::int32_t CommandLineC;        ///< Process-wide. The arguments of `main`.
    static char** CommandLineV;              ///< Process-wide. The arguments of `main`.
    static std::string DisplayName;          ///< Process-wide. The name shown to the user.
    static std::string Vendor;               ///< Process-wide. The maker of the application.
    static std::string AppVersion;           ///< Process-wide. The application's, not the suite's.
    static AppInstanceDefs AppInstance;      ///< Process-wide.
    static std::atomic<bool> NoPopupOutput;  ///< Process-wide. Set by a signal.
    static_assert(std::atomic<bool>::is_always_lock_free);
    static bool AppQuitOnLogOff;  ///< Process-wide. For other applications of the suite.

protected:
    void setAppState(AppState state) { appState = state; }
    /// Sets the name in the records of `logger`; see `Logger::setName`.
    void setModuleName(std::string_view name) { logger.setName(name); }

    /// The log record of an exception whose type nobody knows. Its location is a fixed one,
    /// wherever the exception came from: logs are searched for it.
    static std::string unknownExceptionRecord();

    Logger logger;
    SystemBase systemBase;
    ProcessLock processLock;
    Logger runLogger;  ///< Of `runApp`.

private:
    /// Makes the text that `signalQuit` prints; to be called when one of the names in it changes.
    static void prepareSignalText();

    /// Logs the end of a run. Returns the exit value, or that of a restart if one was requested.
    [[nodiscard]] int finishRun(int exitValue) const;

    AppState appState = AppStateRun;

protected:
    CmdParser commandLine;
    ConfAgent confAgent;
};

}  // namespace TarvikCorelib
