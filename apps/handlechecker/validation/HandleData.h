/// What a handle says, as far as it has been read.
#pragma once

#include "apps/handlechecker/validation/HandleRecords.h"

#include <compare>
#include <cstdint>
#include <list>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Tarvik {

/// Two paths with equal identities lead to one file with the same content.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;             ///< Bytes.
    std::int64_t changed = 0;          ///< Of content or rights, in seconds since 1970.
    std::int64_t changedFraction = 0;  ///< The rest of that time, in nanoseconds.

    // NOLINTNEXTLINE(modernize-use-nullptr): the check misreads a defaulted comparison.
    auto operator<=>(const FileIdentity&) const = default;
};

/// All that a file starts anew with: the results, and the state of the reading.
///
/// It is a record of its own so that a new file is one assignment, and a field that is added here
/// cannot be forgotten in a reset or a comparison. The order of the fields is settled.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): the order of the fields is settled.
struct HandleData {
    /// The sections, by number.
    enum ParseObject : std::int32_t {
        NoObject = 0,
        Executables = 1,
        Licenses = 2,
        IdleDetection = 3,
        Optimization = 4,
        CpuOveruse = 5,
        Filter = 6,
        Priorities = 7,
    };

    /// What the line machine expects next. The state is kept as a number, since the head of a
    /// nested block adds 1 to it, which may lead past the last state.
    enum LineState : std::int32_t {
        OutsideHandle = 0,
        ExpectHandleBrace = 1,
        InHandle = 2,
        ExpectSectionBrace = 3,
        InSection = 4,
        ExpectSubsectionBrace = 5,
        InSubsection = 6,
    };

    struct Error {
        std::string message;
        std::string line;  ///< In decimal, from 1; "0" for a fault of the file as a whole.

        bool operator==(const Error&) const = default;
    };

    /// A rule of the section `executables`.
    struct ExePatternDef {
        bool include = false;         ///< The rule's type is "include", not "exclude".
        std::string exe;              ///< A pattern.
        std::string args = "*";       ///< A pattern.
        std::string child;            ///< A pattern; empty for none.
        std::string childArgs = "*";  ///< A pattern.
        bool childOnly = false;
        bool required = false;

        bool operator==(const ExePatternDef&) const = default;
    };

    struct LicenseServerDef {
        std::string host;
        std::int16_t port = 0;

        bool operator==(const LicenseServerDef&) const = default;
    };

    /// A number of licenses that must be available, of one vendor or feature if it is named.
    struct AvailableReq {
        std::string vendor;   ///< The first name; a single name is stored here.
        std::string feature;  ///< The second name.
        std::int32_t count = 1;
        bool percent = false;  ///< `count` is a share.

        bool operator==(const AvailableReq&) const = default;
    };

    // --- what every handle starts with; nothing changes these

    static constexpr bool GlobalUseLinkTimeout = false;
    static constexpr long GlobalLinkTimeout = 600;  ///< Seconds.
    static constexpr bool GlobalCaseSensitive = true;
    /// The license type "none", under which a handle draws no licenses.
    static constexpr int NoLicenses = 1;

    bool operator==(const HandleData&) const = default;

    /// Lines read so far.
    unsigned long lineNumber = 0;
    std::vector<Error> errors;  ///< In the order of discovery.
    bool requireSameAvailable = false;
    /// Left side of the line that is being read.
    std::string currentKey;
    std::int32_t state = OutsideHandle;  ///< A `LineState`.
    std::string name;

    // Durations are in seconds.
    std::map<std::string, ExePatternDef> exePatterns;  ///< By the key of the rule.
    std::set<std::string> requiredExes;  ///< Programs and children of the rules that require them.
    bool multiple = false;
    bool useDisplay = false;
    long pollInterval = 0;
    long exeUpdateInterval = 0;
    std::map<CounterID, CounterDef> counters;
    double idleThreshold = 4.0;
    long lagTime = 60;
    long idleTimeout = 600;
    long suspendTimeout = 864000;
    std::int32_t suspendTimeoutAction = 1;  ///< A code of `mapSuspendAction`.
    long userCountdown = 0;
    long resendTimeout = 1800;
    std::int32_t disableMethod = 0;  ///< A code of `mapDisableMethod`.
    std::string disableMethodArg = "ps";
    long terminateTime = 120;
    long killTime = 300;
    double cpuThreshold = 95.0;  ///< Percent.
    long cpuTimeout = 259200;
    std::int32_t cpuAction = 0;  ///< 0 none, 1 terminate, 2 notify and terminate.
    long cpuNotifyTimeout = 0;
    std::map<std::string, FilterDef> filters;  ///< By the key of the rule.
    std::list<PriorityDef> priorities;         ///< In the order of the file.
    std::int32_t licenseType = NoLicenses;     ///< A code of `mapLicenseType`.
    std::string licenseFile;
    std::vector<LicenseServerDef> licenseServers;
    std::vector<std::string> centralizedLicenses;
    long loadTime = 0;  ///< When the reading began, in seconds since 1970.
    long loadTimeExtra = 0;
    std::string pollerBin;
    long licenseUpdateInterval = 0;
    bool useLinkTimeout = GlobalUseLinkTimeout;
    long linkTimeout = GlobalLinkTimeout;
    bool caseSensitive = GlobalCaseSensitive;
    std::int32_t requiredMode = 0;         ///< 0 none, 1 any, 2 all, 3 the named ones.
    std::list<std::string> requiredNames;  ///< In lower case.
    bool assumeHidden = false;
    /// Those with a vendor first, the last one of the file first; then those without, in file
    /// order.
    std::list<AvailableReq> availableReqs;
    std::set<std::string> ignoreVendors;
    std::set<std::string> ignoreFeatures;
    std::list<LicenseDef> licenses;  ///< In the order of the file.
    long directLinkPeriod = 0;
    std::map<std::string, std::string> additionalOptions;  ///< As written, by key.
    /// The text of the number that is being read.
    std::string scratchValue;

    // The plain keys seen in each section. The sections of the last two have none.
    std::vector<std::string> executablesItems;
    std::vector<std::string> licensesItems;
    std::vector<std::string> idleDetectionItems;
    std::vector<std::string> cpuOveruseItems;
    std::vector<std::string> optimizationItems;
    std::vector<std::string> filterItems;
    std::vector<std::string> priorityItems;

    std::vector<std::string> sectionsSeen;
    std::string lastRuleSection;
    std::string currentLine;  ///< As read.
    unsigned long nameLine = 0;
    /// The lines of the rules of `executables` that passed.
    std::vector<std::int32_t> ruleLines;
    // Lines of the sections' heads; 0 means that the section is absent.
    std::uint32_t executablesLine = 0;
    std::uint32_t licensesLine = 0;
    std::string licenseTypeText;  ///< As written, valid or not.

    /// The fingerprints of the license files read so far: many rules ask for the same file, and
    /// one file may have many paths.
    std::map<FileIdentity, std::uint64_t> hashes;
    /// The fingerprint of `licenseFile`; none before a rule asks for it.
    std::optional<std::uint64_t> licenseFileHash;
};

}  // namespace Tarvik
