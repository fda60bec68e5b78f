/// The part of the configuration agent that reads and writes the entries of the configuration.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"
#include "libraries/corelib/source/messaging/ImsAgent.h"
#include "libraries/corelib/source/services/ConfParameters.h"

#include <concepts>
#include <cstdint>
#include <list>
#include <map>
#include <string>
#include <string_view>

namespace TarvikCorelib {

class ConfAgent;

/// A base of `ConfAgent`, whose comment says how an operation works. The entries are a tree, and
/// each has a type; a key is the path of an entry.
class ConfAgentEntries : public ImsAgent {
public:
    using Texts = std::list<std::string>;
    using Attributes = std::map<std::string, std::string>;

    using Query_OutOfMemory = NamedException<ConfAgent, "Query_OutOfMemory">;
    using Query_ImsNotWorking = NamedException<ConfAgent, "Query_ImsNotWorking">;
    using Query_NotFound = NamedException<ConfAgent, "Query_NotFound">;
    using Query_WrongType = NamedException<ConfAgent, "Query_WrongType">;
    using Query_UnknownType = NamedException<ConfAgent, "Query_UnknownType">;
    using Query_InvalidPath = NamedException<ConfAgent, "Query_InvalidPath">;
    using Query_FailedToRemove = NamedException<ConfAgent, "Query_FailedToRemove">;
    using Query_NotValidOption = NamedException<ConfAgent, "Query_NotValidOption">;

    // --- the names of types and errors

    /// Of `ConfQueryParam::Type` and `SystemQueryParam::Type`: "undefined" for a number without a
    /// name, 0 for an unknown name.
    static std::string mapConfType(int type);
    static int mapConfType(std::string_view name);
    /// What a service's error number means; empty for 0, "Unknown error" for unknown ones.
    static std::string mapConfError(int error);

    // --- reading entries
    //
    // The forms without a default throw a `Query_...` exception. Those with one return it instead,
    // whatever exception of the suite there is.

    [[nodiscard]] bool getBool(const std::string& key) const { return get<BoolValue>(key); }
    // The long name of the type, since g++ 12 breaks down at the short one in a template.
    [[nodiscard]] bool getBool(const std::string& key, std::same_as<bool> auto fallback) const {
        return getOr<ConfQueryParam::BoolValue>(key, fallback);
    }
    [[nodiscard]] long long getInt(const std::string& key) const { return get<IntValue>(key); }
    [[nodiscard]] long long getInt(const std::string& key, long long fallback) const {
        return getOr<IntValue>(key, fallback);
    }
    [[nodiscard]] unsigned long long getUInt(const std::string& key) const {
        return get<UIntValue>(key);
    }
    [[nodiscard]] unsigned long long getUInt(const std::string& key,
                                             unsigned long long fallback) const {
        return getOr<UIntValue>(key, fallback);
    }
    /// Two names for one thing: all floating-point values are doubles.
    [[nodiscard]] double getFloat(const std::string& key) const { return get<FloatValue>(key); }
    [[nodiscard]] double getFloat(const std::string& key, double fallback) const {
        return getOr<FloatValue>(key, fallback);
    }
    [[nodiscard]] double getDouble(const std::string& key) const { return get<FloatValue>(key); }
    [[nodiscard]] double getDouble(const std::string& key, double fallback) const {
        return getOr<FloatValue>(key, fallback);
    }
    [[nodiscard]] std::string getString(const std::string& key) const {
        return get<StringValue>(key);
    }
    [[nodiscard]] std::string getString(const std::string& key, const std::string& fallback) const {
        return getOr<StringValue>(key, fallback);
    }
    [[nodiscard]] std::string getDir(const std::string& key) const { return get<DirValue>(key); }
    [[nodiscard]] std::string getDir(const std::string& key, const std::string& fallback) const {
        return getOr<DirValue>(key, fallback);
    }
    [[nodiscard]] std::string getFile(const std::string& key) const { return get<FileValue>(key); }
    [[nodiscard]] std::string getFile(const std::string& key, const std::string& fallback) const {
        return getOr<FileValue>(key, fallback);
    }
    /// An instant as its count, with its zone, or as fields in GMT.
    [[nodiscard]] TimeType getTime(const std::string& key) const {
        return get<DateTimeValue, TimeType>(key);
    }
    [[nodiscard]] TimeType getTime(const std::string& key, TimeType fallback) const {
        return getOr<DateTimeValue>(key, fallback);
    }
    [[nodiscard]] DateTime getDateTime(const std::string& key) const {
        return get<DateTimeValue>(key);
    }
    [[nodiscard]] DateTime getDateTime(const std::string& key, const DateTime& fallback) const {
        return getOr<DateTimeValue>(key, fallback);
    }
    [[nodiscard]] DateTimeDetails getDateTimeDetails(const std::string& key) const {
        return get<DateTimeValue, DateTimeDetails>(key);
    }
    [[nodiscard]] DateTimeDetails getDateTimeDetails(const std::string& key,
                                                     const DateTimeDetails& fallback) const {
        return getOr<DateTimeValue>(key, fallback);
    }
    [[nodiscard]] DateTimeDetails getTimeOfDay(const std::string& key) const {
        return get<TimeOfDayValue>(key);
    }
    [[nodiscard]] DateTimeDetails getTimeOfDay(const std::string& key,
                                               const DateTimeDetails& fallback) const {
        return getOr<TimeOfDayValue>(key, fallback);
    }
    [[nodiscard]] TimeZone getTimeZone(const std::string& key) const {
        return get<TimeZoneValue>(key);
    }
    [[nodiscard]] TimeZone getTimeZone(const std::string& key, const TimeZone& fallback) const {
        return getOr<TimeZoneValue>(key, fallback);
    }
    [[nodiscard]] TimeSpan getTimeSpan(const std::string& key) const {
        return get<TimeSpanValue>(key);
    }
    [[nodiscard]] TimeSpan getTimeSpan(const std::string& key, const TimeSpan& fallback) const {
        return getOr<TimeSpanValue>(key, fallback);
    }

