/// Restores the process-wide state of corelib after a test.
#pragma once

#include "libraries/corelib/source/messaging/Logger.h"
#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/process/GlobalData.h"
#include "libraries/corelib/source/system/SystemTools.h"

#include <cstdint>

namespace tarvik_test {

/// For a test that stops the process, sets a log level, or names the application or its instance.
/// The destructor restores what the logger held. No stop is pending then, and nothing is known of
/// the application's name and instance.
class CorelibStateGuard {
public:
    CorelibStateGuard() = default;
    CorelibStateGuard(const CorelibStateGuard&) = delete;
    CorelibStateGuard& operator=(const CorelibStateGuard&) = delete;
    ~CorelibStateGuard() {
        TarvikCorelib::Logger::MainLevel = mainLevel;
        TarvikCorelib::Logger::Revision = revision;
        TarvikCorelib::GlobalData::reset();
        TarvikCorelib::SystemTools::resetDetails();
        // An instance that was set is exported too, and would be read back from there.
        TarvikCorelib::EnvTools::remove("tarvik_application_instance");
    }

private:
    std::int32_t mainLevel = TarvikCorelib::Logger::MainLevel;
    std::uint32_t revision = TarvikCorelib::Logger::Revision;
};

}  // namespace tarvik_test
