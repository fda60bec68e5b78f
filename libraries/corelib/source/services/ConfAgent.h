/// The agent through which a program reads and writes configuration.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"
#include "libraries/corelib/source/services/ConfAgentChecks.h"
#include "libraries/corelib/source/services/ConfParameters.h"
#include "libraries/corelib/source/services/SystemQueryParam.h"

#include <cstdint>
#include <string>

namespace TarvikCorelib {

/// Stores nothing. Each operation sends a message with a parameter object, and turns the status
/// that the answering service wrote into it into a value or an exception. There are three services:
///
///     ("conf", ...)            the entries of the configuration, in a tree, each of a type
///     ("system", ...)          facts about the system, and the local configuration
///     ("databank", ...)        named banks of keys with texts or lists
///
/// A service writes the value through an untyped pointer, so it and this agent must agree on the
/// C++ type of each number: `ConfQueryParam::Values` is the list. In each family of exceptions,
/// `ImsNotWorking` means that no service has handled the message, `OutOfMemory` that there is no
/// memory to send one. What a handler throws passes through.
///
/// What is done to entries comes from the bases: `ConfAgentEntries` reads and writes them,
/// `ConfAgentChecks` checks them.
///
/// Any thread may use an agent; the services run on the thread that asks.
///
///     const SystemBase services;  // An `AppFrame` has one, and a `confAgent`.
///     const ConfAgent conf;
///     conf.setLocalConf("tool/port", 8080, 0);
///     conf.modifyLocalConf("tool/port", 1, 0);
///     conf.getLocalConfInt("tool/port", 0);  // 8081
///     conf.getInt("net/port", 80);           // 80, since nobody answers for the entries
class ConfAgent : public ConfAgentChecks {
public:
    // --- keywords and paths; they throw a `Keyword_...` exception

    using Keyword_OutOfMemory = NamedException<ConfAgent, "Keyword_OutOfMemory">;
    using Keyword_ImsNotWorking = NamedException<ConfAgent, "Keyword_ImsNotWorking">;

    /// From now on the service replaces the keyword in paths.
    void registerKeyword(const std::string& keyword, const std::string& value) const;
    /// The path as the service makes it of a raw one.
    [[nodiscard]] std::string processPath(const std::string& rawPath) const;

    // --- the system and the local configuration
    //
    // `scope` goes to the service unchanged; `SystemQueryParam::Scope` has the bits that are known
    // here.

    using GetSystem_Failed = NamedException<ConfAgent, "GetSystem_Failed">;
    using GetLocal_OutOfMemory = NamedException<ConfAgent, "GetLocal_OutOfMemory">;
    using GetLocal_ImsNotWorking = NamedException<ConfAgent, "GetLocal_ImsNotWorking">;
    using GetLocal_NotFound = NamedException<ConfAgent, "GetLocal_NotFound">;
    using GetLocal_WrongType = NamedException<ConfAgent, "GetLocal_WrongType">;
    using GetLocal_NoAccess = NamedException<ConfAgent, "GetLocal_NoAccess">;
    using SetLocal_OutOfMemory = NamedException<ConfAgent, "SetLocal_OutOfMemory">;
    using SetLocal_ImsNotWorking = NamedException<ConfAgent, "SetLocal_ImsNotWorking">;
    using SetLocal_InvalidType = NamedException<ConfAgent, "SetLocal_InvalidType">;
    using SetLocal_Failure = NamedException<ConfAgent, "SetLocal_Failure">;
    using SetLocal_NoAccess = NamedException<ConfAgent, "SetLocal_NoAccess">;

    /// A fact about the system as text. Throws `GetSystem_Failed`.
    [[nodiscard]] std::string getSystem(const std::string& key) const;
    /// Throw a `GetLocal_...` exception.
    [[nodiscard]] long long getLocalConfInt(const std::string& key, std::int32_t scope) const {
        return getLocal<long long>(key, scope);
    }
    [[nodiscard]] unsigned long long getLocalConfUInt(const std::string& key,
                                                      std::int32_t scope) const {
        return getLocal<unsigned long long>(key, scope);
    }
    [[nodiscard]] double getLocalConfFloat(const std::string& key, std::int32_t scope) const {
        return getLocal<double>(key, scope);
    }
    [[nodiscard]] std::string getLocalConfString(const std::string& key, std::int32_t scope) const {
        return getLocal<std::string>(key, scope);
    }
    [[nodiscard]] Texts getLocalConfList(const std::string& key, std::int32_t scope) const {
        return getLocal<Texts>(key, scope);
    }
    /// Sets or modifies an entry, of the type that the value has. Throw a `SetLocal_...` exception.
    template <LocalValue Value>
    void setLocalConf(const std::string& key, const Value& value, std::int32_t scope) const {
        auto sent = toLocalValue(value);
        storeLocal(key, localTypeOf(&sent), &sent, scope);
    }
    template <LocalValue Value>
    void modifyLocalConf(const std::string& key, const Value& value, std::int32_t scope) const {
        setLocalConf(key, value, scope | SystemQueryParam::ModifyScope);
    }

    /// Send a caller's own parameter and destroy it, as `sendQuery` does. For `setLocal`, any
    /// status but `SystemQueryParam::Good` is a failure.
    void queryLocal(SystemQueryParam* param) const;
    void setLocal(SystemQueryParam* param) const;

    // --- data banks
    //
    // Reading throws a `GetData_...` exception, writing `SetData_ImsNotWorking`.
    // Quirk: a status of the service is ignored when writing.

    // The messages of the first three are wide.
    using GetData_ImsNotWorking = NamedException<ConfAgent, "GetData_ImsNotWorking">;
    using GetData_BankNotFound = NamedException<ConfAgent, "GetData_BankNotFound">;
    using GetData_NotFound = NamedException<ConfAgent, "GetData_NotFound">;
    using SetData_ImsNotWorking = NamedException<ConfAgent, "SetData_ImsNotWorking">;

    /// `extract...` removes what it reads.
    [[nodiscard]] std::string getData(const std::string& bank, const std::string& key) const;
    std::string extractData(const std::string& bank, const std::string& key) const;
    [[nodiscard]] Texts getDataList(const std::string& bank, const std::string& key) const;
    Texts extractDataList(const std::string& bank, const std::string& key) const;
    /// The keys of a bank.
    [[nodiscard]] Texts getDataNames(const std::string& bank) const;
    /// Replaces what the key has, or all of a bank by keys with their texts.
    void setData(const std::string& bank, const std::string& key, const std::string& text) const;
    void setData(const std::string& bank, const std::string& key, const Texts& list) const;
    void setData(const std::string& bank, const Attributes& texts) const;
    /// Adds to what the key has.
    void addData(const std::string& bank, const std::string& key, const std::string& text) const;
    void addData(const std::string& bank, const std::string& key, const Texts& list) const;

private:
    template <class Value>
    [[nodiscard]] Value getLocal(const std::string& key, std::int32_t scope) const {
        Value value{};
        readLocal(key, localTypeOf(&value), &value, scope);
        return value;
    }

    void readLocal(const std::string& key, std::int32_t type, void* value,
                   std::int32_t scope) const;
    void storeLocal(const std::string& key, std::int32_t type, void* value,
                    std::int32_t scope) const;
    /// `form` is the message type.
    [[nodiscard]] DataQueryParam queryData(const char* form, const std::string& bank,
                                           const std::string& key) const;
    void storeData(const char* form, DataQueryParam& param) const;
};

}  // namespace TarvikCorelib
