// The facts about the system.

#include "libraries/corelib/source/services/SystemBase.h"
#include "libraries/corelib/source/system/SystemTools.h"
#include "libraries/corelib/source/text/StringSplitter.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <tuple>

namespace TarvikCorelib {

namespace {

using Tools = SystemTools;

struct SystemKey {
    std::string_view word;
    std::string (*answer)(const std::string& argument);
};

template <Tools::DetailCode Code>
std::string detail(const std::string& /*argument*/) {
    return Tools::obtain(Code);
}

// Without leading zeros.
template <Tools::DetailCode Code>
std::string numberOf(const std::string& /*argument*/) {
    return StringTools::toString(StringTools::toUInt64(Tools::obtain(Code)));
}

template <class Names>
std::string lines(const Names& names) {
    return StringSplitter::join(names, "\n");
}

// The code of a key is its row, counted from 1.
constexpr auto systemKeys = std::to_array<SystemKey>({
    {"hostname", [](const std::string&) { return Tools::getHostName(true); }},
    {"machinename", detail<Tools::DetailMachineName>},
    {"platform", detail<Tools::DetailPlatform>},
    {"os", detail<Tools::DetailOs>},
    {"osversion", numberOf<Tools::DetailOsVersion>},
    {"oslang", detail<Tools::DetailOsLanguage>},
    {"keyboardlang", detail<Tools::DetailKeyboardLanguage>},
    {"keyboardtype", detail<Tools::DetailKeyboardType>},
    {"arch", detail<Tools::DetailArchitecture>},
    {"domain", [](const std::string&) { return Tools::getDomain(true); }},
    {"currentuser", [](const std::string&) { return Tools::getCurrentUser(false); }},
    {"osbits", numberOf<Tools::DetailOsBits>},
    {"groups", [](const std::string&) { return lines(Tools::obtainGroups()); }},
    {"groupusers", [](const std::string& group) { return lines(Tools::obtainGroupUsers(group)); }},
    {"usergroups", [](const std::string& user) { return lines(Tools::obtainUserGroups(user)); }},
    {"ip", [](const std::string&) { return lines(Tools::obtainIP()); }},
    {"diskserial", [](const std::string& disk) { return Tools::obtainDiskSerial(disk); }},
});

}  // namespace

int SystemBase::mapSysKey(const std::string& key, std::string& argument) {
    std::string word;
    std::tie(word, argument) = StringSplitter::tLeft(key, '.');
    const auto* const row =
        std::find_if(systemKeys.begin(), systemKeys.end(),
                     [&](const SystemKey& known) { return known.word == word; });
    return row != systemKeys.end() ? static_cast<int>(row - systemKeys.begin()) + 1 : 0;
}

int SystemBase::querySystem(SystemQueryParam& param) {
    std::string argument;
    const int code = mapSysKey(param.key, argument);
    if (code == 0 || param.value == nullptr) {
        param.status = code == 0 ? SystemQueryParam::NotFound : SystemQueryParam::NoAccess;
        return MsgHandled;
    }

    const SystemKey& known = systemKeys.at(static_cast<std::size_t>(code - 1));
    *static_cast<std::string*>(param.value) = known.answer(argument);
    param.status = SystemQueryParam::Good;
    return MsgConsumed;
}

}  // namespace TarvikCorelib
