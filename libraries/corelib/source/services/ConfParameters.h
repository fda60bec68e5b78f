/// What travels in the messages of the configuration agent, apart from `SystemQueryParam`.
#pragma once

#include "libraries/corelib/source/messaging/ImsMessage.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/time/TimeSpan.h"
#include "libraries/corelib/source/time/TimeZone.h"

#include <cstdint>
#include <list>
#include <map>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace TarvikCorelib {

/// Reads or writes an entry.
class ConfQueryParam : public ImsMessageParameter {
public:
    /// The type of an entry. The numbers are part of the messages; 6, 15 and 17 are unused, and 20
    /// to 25 are those of `SystemQueryParam`.
    enum Type : std::int32_t {
        NoValue = 0,  ///< Asks whether there is such an entry.
        BoolValue = 1,
        IntValue = 2,
        UIntValue = 3,
        FloatValue = 4,
        StringValue = 5,
        DateTimeValue = 7,
        TimeOfDayValue = 8,
        TimeZoneValue = 9,
        TimeSpanValue = 10,
        DirValue = 11,
        FileValue = 12,
        ListValue = 13,
        SubEntriesValue = 14,  ///< The names of the entries below.
        AttributesValue = 16,
        SetNode = 18,     ///< Sets a node with entries below it; the value is their names.
        RemoveNode = 19,  ///< Has no value.
    };
    struct None {};
    /// The C++ types of the values, in the order of their numbers.
    using Values =
        std::tuple<None, bool, long long, unsigned long long, double, std::string, None, DateTime,
                   DateTimeDetails, TimeZone, TimeSpan, std::string, std::string,
                   std::list<std::string>, std::list<std::string>, None,
                   std::map<std::string, std::string>, None, std::list<std::string>, None>;
    template <Type Number>
    using Value = std::tuple_element_t<Number, Values>;

    enum Status : std::int32_t {
        Good = 0,
        NotFound = 3,
        WrongType = 4,
        UnknownType = 5,
        InvalidPath = 7,
        FailedToRemove = 8,
    };

    ConfQueryParam() = default;
    ConfQueryParam(std::string key, std::int32_t type, void* value)
        : key(std::move(key)), type(type), value(value) {}

    std::string key;              ///< The path of the entry.
    std::int32_t type = NoValue;  ///< One of `Type`.
    void* value = nullptr;        ///< The sender's; of the C++ type that `type` says, or null.
    std::map<std::string, std::string> attributes;
    bool isSet = false;          ///< Write instead of read.
    std::int32_t status = Good;  ///< Written by the answering agent.
};
static_assert(std::is_same_v<ConfQueryParam::Value<ConfQueryParam::TimeSpanValue>, TimeSpan>);
static_assert(std::tuple_size_v<ConfQueryParam::Values> == ConfQueryParam::RemoveNode + 1);

/// A word that the service replaces in paths.
class ConfKeywordParam : public ImsMessageParameter {
public:
    ConfKeywordParam(std::string keyword, std::string value)
        : keyword(std::move(keyword)), value(std::move(value)) {}

    std::string keyword;
    std::string value;
};

class ConfPathParam : public ImsMessageParameter {
public:
    explicit ConfPathParam(std::string rawPath) : rawPath(std::move(rawPath)) {}

    std::string rawPath;
    std::string path;  ///< Processed. Written by the answering agent.
};

/// Reads or writes a value in a data bank. The message says which of the forms is meant.
class DataQueryParam : public ImsMessageParameter {
public:
    enum Status : std::int32_t { Good = 0, BankNotFound = 1, KeyNotFound = 3 };

    DataQueryParam(std::string bank, std::string key)
        : bank(std::move(bank)), key(std::move(key)) {}

    std::string bank;
    std::string key;  ///< Empty where the whole bank is meant.
    std::string text;
    std::list<std::string> list;
    std::map<std::string, std::string> map;  ///< Keys and texts, for a whole bank.
    std::list<std::string> names;            ///< The keys of a bank.
    std::int32_t status = Good;              ///< Written by the answering agent.
};

}  // namespace TarvikCorelib
