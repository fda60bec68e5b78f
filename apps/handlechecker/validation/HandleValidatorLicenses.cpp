// The section `licenses`: what the application draws from its license manager.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"
#include "shared/library/common/FileOps.h"
#include "shared/library/common/FileUtils.h"
#include "shared/library/common/StringTools.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace Tarvik {

namespace {

// None for a path that cannot be looked up.
std::optional<FileIdentity> identityOf(const std::string& path) {
    struct stat info = {};
    if (::stat(path.c_str(), &info) != 0) return std::nullopt;
    return FileIdentity{.device = info.st_dev,
                        .inode = info.st_ino,
                        .size = info.st_size,
                        .changed = info.st_ctim.tv_sec,
                        .changedFraction = info.st_ctim.tv_nsec};
}

// None for a file that cannot be read. Block by block, so that the file may be larger than the
// memory. An empty file has the hash 0, as if none was asked for.
std::optional<std::uint64_t> readHash(const std::string& path) {
    constexpr std::uint64_t blockSize = 65536;
    BasicFile input;
    if (!input.open(path, AccessRead)) return std::nullopt;
    std::uint64_t hash = 0;
    std::string block;
    for (std::uint64_t left = FileUtils::getFileSize(path); left > 0; left -= block.size()) {
        if (!input.read(block, static_cast<long long>(std::min(left, blockSize)))) {
            return std::nullopt;
        }
        // Some files of the system are shorter than their size.
        if (block.empty()) break;
        hash = StringTools::hashLarge(block, hash);
    }
    return hash;
}

}  // namespace

// Quirk: the type affects only the lines after it. Under "none" a license file, a poller and the
// required names are ignored.
bool HandleValidator::readLicenseType(std::string& value) {
    licenseTypeText = value;
    const int type = mapLicenseType(value);
    if (type == UnknownLicenseType) {
        return report(messages::fill(messages::invalidValue, {value}));
    }
    licenseType = type;
    return true;
}

bool HandleValidator::readLicenseFile(std::string& value) {
    if (value.empty()) return true;
    scratchValue = value;
    if (licenseType == NoLicenses) return true;
    licenseFileHash.reset();
    return storePath(value, messages::licenseFileMissing, licenseFile);
}

bool HandleValidator::readPollerBin(std::string& value) {
    if (licenseType == NoLicenses || value.empty()) return true;
    return storePath(value, messages::pollerBinMissing, pollerBin);
}

bool HandleValidator::storePath(const std::string& path,
                                const TarvikTables::MessageText<1>& missing, std::string& out) {
    if (!skipFileChecks && !FileOps::exists(path)) return report(messages::fill(missing, {path}));
    out = path;
    return true;
}

// [port"@"]host. The port is cut to 16 bits; without one it is 0.
bool HandleValidator::readLicenseServer(std::string& value) {
    if (value.empty()) return true;
    LicenseServerDef server;
    if (!strToIntValidator(StringTools::split(value, '@'), server.port)) return false;
    server.host = value;
    licenseServers.push_back(std::move(server));
    return true;
}

// Quirk: the only list that a second line replaces.
// Quirk: a part of blanks other than spaces is kept, as an empty one.
bool HandleValidator::readCentralizedLicenses(std::string& value) {
    StringTools::removeChar(value, ' ');
    splitAtCommas(value, centralizedLicenses);
    return true;
}

// Quirk: the names of earlier lines are kept, whatever the mode becomes.
bool HandleValidator::readRequired(std::string& value) {
    if (value.empty() || licenseType == NoLicenses) {
        requiredMode = 0;
    } else if (value == "any") {
        requiredMode = 1;
    } else if (value == "all") {
        requiredMode = 2;
    } else {
        requiredMode = 3;
        for (std::string& name : namesIn(value)) {
            StringTools::makeLower(name);
            requiredNames.push_back(std::move(name));
        }
    }
    return true;
}

