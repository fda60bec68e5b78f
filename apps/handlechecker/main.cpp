// The program: prepares the process, runs the tool, and turns what comes of it into an exit status.
//
// The application is a local object inside the one `try`, so its destructor has run before anything
// is decided. Nothing that stands outside of the `try` can throw.

#include "apps/handlechecker/HandleChecker.h"
#include "libraries/appframe/source/AppFrame.h"
#include "libraries/appframe/source/AppFrameMessages.h"
#include "libraries/appframe/source/ExitValues.h"
#include "libraries/corelib/source/process/GlobalData.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <new>

namespace {

using TarvikCorelib::AppFrame;
using TarvikCorelib::exitFailed;
using TarvikCorelib::GlobalData;

// If one of the standard descriptors is closed, the next file opened would get its number, and the
// report would go into that file.
void occupyStandardDescriptors() {
    int descriptor = STDIN_FILENO;
    while (descriptor >= 0 && descriptor <= STDERR_FILENO) {
        descriptor = open("/dev/null", O_RDWR);
    }
    if (descriptor > STDERR_FILENO) close(descriptor);
}

void installSignalHandlers() {
    for (const int signalNumber : {SIGABRT, SIGINT, SIGTERM, SIGCHLD}) {
        std::signal(signalNumber, &AppFrame::signalQuit);
    }
}

// Quirk: nothing stores the number of a signal, so a run that was interrupted ends with 0, like any
// other.
int exitStatusOfSignal() {
    switch (GlobalData::Signal) {
    case SIGINT: return TarvikCorelib::exitSigint;
    case SIGTERM: return TarvikCorelib::exitSigterm;
    default: return 0;
    }
}

void printOutOfMemory() noexcept {
    AppFrame::output(TarvikCorelib::messages::outOfMemoryError.view(), false);
}

// Called if an exception cannot be thrown for want of memory. The runtime sets some aside for that
// at the start of the process, so this happens only if there was none from the first moment on.
[[noreturn]] void endWithoutException() noexcept {
    if (std::current_exception() != nullptr) std::abort();
    printOutOfMemory();
    _exit(exitFailed);
}

int runHandleChecker(int argc, char** argv) {
    Tarvik::HandleChecker application(argc, argv);
    if (application.getAppState() == AppFrame::AppStateDone) return 0;
    if (application.getAppState() == AppFrame::AppStateFailed) return exitFailed;
    if (!application.configure()) return exitFailed;
    const int result = application.runApp();
    application.leaveRecords();
    return result;
}

}  // namespace

int main(int argc, char** argv) {
    std::set_terminate(endWithoutException);
    occupyStandardDescriptors();
    AppFrame::detachFromParentProcess(argc, argv);
    installSignalHandlers();
    AppFrame::CommandLineC = argc;
    AppFrame::CommandLineV = argv;
    try {
        const int result = runHandleChecker(argc, argv);
        return result != 0 ? result : exitStatusOfSignal();
    } catch (const std::bad_alloc&) {
        printOutOfMemory();
    } catch (...) {
        // Nothing is printed: whatever can be explained was caught by `runApp`.
        return exitFailed;
    }
    return exitFailed;
}
