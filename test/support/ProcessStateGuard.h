/// Brings the process-wide state back after a test.
#pragma once

#include "libraries/appframe/source/AppFrame.h"

#include <cstdint>
#include <string>

namespace tarvik_test {

/// Stands at the head of a test that constructs an application or sends a signal. The destructor
/// gives back what the frame and the logger held, and forgets stops and facts: no stop is pending,
/// and nothing is known of the application's name and instance.
class ProcessStateGuard {
public:
    ProcessStateGuard() = default;
    ProcessStateGuard(const ProcessStateGuard&) = delete;
    ProcessStateGuard& operator=(const ProcessStateGuard&) = delete;
    ~ProcessStateGuard();

private:
    using AppFrame = TarvikCorelib::AppFrame;
    using Logger = TarvikCorelib::Logger;

    std::int32_t commandLineC = AppFrame::CommandLineC;
    char** commandLineV = AppFrame::CommandLineV;
    std::string displayName = AppFrame::DisplayName;
    std::string vendor = AppFrame::Vendor;
    std::string appVersion = AppFrame::AppVersion;
    TarvikCorelib::AppInstanceDefs appInstance = AppFrame::AppInstance;
    bool noPopupOutput = AppFrame::NoPopupOutput;
    bool appQuitOnLogOff = AppFrame::AppQuitOnLogOff;
    std::int32_t mainLevel = Logger::MainLevel;
    std::uint32_t revision = Logger::Revision;
};

}  // namespace tarvik_test
