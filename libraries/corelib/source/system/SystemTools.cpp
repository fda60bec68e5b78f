#include "libraries/corelib/source/system/SystemTools.h"

#include "libraries/corelib/source/diagnostics/NoDestructor.h"
#include "libraries/corelib/source/messaging/ThreadLock.h"
#include "libraries/corelib/source/process/EnvTools.h"

#include <sys/utsname.h>

namespace TarvikCorelib {

namespace {

constexpr const char* instanceVariable = "tarvik_application_instance";

// For the table and for `DetailsObtained`.
constinit NoDestructor<ThreadLock> detailsLock;

}  // namespace

constinit bool SystemTools::DetailsObtained = false;

std::string SystemTools::obtain(DetailCode code) {
    const ThreadLockGuard held(*detailsLock);
    const auto found = details().find(code);
    if (found != details().end()) return found->second;
    if (DetailsObtained) return {};
    obtainDetails();
    return obtain(code);
}

std::string SystemTools::getHostName(bool /*withDomain*/) {
    return obtain(DetailHostName);
}

void SystemTools::setAppName(const std::string& name) {
    const ThreadLockGuard held(*detailsLock);
    details()[DetailAppName] = name;
}

void SystemTools::setAppInstance(const std::string& instance) {
    {
        const ThreadLockGuard held(*detailsLock);
        details()[DetailAppInstance] = instance;
    }
    EnvTools::set(instanceVariable, instance);
}

std::string SystemTools::getAppInstance() {
    std::string instance = obtain(DetailAppInstance);
    if (!instance.empty()) return instance;
    return EnvTools::get(instanceVariable, instance) ? instance : "0";
}

void SystemTools::resetDetails() {
    const ThreadLockGuard held(*detailsLock);
    details().clear();
    DetailsObtained = false;
}

// Process-wide.
std::map<SystemTools::DetailCode, std::string>& SystemTools::details() {
    static NoDestructor<std::map<DetailCode, std::string>> facts;
    return *facts;
}

void SystemTools::obtainDetails() {
    utsname names{};
    uname(&names);
    details()[DetailHostName] = static_cast<const char*>(names.nodename);
    DetailsObtained = true;
}

}  // namespace TarvikCorelib
