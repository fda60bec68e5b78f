// Facts about the system, and the local configuration.

#include "libraries/corelib/source/diagnostics/DiagnosticsMessages.h"
#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/services/ConfAgent.h"
#include "libraries/corelib/source/services/ConfAgentMessages.h"
#include "libraries/corelib/source/services/ConfMemory.h"

#include <memory>

namespace TarvikCorelib {

std::string ConfAgent::getSystem(const std::string& key) const {
    std::string value;
    SystemQueryParam param(key, SystemQueryParam::SystemText, &value, 0);
    ImsMessage message("system", "query", "", &param);
    if (!sendMessage(message) || param.status != SystemQueryParam::Good)
        throw made<GetSystem_Failed>(messages::getSystemFailed, here(), key);
    return value;
}

void ConfAgent::readLocal(const std::string& key, std::int32_t type, void* value,
                          std::int32_t scope) const {
    queryLocal(allocate<GetLocal_OutOfMemory, SystemQueryParam>(key, type, value, scope).release());
}

void ConfAgent::storeLocal(const std::string& key, std::int32_t type, void* value,
                           std::int32_t scope) const {
    setLocal(allocate<SetLocal_OutOfMemory, SystemQueryParam>(key, type, value, scope).release());
}

void ConfAgent::queryLocal(SystemQueryParam* param) const {
    const std::unique_ptr<SystemQueryParam> owned(param);
    if (param == nullptr) throw GetLocal_OutOfMemory(messages::outOfMemory, here());
    const std::string key = param->key;
    const std::string type = mapConfType(param->type);

    ImsMessage message("system", "query", "", param);
    if (!sendMessage(message))
        throw made<GetLocal_ImsNotWorking>(messages::getLocalImsNotWorking, here(), key);

    switch (param->status) {
    case SystemQueryParam::NotFound:
        throw made<GetLocal_NotFound>(messages::getLocalNotFound, here(), key);
    case SystemQueryParam::OtherType:
    case SystemQueryParam::UnknownQueryType:
        throw made<GetLocal_WrongType>(messages::getLocalWrongType, here(), key, type);
    case SystemQueryParam::NoAccess:
        throw made<GetLocal_NoAccess>(messages::getLocalNoAccess, here(), key, type);
    default: return;
    }
}

void ConfAgent::setLocal(SystemQueryParam* param) const {
    const std::unique_ptr<SystemQueryParam> owned(param);
    if (param == nullptr) throw SetLocal_OutOfMemory(messages::outOfMemory, here());
    const std::string key = param->key;
    const std::string type = mapConfType(param->type);

    ImsMessage message("system", "set", "", param);
    if (!sendMessage(message))
        throw made<SetLocal_ImsNotWorking>(messages::setLocalImsNotWorking, here(), key);

    switch (param->status) {
    case SystemQueryParam::Good: return;
    case SystemQueryParam::UnknownSetType:
    case SystemQueryParam::UnhandledSetType:
        throw made<SetLocal_InvalidType>(messages::setLocalInvalidType, here(), key, type);
    case SystemQueryParam::NoAccess:
        throw made<SetLocal_NoAccess>(messages::setLocalNoAccess, here(), key, type);
    default: throw made<SetLocal_Failure>(messages::setLocalFailure, here(), key, type);
    }
}

}  // namespace TarvikCorelib