// Quirk: not a boolean like the others: "true", "false" and an empty value are faults.
bool HandleValidator::readAssumeHidden(std::string& value) {
    if (value != "yes" && value != "no") {
        return report(messages::fill(messages::invalidValue, {value}));
    }
    assumeHidden = value == "yes";
    return true;
}

// [vendor[":"feature]"="]number["%"]
bool HandleValidator::readAvailableReq(std::string& value) {
    AvailableReq requirement;
    if (StringTools::patternMatch("*=*", value)) {
        requirement.feature = StringTools::split(value, '=');
        // Quirk: a single name is the vendor's.
        requirement.vendor = StringTools::split(requirement.feature, ':');
    }
    if (StringTools::patternMatch("*%", value)) {
        requirement.percent = true;
        value.pop_back();
    }
    scratchValue = value;
    if (!strToIntValidator(scratchValue, requirement.count)) return false;
    // Quirk: those with a vendor come first, in reverse order.
    const auto place = requirement.vendor.empty() ? availableReqs.end() : availableReqs.begin();
    availableReqs.insert(place, std::move(requirement));
    return true;
}

bool HandleValidator::licensesRule(std::string_view value) {
    enum Parameter : std::size_t { LicenseFile, Vendor, Feature, Version, Certain };
    static constexpr auto names = std::to_array<std::string_view>(
        {"license-file", "vendor", "feature", "version", "certain"});
    static constexpr RuleForm form = {.failure = messages::invalidValue,
                                      .names = ParameterNames(names)};
    if (!readParameters(form, value)) return false;

    const std::string_view hashWanted = expression.textOf(LicenseFile);
    const std::string_view vendor = expression.textOf(Vendor);
    const std::string_view feature = expression.textOf(Feature);
    const std::string_view version = expression.textOf(Version);
    const std::string_view certain = expression.textOf(Certain);
    // Quirk: any text in any parameter is enough: "certain=no" or "license-file=Yes" alone pass.
    if (licenseType != NoLicenses && hashWanted.empty() && vendor.empty() && feature.empty() &&
        version.empty() && certain.empty()) {
        return report(messages::fill(messages::blankLicense, {licenseTypeText}));
    }
    // Quirk: a bad value is reported, but the rule is kept.
    bool isCertain = false;
    readFlag(certain, isCertain);
    std::uint64_t hash = 0;
    if ((hashWanted == "yes" || hashWanted == "true") && !hashLicenseFile(value, hash))
        return false;

    LicenseDef& rule = licenses.emplace_back();
    rule.fileHash = hash;
    rule.vendor = vendor;
    rule.feature = feature;
    rule.version = version;
    rule.certain = isCertain;
    StringTools::makeLower(rule.vendor);
    StringTools::makeLower(rule.feature);
    return true;
}

// Quirk: done under any type, and also when the checks for files are off.
// Quirk: the messages show the whole expression of the rule, not its key.
bool HandleValidator::hashLicenseFile(std::string_view value, std::uint64_t& hash) {
    if (licenseFile.empty()) return report(messages::fill(messages::noLicenseFileYet, {value}));
    if (!licenseFileHash) licenseFileHash = hashOf(licenseFile);
    if (!licenseFileHash) {
        return report(messages::fill(messages::licenseFileUnreadable, {licenseFile, value}));
    }
    hash = *licenseFileHash;
    return true;
}

// A file is known by its identity, not by the text of its path: another spelling of a file that was
// read costs a look at the file system, but no reading.
std::optional<std::uint64_t> HandleValidator::hashOf(const std::string& path) {
    const std::optional<FileIdentity> identity = identityOf(path);
    if (identity) {
        const auto known = hashes.find(*identity);
        if (known != hashes.end()) return known->second;
    }
    const std::optional<std::uint64_t> hash = readHash(path);
    if (identity && hash) hashes.emplace(*identity, *hash);
    return hash;
}

}  // namespace Tarvik
