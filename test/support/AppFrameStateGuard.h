/// Restores the process-wide state of the frame, and of corelib below it, after a test.
#pragma once

#include "libraries/appframe/source/AppFrame.h"
#include "test/support/CorelibStateGuard.h"

#include <cstdint>
#include <string>

namespace tarvik_test {

/// For a test that constructs an application or sends a signal.
class AppFrameStateGuard {
public:
    AppFrameStateGuard() = default;
    AppFrameStateGuard(const AppFrameStateGuard&) = delete;
    AppFrameStateGuard& operator=(const AppFrameStateGuard&) = delete;
    ~AppFrameStateGuard() {
        AppFrame::CommandLineC = commandLineC;
        AppFrame::CommandLineV = commandLineV;
        AppFrame::DisplayName = displayName;
        AppFrame::Vendor = vendor;
        AppFrame::AppVersion = appVersion;
        AppFrame::AppInstance = appInstance;
        AppFrame::NoPopupOutput = noPopupOutput;
        AppFrame::AppQuitOnLogOff = appQuitOnLogOff;
    }

private:
    using AppFrame = TarvikCorelib::AppFrame;

    CorelibStateGuard corelib;
    std::int32_t commandLineC = AppFrame::CommandLineC;
    char** commandLineV = AppFrame::CommandLineV;
    std::string displayName = AppFrame::DisplayName;
    std::string vendor = AppFrame::Vendor;
    std::string appVersion = AppFrame::AppVersion;
    TarvikCorelib::AppInstanceDefs appInstance = AppFrame::AppInstance;
    bool noPopupOutput = AppFrame::NoPopupOutput;
    bool appQuitOnLogOff = AppFrame::AppQuitOnLogOff;
};

}  // namespace tarvik_test
