/// A request to the agent that keeps the values of the system.
#pragma once

#include "libraries/corelib/source/messaging/ImsMessage.h"

#include <concepts>
#include <cstdint>
#include <list>
#include <string>
#include <type_traits>
#include <utility>

namespace TarvikCorelib {

/// The parameter of the messages ("system", "query") and ("system", "set").
class SystemQueryParam : public ImsMessageParameter {
public:
    /// What the key names, and in brackets what `value` points to. The numbers continue those of
    /// `ConfQueryParam::Type`.
    enum Type : std::int32_t {
        SystemText = 20,   ///< A fact about the system (`std::string`).
        LocalInt = 21,     ///< An entry of the local configuration (`long long`), like the next.
        LocalUInt = 22,    ///< (`unsigned long long`)
        LocalFloat = 23,   ///< (`double`)
        LocalString = 24,  ///< (`std::string`)
        LocalList = 25,    ///< (`std::list<std::string>`)
    };
    /// Bits of `scope` that are known here; callers pass others through.
    enum Scope : std::int32_t {
        TrimScope = 2,     ///< Trims a text, or each text of a list.
        ModifyScope = 16,  ///< Changes the entry instead of setting it.
    };
    enum Status : std::int32_t {
        Good = 1,
        NotFound = 3,
        OtherType = 4,
        UnknownQueryType = 5,
        NoAccess = 6,
        UnknownSetType = 9,
        UnhandledSetType = 11,
    };

    SystemQueryParam() = default;
    SystemQueryParam(std::string key, std::int32_t type, void* value, std::int32_t scope)
        : key(std::move(key)), type(type), value(value), scope(scope) {}

    std::string key;
    std::int32_t type = 0;
    void* value = nullptr;  ///< The sender's; of the C++ type that `type` says.
    std::int32_t scope = 0;
    std::int32_t status = 0;  ///< Written by the answering agent; 0 until then.
};

// The types in which local values travel, and the number of each.

template <std::integral Number>
requires(!std::same_as<Number, bool>) auto toLocalValue(Number number) {
    return std::conditional_t<std::signed_integral<Number>, long long, unsigned long long>{number};
}
template <std::floating_point Number>
double toLocalValue(Number number) {
    return static_cast<double>(number);
}
inline std::string toLocalValue(std::string text) {
    return text;
}
inline std::list<std::string> toLocalValue(std::list<std::string> texts) {
    return texts;
}

constexpr SystemQueryParam::Type localTypeOf(const long long* /*value*/) {
    return SystemQueryParam::LocalInt;
}
constexpr SystemQueryParam::Type localTypeOf(const unsigned long long* /*value*/) {
    return SystemQueryParam::LocalUInt;
}
constexpr SystemQueryParam::Type localTypeOf(const double* /*value*/) {
    return SystemQueryParam::LocalFloat;
}
constexpr SystemQueryParam::Type localTypeOf(const std::string* /*value*/) {
    return SystemQueryParam::LocalString;
}
constexpr SystemQueryParam::Type localTypeOf(const std::list<std::string>* /*value*/) {
    return SystemQueryParam::LocalList;
}

/// What can be set in the local configuration: numbers but no flags, texts, lists of texts.
template <class Value>
concept LocalValue = requires(const Value& value) {
    toLocalValue(value);
};

}  // namespace TarvikCorelib
