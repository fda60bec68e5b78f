#include "libraries/corelib/source/system/SystemTools.h"

#include "libraries/corelib/source/process/EnvTools.h"

#include <sys/utsname.h>

namespace TarvikCorelib {

namespace {

constexpr const char* instanceVariable = "tarvik_application_instance";

}  // namespace

constinit bool SystemTools::DetailsObtained = false;

std::string SystemTools::obtain(DetailCode code) {
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
    details()[DetailAppName] = name;
}

void SystemTools::setAppInstance(const std::string& instance) {
    details()[DetailAppInstance] = instance;
    EnvTools::set(instanceVariable, instance);
}

std::string SystemTools::getAppInstance() {
    std::string instance = obtain(DetailAppInstance);
    if (!instance.empty()) return instance;
    return EnvTools::get(instanceVariable, instance) ? instance : "0";
}

void SystemTools::resetDetails() {
    details().clear();
    DetailsObtained = false;
}

// Process-wide.
std::map<SystemTools::DetailCode, std::string>& SystemTools::details() {
    static std::map<DetailCode, std::string> facts;
    return facts;
}

void SystemTools::obtainDetails() {
    utsname names{};
    uname(&names);
    details()[DetailHostName] = static_cast<const char*>(names.nodename);
    DetailsObtained = true;
}

}  // namespace TarvikCorelib
