// The agent, and the values of the file registry.

#include "libraries/corelib/source/services/SystemBase.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/services/FileRegistry.h"
#include "libraries/corelib/source/text/StringSplitter.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"

#include <array>
#include <cstddef>
#include <list>
#include <type_traits>

namespace TarvikCorelib {

namespace {

using Param = SystemQueryParam;

// For reading and writing alike.
Param::Status statusOf(int result) {
    switch (result) {
    case FileRegistry::Done: return Param::Good;
    case FileRegistry::InvalidType:
    case FileRegistry::InvalidKey:
    case FileRegistry::NoSuchKey: return Param::NotFound;
    case FileRegistry::NoSuchValue: return Param::OtherType;
    default: return Param::NoAccess;
    }
}

std::string registryKeyOf(const std::string& key) {
    const auto [entry, side] = StringSplitter::tLeft(key, ':');
    return side == "Client" || side == "Server" ? R"(Resources\)" + entry : entry;
}

bool has(const Param& param, Param::Scope bit) {
    return (param.scope & bit) != 0;
}

void trim(std::string& text) {
    StringTools::trimLeft(StringTools::trimRight(text, true), true);
}

void trim(std::list<std::string>& texts) {
    for (std::string& text : texts)
        trim(text);
}

// How values of a type are read into and written from the caller's; both return the result of the
// registry. Only numbers are read under its lock: a text is replaced as a whole.
template <class Value>
struct LocalEntry {
    static int read(const std::string& key, const Param& param) {
        Value& value = *static_cast<Value*>(param.value);
        if constexpr (std::is_arithmetic_v<Value>) {
            return FileRegistry::get(key, value, true);
        } else {
            const int result = FileRegistry::get(key, value);
            if (result == FileRegistry::Done && has(param, Param::TrimScope)) trim(value);
            return result;
        }
    }

    static int write(const std::string& key, const Param& param) {
        const Value& value = *static_cast<const Value*>(param.value);
        if constexpr (std::is_arithmetic_v<Value>) {
            return has(param, Param::ModifyScope) ? modify(key, value)
                                                  : FileRegistry::set(key, value);
        } else {
            if (!has(param, Param::TrimScope)) return FileRegistry::set(key, value);
            Value trimmed = value;
            trim(trimmed);
            return FileRegistry::set(key, trimmed);
        }
    }

private:
    static int modify(const std::string& key, Value value) {
        const int result = FileRegistry::modify(key, value);
        const bool isMissing =
            result == FileRegistry::NoSuchKey || result == FileRegistry::NoSuchValue;
        return isMissing ? FileRegistry::set(key, value) : result;
    }
};

using Operation = int (*)(const std::string& key, const Param& param);

struct LocalType {
    Operation read;
    Operation write;
};

template <class Value>
constexpr LocalType localType{LocalEntry<Value>::read, LocalEntry<Value>::write};

// By the type of the request, from `LocalInt` on.
constexpr std::array localTypes{localType<long long>, localType<unsigned long long>,
                                localType<double>, localType<std::string>,
                                localType<std::list<std::string>>};
static_assert(localTypes.size() == Param::LocalList - Param::LocalInt + 1);

bool isLocal(std::int32_t type) {
    return type >= Param::LocalInt && type <= Param::LocalList;
}

int refuse(Param& param, Param::Status status) {
    param.status = status;
    return ImsAgent::MsgHandled;
}

// `badType` is the status for a type that the registry does not have.
int access(Param& param, Operation LocalType::*operation, Param::Status badType) {
    if (!isLocal(param.type)) return refuse(param, badType);
    if (param.value == nullptr) return refuse(param, Param::NoAccess);
    const LocalType& row = localTypes.at(static_cast<std::size_t>(param.type - Param::LocalInt));
    param.status = statusOf((row.*operation)(registryKeyOf(param.key), param));
    return ImsAgent::MsgConsumed;
}

// Blank if there is none.
std::string directoryAt(const char* key) {
    std::string directory;
    Param param(key, Param::LocalString, &directory, 0);
    SystemBase::queryLocalConfFileReg(param);
    return directory;
}

}  // namespace

constinit bool SystemBase::Active = false;
constinit bool SystemBase::UseFileRegistry = false;

// By way of the other constructor, so that the destructor removes the first hook when the second
// one fails.
SystemBase::SystemBase() : SystemBase("system-base") {
    try {
        queryHook = setMessageHook(false, "system", "query", "", HookTypeNormal);
        setHook = setMessageHook(false, "system", "set", "", HookTypeNormal);
    } catch (const Exception& cause) {
        throw SystemBase_FailedToSetIMSHook(here(), cause);
    }
    Active = true;
}

SystemBase::~SystemBase() {
    for (const unsigned long long hook : {queryHook, setHook}) {
        try {
            if (hook != 0) removeMessageHook(hook);
        } catch (...) {
            // Out of memory; the hook is marked as removed by then.
        }
    }
}

int SystemBase::handleMessage(const ImsMessage& message) {
    if (message.generalType != "system") return MsgIgnored;
    if (message.groupType == "query") return query(message);
    if (message.groupType == "set") return set(message);
    return MsgIgnored;
}

int SystemBase::hookMessage(unsigned long long hookId, const ImsMessage& message) {
    return hookId == queryHook || hookId == setHook ? handleMessage(message) : MsgIgnored;
}

int SystemBase::query(const ImsMessage& message) {
    auto* const param = dynamic_cast<Param*>(message.parameter);
    if (param == nullptr) return MsgIgnored;
    if (param->type == Param::SystemText) return querySystem(*param);
    return access(*param, &LocalType::read, Param::UnknownQueryType);
}

int SystemBase::set(const ImsMessage& message) {
    auto* const param = dynamic_cast<Param*>(message.parameter);
    if (param == nullptr) return MsgIgnored;
    if (!isLocal(param->type)) {
        param->status = Param::UnhandledSetType;
        return MsgConsumed;
    }
    return setLocalConfFileReg(*param);
}

int SystemBase::queryLocalConfFileReg(SystemQueryParam& param) {
    return access(param, &LocalType::read, Param::NotFound);
}

int SystemBase::setLocalConfFileReg(SystemQueryParam& param) {
    return access(param, &LocalType::write, Param::UnknownSetType);
}

std::string SystemBase::getConfDir() {
    return directoryAt("ConfigurationDir");
}

std::string SystemBase::getInstallDir() {
    return directoryAt("InstallDir");
}

std::string SystemBase::getTempDir() {
    return directoryAt("TempDir");
}

}  // namespace TarvikCorelib
