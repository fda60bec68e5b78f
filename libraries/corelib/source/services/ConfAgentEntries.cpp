#include "libraries/corelib/source/services/ConfAgentEntries.h"

#include "libraries/corelib/source/diagnostics/DiagnosticsMessages.h"
#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/services/ConfAgentMessages.h"
#include "libraries/corelib/source/services/ConfMemory.h"
#include "libraries/corelib/source/services/SystemQueryParam.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "shared/library/tables/Keywords.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

namespace TarvikCorelib {

namespace {

using TarvikTables::Keyword;

constexpr auto typeNames = std::to_array<Keyword>({
    {"none", ConfQueryParam::NoValue},
    {"bool", ConfQueryParam::BoolValue},
    {"int", ConfQueryParam::IntValue},
    {"uint", ConfQueryParam::UIntValue},
    {"float", ConfQueryParam::FloatValue},
    {"string", ConfQueryParam::StringValue},
    {"datetime", ConfQueryParam::DateTimeValue},
    {"time-of-day", ConfQueryParam::TimeOfDayValue},
    {"timezone", ConfQueryParam::TimeZoneValue},
    {"timespan", ConfQueryParam::TimeSpanValue},
    {"dir", ConfQueryParam::DirValue},
    {"file", ConfQueryParam::FileValue},
    {"list", ConfQueryParam::ListValue},
    {"sub-entries", ConfQueryParam::SubEntriesValue},
    {"attributes", ConfQueryParam::AttributesValue},
    {"system string", SystemQueryParam::SystemText},
    {"local int", SystemQueryParam::LocalInt},
    {"local uint", SystemQueryParam::LocalUInt},
    {"local float", SystemQueryParam::LocalFloat},
    {"local string", SystemQueryParam::LocalString},
    {"local set", SystemQueryParam::LocalList},
});

constexpr auto errorTexts = std::to_array<std::string_view>({
    "",
    "IMS error",
    "Wrong type",
    "Unknown type",
    "Not found",
    "Incorrect formatting",
    "Input format is wrong",
    "Access denied",
    "Out of memory",
    "File error",
});

}  // namespace

std::string ConfAgentEntries::mapConfType(int type) {
    const auto* const row = std::find_if(typeNames.begin(), typeNames.end(),
                                         [type](const Keyword& name) { return name.code == type; });
    return std::string(row != typeNames.end() ? row->word : "undefined");
}

int ConfAgentEntries::mapConfType(std::string_view name) {
    return codeOf(name, typeNames, ConfQueryParam::NoValue);
}

std::string ConfAgentEntries::mapConfError(int error) {
    const auto index = static_cast<std::size_t>(error);  // Negative ones become too large.
    return std::string(index < errorTexts.size() ? errorTexts[index] : "Unknown error");
}

bool ConfAgentEntries::haveNode(const std::string& key) const {
    try {
        read(key, NoValue, nullptr);
        return true;
    } catch (const Query_NotFound&) {
        return false;
    }
}

int ConfAgentEntries::getStringOption(const std::string& key,
                                      const std::map<std::string, int>& options) const {
    const std::string value = getString(key);
    std::string word = value;
    const auto option = options.find(StringTools::lower(word));
    if (option == options.end())
        throw made<Query_NotValidOption>(messages::queryNotValidOption, here(), value, key);
    return option->second;
}

void ConfAgentEntries::setList(const std::string& key, const Texts& value, ListType type) const {
    Texts sent = value;
    write(key, ListValue, &sent, {{"ltype", type == StoredAsString ? "str" : "list"}});
}

void ConfAgentEntries::setNode(const std::string& key, const Texts& subEntries,
                               const Attributes& attributes) const {
    Texts sent = subEntries;
    write(key, SetNode, &sent, attributes);
}

void ConfAgentEntries::removeNode(const std::string& key) const {
    write(key, RemoveNode, nullptr, {});
}

void ConfAgentEntries::sendQuery(ConfQueryParam* param) const {
    const std::unique_ptr<ConfQueryParam> owned(param);
    if (param == nullptr) throw Query_OutOfMemory(messages::outOfMemory, here());
    // As they were asked for, whatever the service does to them.
    const std::string key = param->key;
    const std::string type = mapConfType(param->type);

    ImsMessage message("conf", "query", "", param);
    if (!sendMessage(message))
        throw made<Query_ImsNotWorking>(messages::queryImsNotWorking, here(), key);

    switch (param->status) {
    case ConfQueryParam::NotFound: throw made<Query_NotFound>(messages::queryNotFound, here(), key);
    case ConfQueryParam::WrongType:
        throw made<Query_WrongType>(messages::queryWrongType, here(), key, type);
    case ConfQueryParam::UnknownType:
        throw made<Query_UnknownType>(messages::queryUnknownType, here(), key, type);
    case ConfQueryParam::InvalidPath:
        throw made<Query_InvalidPath>(messages::queryInvalidPath, here(), key);
    case ConfQueryParam::FailedToRemove:
        throw made<Query_FailedToRemove>(messages::queryFailedToRemove, here(), key);
    default: return;
    }
}

void ConfAgentEntries::read(const std::string& key, std::int32_t type, void* value) const {
    sendQuery(allocate<Query_OutOfMemory, ConfQueryParam>(key, type, value).release());
}

void ConfAgentEntries::write(const std::string& key, std::int32_t type, void* value,
                             const Attributes& attributes) const {
    auto param = allocate<Query_OutOfMemory, ConfQueryParam>(key, type, value);
    param->attributes = attributes;
    param->isSet = true;
    sendQuery(param.release());
}

}  // namespace TarvikCorelib
