/// The agent through which a program reads and writes configuration.
#pragma once

#include "libraries/corelib/source/messaging/ImsAgent.h"
#include "libraries/corelib/source/services/ConfAgentExceptions.h"
#include "libraries/corelib/source/services/ConfParameters.h"
#include "libraries/corelib/source/services/SystemQueryParam.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace TarvikCorelib {

/// Stores nothing. Each operation sends a message with a parameter object, and turns the status
/// that the answering service wrote into it into a value or an exception. There are three services:
///
///     ("conf", ...)            the entries of the configuration, in a tree, each of a type
///     ("system", ...)          facts about the system, and the local configuration
///     ("databank", ...)        named banks of keys with texts or lists
///
/// A service writes the value through an untyped pointer, so it and this agent must agree on the
/// C++ type of each number: `ConfQueryParam::Values` is the list. Where no service answers, each
/// operation throws the `ImsNotWorking` of its family. What a handler throws passes through.
///
/// Any thread may use an agent; the services run on the thread that asks.
class ConfAgent : public ImsAgent, public ConfAgentExceptions {
public:
    using Texts = std::list<std::string>;
    using Attributes = std::map<std::string, std::string>;

    ConfAgent() : ImsAgent("conf-agent") {}

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

    // --- keywords and paths; they throw a `Keyword_...` exception

    /// From now on the service replaces the keyword in paths.
    void registerKeyword(const std::string& keyword, const std::string& value) const;
    /// The path as the service makes it of a raw one.
    [[nodiscard]] std::string processPath(const std::string& rawPath) const;

    // --- the system and the local configuration
    //
    // `scope` goes to the service unchanged; `SystemQueryParam::Scope` has the bits that are known
    // here.

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

    // --- data banks
    //
    // Reading throws a `GetData_...` exception, writing `SetData_ImsNotWorking`.
    // Quirk: a status of the service is ignored when writing.

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

    // --- checking entries
    //
    // Each reads an entry as its `get...` does and throws a `Test_...` exception if it cannot be
    // read or breaks the rule. Bounds are inclusive.

    void testBool(const std::string& key) const { tested<BoolValue>(key); }
    void testInt(const std::string& key, long long min, long long max) const;
    void testUInt(const std::string& key, unsigned long long min, unsigned long long max) const;
    void testFloat(const std::string& key, double min, double max) const;
    /// The whole text must match the glob.
    void testString(const std::string& key, const std::string& glob) const;
    /// The text must be one of the options.
    /// Quirk: the text is lowered and the options are not.
    void testStringOptions(const std::string& key, const std::set<std::string>& options) const;
    void testTime(const std::string& key, const DateTime& min, const DateTime& max) const;
    void testTimeOfDay(const std::string& key) const { tested<TimeOfDayValue>(key); }
    void testTimeZone(const std::string& key) const { tested<TimeZoneValue>(key); }
    void testTimeSpan(const std::string& key, const TimeSpan& min, const TimeSpan& max) const;

    /// What is expected of a path; any other number expects nothing.
    enum ExistenceCheck : std::int32_t { MustExist = 0, CreateIfMissing = 1, NoCheck = 2 };
    /// Links are followed; a file in the place of a directory is a missing directory, and the other
    /// way round. There is no creating yet: what is missing cannot be created.
    void testDir(const std::string& key, ExistenceCheck check) const;
    void testFile(const std::string& key, ExistenceCheck check) const;

    /// Each glob of `requiredAll` must match an element, and one of `requiredAny`, unless that is
    /// empty.
    void testList(const std::string& key, bool allowEmpty, const Texts& requiredAll,
                  const Texts& requiredAny) const;
    /// How many entries there must be below it, or which ones.
    void testSubEntries(const std::string& key, std::size_t min, std::size_t max) const;
    void testSubEntries(const std::string& key, const Texts& required) const;

    /// Reads an entry for a check: writes its value, of the C++ type that `type` says, to `value`.
    /// Wraps the exceptions of `sendQuery`, apart from `Query_InvalidPath` and
    /// `Query_FailedToRemove`, which pass through.
    void test(const std::string& key, std::int32_t type, void* value) const;

    // --- messages with a caller's own parameter
    //
    // Each destroys the parameter, also if it throws; null is a parameter for which there was no
    // memory. A status that stands for no exception is success; only for `setLocal` any but
    // `SystemQueryParam::Good` is a failure.

    void sendQuery(ConfQueryParam* param) const;
    void queryLocal(SystemQueryParam* param) const;
    void setLocal(SystemQueryParam* param) const;

private:
    using enum ConfQueryParam::Type;

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
    template <ConfQueryParam::Type Type>
    ConfQueryParam::Value<Type> tested(const std::string& key) const {
        ConfQueryParam::Value<Type> value{};
        test(key, Type, &value);
        return value;
    }
    template <class Value>
    [[nodiscard]] Value getLocal(const std::string& key, std::int32_t scope) const {
        Value value{};
        readLocal(key, localTypeOf(&value), &value, scope);
        return value;
    }

    void read(const std::string& key, std::int32_t type, void* value) const;
    void write(const std::string& key, std::int32_t type, void* value,
               const Attributes& attributes) const;
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
