/// What the rules of a handle say, as records.
#pragma once

#include <compare>
#include <cstdint>
#include <list>
#include <string>

namespace Tarvik {

/// A range of a filter.
struct RangeDef {
    /// Of the day: seconds after midnight. Of dates: seconds since 1970 in GMT.
    long start = 0;
    /// The same; above 86400 in a range of the day that passes midnight.
    long end = 0;

    bool operator==(const RangeDef&) const = default;
};

/// 0, Monday, to 6, Sunday.
struct WeekDayCode {
    std::int32_t code = 0;

    bool operator==(const WeekDayCode&) const = default;
};

/// Which counter of activity: a code of `mapCounterID`.
struct CounterID {
    std::int32_t code = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): the check misreads a defaulted comparison.
    auto operator<=>(const CounterID&) const = default;
};

/// A counter of the section `idle-detection`. Each number is 0 if the handle leaves it empty.
struct CounterDef {
    CounterID id;
    double threshold = 0.0;
    double weight = 0.0;

    bool operator==(const CounterDef&) const = default;
};

/// A rule of the section `licenses`.
struct LicenseDef {
    /// Fingerprint of the whole license file where the rule names the file itself, else 0.
    std::uint64_t fileHash = 0;
    std::string vendor;   ///< In lower case.
    std::string feature;  ///< In lower case.
    std::string version;  ///< As written.
    bool certain = false;

    bool operator==(const LicenseDef&) const = default;
};

/// A rule of the section `filter`. The lower limits stay 0: no parameter sets them.
struct FilterDef {
    std::int32_t type = 0;  ///< 0 includes, 1 excludes.
    std::list<std::string> os;
    std::list<std::string> notOs;
    std::list<std::string> host;
    std::list<std::string> notHost;
    std::list<std::string> user;
    std::list<std::string> notUser;
    std::list<WeekDayCode> wday;
    std::list<WeekDayCode> notWday;
    std::list<RangeDef> date;
    std::list<RangeDef> notDate;
    std::list<RangeDef> time;
    std::list<RangeDef> notTime;
    std::uint32_t countLow = 0;
    std::uint32_t countHigh = 100;
    std::uint32_t licenseUseLow = 0;  ///< Percent.
    std::uint32_t licenseUseHigh = 100;

    bool operator==(const FilterDef&) const = default;
};

/// A rule of the section `priorities`. An empty parameter empties its field.
struct PriorityDef {
    std::string name;
    std::string host = "*";
    std::string user = "*";
    std::string group = "*";
    std::int32_t priority = 1;  ///< A code of `HandleValidator::mapPriority`.

    bool operator==(const PriorityDef&) const = default;
};

/// From "cpu", 0, to "keyboard", 3.
int mapCounterID(const std::string& word);
inline constexpr int unknownCounterID = 4;
/// From "apptracker", 1, to "encrypt", 9.
int mapDisableMethod(const std::string& word);
inline constexpr int unknownDisableMethod = 0;

}  // namespace Tarvik
