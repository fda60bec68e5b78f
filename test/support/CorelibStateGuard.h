/// Restores the process-wide state of corelib after a test.
#pragma once

#include "libraries/corelib/source/messaging/Logger.h"
#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/process/GlobalData.h"
#include "libraries/corelib/source/system/SystemTools.h"

#include <cstdint>
#include <map>
#include <string>

namespace tarvik_test {

/// For a test that stops the process, sets a log level, names the application or its instance, or
/// has the facts about the host gathered anew. The destructor restores what the logger and the
/// table of facts held, and the exported instance. No stop is pending then.
class CorelibStateGuard {
    using SystemTools = TarvikCorelib::SystemTools;
    using EnvTools = TarvikCorelib::EnvTools;

public:
    CorelibStateGuard() {
        const TarvikCorelib::ThreadLockGuard held(*SystemTools::DetailsLock);
        details = SystemTools::Details();
        detailsObtained = SystemTools::DetailsObtained;
        wasExported = EnvTools::get(InstanceVariable, instance);
    }
    CorelibStateGuard(const CorelibStateGuard&) = delete;
    CorelibStateGuard& operator=(const CorelibStateGuard&) = delete;
    ~CorelibStateGuard() {
        TarvikCorelib::Logger::MainLevel = mainLevel;
        TarvikCorelib::Logger::Revision = revision;
        TarvikCorelib::GlobalData::reset();
        const TarvikCorelib::ThreadLockGuard held(*SystemTools::DetailsLock);
        SystemTools::Details().swap(details);
        SystemTools::DetailsObtained = detailsObtained;
        // An instance that was set is exported too, and would be read back from there.
        EnvTools::remove(InstanceVariable);
        if (wasExported) EnvTools::set(InstanceVariable, instance);
    }

private:
    static constexpr const char* InstanceVariable = "tarvik_application_instance";

    std::int32_t mainLevel = TarvikCorelib::Logger::MainLevel;
    std::uint32_t revision = TarvikCorelib::Logger::Revision;
    std::map<SystemTools::DetailCode, std::string> details;
    bool detailsObtained = false;
    bool wasExported = false;
    std::string instance;
};

}  // namespace tarvik_test