    /// Ask for a text, as `getString` does.
    [[nodiscard]] std::string getAsString(const std::string& key) const {
        return get<StringValue>(key);
    }
    [[nodiscard]] std::string findPath(const std::string& key) const {
        return get<StringValue>(key);
    }
    [[nodiscard]] Texts getList(const std::string& key) const { return get<ListValue>(key); }
    [[nodiscard]] Texts getSubEntries(const std::string& key) const {
        return get<SubEntriesValue>(key);
    }
    [[nodiscard]] Attributes getAttributes(const std::string& key) const {
        return get<AttributesValue>(key);
    }
    /// Whether there is an entry, of whatever type. Throws if that cannot be found out.
    [[nodiscard]] bool haveNode(const std::string& key) const;
    /// The number that the map has for an entry's text. Throws `Query_NotValidOption` if it has
    /// none.
    /// Quirk: the text is lowered and the map is not, so words of the map must be in lower case.
    [[nodiscard]] int getStringOption(const std::string& key,
                                      const std::map<std::string, int>& options) const;

    // --- writing entries; they throw a `Query_...` exception

    void setBool(const std::string& key, std::same_as<bool> auto value) const {
        set<ConfQueryParam::BoolValue>(key, value);
    }
    void setInt(const std::string& key, long long value) const { set<IntValue>(key, value); }
    void setUInt(const std::string& key, unsigned long long value) const {
        set<UIntValue>(key, value);
    }
    void setFloat(const std::string& key, double value) const { set<FloatValue>(key, value); }
    void setDouble(const std::string& key, double value) const { set<FloatValue>(key, value); }
    void setString(const std::string& key, const std::string& value) const {
        set<StringValue>(key, value);
    }
    void setDir(const std::string& key, const std::string& value) const {
        set<DirValue>(key, value);
    }
    void setFile(const std::string& key, const std::string& value) const {
        set<FileValue>(key, value);
    }
    void setTime(const std::string& key, TimeType value) const {
        set<DateTimeValue>(key, DateTime(value));
    }
    void setDateTime(const std::string& key, const DateTime& value) const {
        set<DateTimeValue>(key, value);
    }
    void setDateTimeDetails(const std::string& key, const DateTimeDetails& value) const {
        set<DateTimeValue>(key, value.getDateTime());
    }
    void setTimeOfDay(const std::string& key, const DateTimeDetails& value) const {
        set<TimeOfDayValue>(key, value);
    }
    void setTimeZone(const std::string& key, const TimeZone& value) const {
        set<TimeZoneValue>(key, value);
    }
    void setTimeSpan(const std::string& key, const TimeSpan& value) const {
        set<TimeSpanValue>(key, value);
    }

    /// How a service is to store a list: the attribute `ltype`, "list" or "str".
    enum ListType : std::int32_t { StoredAsList = 0, StoredAsString = 1 };
    /// A single text is a list of one.
    void setList(const std::string& key, const Texts& value, ListType type) const;
    void setList(const std::string& key, const std::string& value, ListType type) const {
        setList(key, Texts{value}, type);
    }
    /// Sets a node with attributes, and with entries of these names below it.
    void setNode(const std::string& key, const Texts& subEntries = {},
                 const Attributes& attributes = {}) const;
    void removeNode(const std::string& key) const;

    // --- a message with a caller's own parameter

    /// Owns the parameter and destroys it, also if it throws a `Query_...` exception; null is a
    /// parameter for which there was no memory. A status that stands for no exception is success.
    void sendQuery(ConfQueryParam* param) const;

protected:
    using enum ConfQueryParam::Type;

    ConfAgentEntries() : ImsAgent("conf-agent") {}

    void read(const std::string& key, std::int32_t type, void* value) const;

private:
    template <ConfQueryParam::Type Type, class Result = ConfQueryParam::Value<Type>>
    [[nodiscard]] Result get(const std::string& key) const {
        ConfQueryParam::Value<Type> value{};
        read(key, Type, &value);
        return static_cast<Result>(value);
    }
    template <ConfQueryParam::Type Type, class Result>
    [[nodiscard]] Result getOr(const std::string& key, const Result& fallback) const {
        try {
            return get<Type, Result>(key);
        } catch (const Exception&) {
            return fallback;
        }
    }
    template <ConfQueryParam::Type Type>
    void set(const std::string& key, ConfQueryParam::Value<Type> value) const {
        write(key, Type, &value, {});
    }

    void write(const std::string& key, std::int32_t type, void* value,
               const Attributes& attributes) const;
};

}  // namespace TarvikCorelib
