// The program: how a run of the tool begins, and what exit status it ends with.

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

// With one of the standard descriptors closed, the next file opened would get its number, and the
// report would be written into that file.
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

// The signal's number is asked for here and stored nowhere, so a run that a signal reached ends
// with 0 as any other. On purpose.
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

// The runtime keeps some memory aside for exceptions, but if the process had none from its first
// moment on, it ends here instead of in a `catch`.
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
    return application.runApp();
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
        // Nothing is printed: the status tells.
        return exitFailed;
    }
    return exitFailed;
}
