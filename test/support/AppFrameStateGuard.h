/// Resets the process-wide state of the frame, and of corelib below it, after a test.
#pragma once

#include "libraries/appframe/source/AppFrame.h"
#include "test/support/CorelibStateGuard.h"

namespace tarvik_test {

/// For a test that constructs an application or sends a signal. Nothing is known of an application
/// afterwards.
class AppFrameStateGuard {
public:
    AppFrameStateGuard() = default;
    AppFrameStateGuard(const AppFrameStateGuard&) = delete;
    AppFrameStateGuard& operator=(const AppFrameStateGuard&) = delete;
    ~AppFrameStateGuard() {
        using TarvikCorelib::AppFrame;
        AppFrame::CommandLineC = 0;
        AppFrame::CommandLineV = nullptr;
        AppFrame::DisplayName.clear();
        AppFrame::Vendor.clear();
        AppFrame::AppVersion.clear();
        AppFrame::AppInstance = {};
        AppFrame::NoPopupOutput = false;
        AppFrame::AppQuitOnLogOff = false;
    }

private:
    CorelibStateGuard corelib;
};

}  // namespace tarvik_test
