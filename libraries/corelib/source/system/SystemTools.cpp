#include "libraries/corelib/source/system/SystemTools.h"

#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/system/HostFacts.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"

namespace TarvikCorelib {

namespace {

constexpr const char* instanceVariable = "tarvik_application_instance";

void setDetail(SystemTools::DetailCode code, const std::string& value) {
    const ThreadLockGuard held(*SystemTools::DetailsLock);
    SystemTools::Details()[code] = value;
}

}  // namespace

constinit NoDestructor<ThreadLock> SystemTools::DetailsLock;
constinit bool SystemTools::DetailsObtained = false;

std::map<SystemTools::DetailCode, std::string>& SystemTools::Details() {
    static NoDestructor<std::map<DetailCode, std::string>> facts;
    return *facts;
}

std::string SystemTools::obtain(DetailCode code) {
    {
        const ThreadLockGuard held(*DetailsLock);
        const auto found = Details().find(code);
        if (found != Details().end()) return found->second;

        // The application has not set it, and nothing else will.
        if (DetailsObtained) return {};

        obtainDetails();
    }
    // Not while the lock is held: another thread may reset the table first, and all starts again.
    return obtain(code);
}

std::string SystemTools::getHostName(bool /*withDomain*/) {
    return obtain(DetailHostName);
}

std::string SystemTools::getDomain(bool /*withDomain*/) {
    return obtain(DetailDomain);
}

std::string SystemTools::getCurrentUser(bool withDomain) {
    const std::string domain = withDomain ? obtain(DetailUserDomain) : "";
    const bool hasDomain = !domain.empty() && domain != HostFacts::unknown;
    return (hasDomain ? domain + "\\" : "") + obtain(DetailUserName);
}

void SystemTools::setAppName(const std::string& name) {
    setDetail(DetailAppName, name);
}

void SystemTools::setAppInstance(const std::string& instance) {
    setDetail(DetailAppInstance, instance);
    EnvTools::set(instanceVariable, instance);
}

void SystemTools::setNetworkMasterUrl(const std::string& url) {
    setDetail(DetailNetworkMasterUrl, url);
}

std::string SystemTools::getAppInstance() {
    std::string instance = obtain(DetailAppInstance);
    if (!instance.empty()) return instance;
    return EnvTools::get(instanceVariable, instance) ? instance : "0";
}

std::string SystemTools::getAppNameSafe() {
    std::string instance = getAppInstance();
    return obtain(DetailAppName) + "#" + StringTools::padLeft(instance, 3, '0');
}

void SystemTools::resetDetails() {
    const ThreadLockGuard held(*DetailsLock);
    Details().clear();
    DetailsObtained = false;
}

}  // namespace TarvikCorelib
