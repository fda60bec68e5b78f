// The sections: their words, their keys, and what reads a line of each.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

namespace Tarvik {

// A key that a section knows, and where its value goes. The member's type says how the value is
// read: as a flag, a duration, a number or a set of names. A key with a rule of its own has a
// reader.
struct HandleValidator::PlainKey {
    using Reader = bool (HandleValidator::*)(std::string& value);
    using Condition = bool (HandleValidator::*)() const;

    std::string_view word;
    std::variant<bool HandleData::*, long HandleData::*, double HandleData::*,
                 std::set<std::string> HandleData::*, Reader>
        target;
    Condition isKnown = nullptr;  // Null: always.
};

// What tells the sections apart. All are read by readSectionLine, so a new section is a row here
// and, if it has rules, a function that reads one.
struct HandleValidator::Section {
    using RuleReader = bool (HandleValidator::*)(std::string_view expression);

    std::string_view word;
    std::span<const PlainKey> keys = {};
    std::vector<std::string> HandleData::*seen = nullptr;  // The plain keys so far.
    RuleReader rule = nullptr;                             // Null: other keys are faults.
    std::string_view ruleSection = {};                     // What the keys of rules are kept under.
    std::uint32_t HandleData::*headLine = nullptr;         // Null: not kept.
    std::string_view block = {};                           // The head of a nested block.
    RuleReader blockRule = nullptr;
};

struct HandleValidator::SectionTable {
    using Self = HandleValidator;

    static constexpr auto ExecutablesKeys = std::to_array<PlainKey>({
        {"multiple", &HandleData::multiple},
        {"use-display", &HandleData::useDisplay},
        {"case-sensitive", &HandleData::caseSensitive},
        {"poll-interval", &HandleData::pollInterval},
        {"update-interval", &HandleData::exeUpdateInterval},
    });

    static constexpr auto LicensesKeys = std::to_array<PlainKey>({
        {"license-type", &Self::readLicenseType},
        {"license-file", &Self::readLicenseFile},
        {"license-server", &Self::readLicenseServer},
        {"centralized-license", &Self::readCentralizedLicenses},
        {"poller-bin", &Self::readPollerBin},
        {"update-interval", &HandleData::licenseUpdateInterval},
        {"use-link-timeout", &HandleData::useLinkTimeout},
        {"link-timeout", &HandleData::linkTimeout},
        {"direct-link-period", &HandleData::directLinkPeriod},
        {"required", &Self::readRequired},
        {"assume-hidden", &Self::readAssumeHidden},
        {"require-available", &Self::readAvailableReq},
        {"require-same-available", &HandleData::requireSameAvailable},
        {"ignore-vendors", &HandleData::ignoreVendors},
        {"ignore-features", &HandleData::ignoreFeatures},
    });

    static constexpr auto IdleDetectionKeys = std::to_array<PlainKey>({
        {"idle-threshold", &HandleData::idleThreshold},
    });

    static constexpr auto OptimizationKeys = std::to_array<PlainKey>({
        {"idle-timeout", &HandleData::idleTimeout},
        {"suspend-timeout", &HandleData::suspendTimeout},
        {"suspend-timeout-action", &Self::readSuspendTimeoutAction},
        {"user-countdown", &HandleData::userCountdown},
        {"resend-timeout", &HandleData::resendTimeout},
        {"lag-time", &HandleData::lagTime},
        {"method", &Self::readMethod},
        {"terminate-time", &HandleData::terminateTime},
        {"kill-time", &HandleData::killTime},
        {"additional-countdown", &Self::readAdditionalOption},
        {"additional-disabled", &Self::readAdditionalOption},
    });

    static constexpr auto CpuOveruseKeys = std::to_array<PlainKey>({
        {"threshold", &HandleData::cpuThreshold},
        {"timeout", &HandleData::cpuTimeout},
        {"action", &Self::readCpuAction},
        // Quirk: known only after the line with the action that notifies.
        {"notify-timeout", &HandleData::cpuNotifyTimeout, &Self::isCpuNotified},
    });

    // In the order of ParseObject, from 1.
    static constexpr auto Rows = std::to_array<Section>({
        {.word = "executables",
         .keys = ExecutablesKeys,
         .seen = &HandleData::executablesItems,
         .rule = &Self::executablesRule,
         .ruleSection = "Executables",
         .headLine = &HandleData::executablesLine},
        {.word = "licenses",
         .keys = LicensesKeys,
         .seen = &HandleData::licensesItems,
         .rule = &Self::licensesRule,
         .ruleSection = "Licenses",
         .headLine = &HandleData::licensesLine},
        {.word = "idle-detection",
         .keys = IdleDetectionKeys,
         .seen = &HandleData::idleDetectionItems,
         .block = CountersWord,
         .blockRule = &Self::counterRule},
        {.word = "optimization", .keys = OptimizationKeys, .seen = &HandleData::optimizationItems},
        {.word = "cpu-overuse", .keys = CpuOveruseKeys, .seen = &HandleData::cpuOveruseItems},
        {.word = "filter", .rule = &Self::filterRule, .ruleSection = "Filter"},
        {.word = "priorities", .rule = &Self::prioritiesRule, .ruleSection = "Priorities"},
    });
    static_assert(Rows.size() == Priorities);
};

HandleValidator::ParseObject HandleValidator::getParseObject(std::string& word) {
    return findSection(word);
}

HandleValidator::ParseObject HandleValidator::findSection(std::string_view word) {
    constexpr const auto& rows = SectionTable::Rows;
    const auto* const row = std::find_if(
        rows.begin(), rows.end(), [&word](const Section& section) { return section.word == word; });
    if (row == rows.end()) return NoObject;
    if (row->headLine != nullptr) this->*row->headLine = static_cast<std::uint32_t>(lineNumber);
    std::string seen(word);
    checkMultipleSectionItems(sectionsSeen, seen);
    return static_cast<ParseObject>(std::distance(rows.begin(), row) + 1);
}

bool HandleValidator::parseObjectChecker(ParseObject& object, std::string& line) {
    return parseSection(object, line);
}

bool HandleValidator::parseExecutables(std::string& line) {
    return parseSection(Executables, line);
}

bool HandleValidator::parseLicenses(std::string& line) {
    return parseSection(Licenses, line);
}

bool HandleValidator::parseIdleDetection(std::string& line) {
    return parseSection(IdleDetection, line);
}

bool HandleValidator::parseOptimization(std::string& line) {
    return parseSection(Optimization, line);
}

bool HandleValidator::parseCPUOveruse(std::string& line) {
    return parseSection(CpuOveruse, line);
}

bool HandleValidator::parseFilter(std::string& line) {
    return parseSection(Filter, line);
}

bool HandleValidator::parsePriorities(std::string& line) {
    return parseSection(Priorities, line);
}

bool HandleValidator::parseSection(ParseObject object, std::string& line) {
    std::string_view rest = line;
    const bool good = readSectionLine(object, rest);
    line = std::string(rest);
    return good;
}

// line = block head | key "=" value, where the key is a plain key or, in a section with rules, that
// of a rule. In a nested block each key belongs to the block's rule. In any other position of the
// line machine the value is not looked at.
bool HandleValidator::readSectionLine(ParseObject object, std::string_view& line) {
    if (object <= NoObject || object > Priorities) return false;
    const Section& section = SectionTable::Rows[static_cast<std::size_t>(object) - 1];
    if (section.blockRule != nullptr && line == section.block) {
        // Quirk: a head inside the block counts too and leads the line machine past its last state.
        // Quirk: a second block is no repetition, but its keys are.
        ++state;
        return true;
    }
    if (!takeKey(line)) return report(messages::fill(messages::invalidElement, {line}));
    if (state == InSubsection && section.blockRule != nullptr) {
        return (this->*section.blockRule)(line);
    }
    if (state != InSection) return true;
    if (const PlainKey* const key = findKey(section)) {
        checkMultipleSectionItems(this->*section.seen, currentKey);
        plainValue = line;
        const bool good = readPlainKey(*key, plainValue);
        line = plainValue;
        return good;
    }
    if (section.rule == nullptr) return reportUnknownKey(section.word);
    return startRule(section) && (this->*section.rule)(line);
}

const HandleValidator::PlainKey* HandleValidator::findKey(const Section& section) const {
    const auto key = std::find_if(section.keys.begin(), section.keys.end(),
                                  [this](const PlainKey& row) { return row.word == currentKey; });
    if (key == section.keys.end()) return nullptr;
    return key->isKnown == nullptr || (this->*key->isKnown)() ? &*key : nullptr;
}

bool HandleValidator::readPlainKey(const PlainKey& key, std::string& value) {
    const auto read = [&](auto target) {
        using Target = decltype(target);
        if constexpr (std::is_same_v<Target, PlainKey::Reader>) {
            return (this->*target)(value);
        } else if constexpr (std::is_same_v<Target, bool HandleData::*>) {
            return trueOrFalse(value, this->*target);
        } else if constexpr (std::is_same_v<Target, double HandleData::*>) {
            return readNumber(value, this->*target);
        } else if constexpr (std::is_same_v<Target, long HandleData::*>) {
            // A bad duration is reported and counts as 0.
            this->*target = getHMS(value);
            return true;
        } else {
            for (std::string& name : namesIn(value)) {
                (this->*target).insert(std::move(name));
            }
            return true;
        }
    };
    return std::visit(read, key.target);
}

// Quirk: the key of a rule that is rejected later counts as seen.
bool HandleValidator::startRule(const Section& section) {
    if (!checkInvalidRule(currentKey)) return false;
    noteRuleKey(section.ruleSection, currentKey);
    return true;
}

bool HandleValidator::reportUnknownKey(std::string_view section) {
    return report(messages::fill(messages::keyNotSupported, {currentKey, section}));
}

}  // namespace Tarvik
