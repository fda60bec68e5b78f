// Gathers the facts about the host.

#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/system/HostFacts.h"
#include "libraries/corelib/source/system/SystemDatabase.h"
#include "libraries/corelib/source/system/SystemTools.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"

#include <netdb.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <bit>

// No step here asks for a fact by `obtain`: while facts are gathered, that would gather them again.

namespace TarvikCorelib {

namespace {

using Facts = std::map<SystemTools::DetailCode, std::string>;

constexpr const char* osBits = "64";

std::string askResolver(const std::string& machine) {
    DatabaseRecord<hostent> host;
    const bool isKnown =
        host.read([&](hostent* record, char* buffer, std::size_t size, hostent** found) {
            int error = 0;
            return gethostbyname_r(machine.c_str(), record, buffer, size, found, &error);
        });
    return isKnown && host->h_name != nullptr ? host->h_name : "";
}

// The file first, since a question to the resolver costs thirty calls of the system.
std::string findOfficialName(const std::string& machine) {
    if (machine.empty()) return {};
    std::string official = searchFile("/etc/hosts", [&](std::string_view hosts) {
        return HostFacts::officialNameIn(hosts, machine);
    });
    return official.empty() ? askResolver(machine) : official;
}

// Asked once a process, because a resolver without an answer takes seconds to say so.
const std::string& officialNameOf(const std::string& machine) {
    struct Answer {
        std::string machine;
        std::string official;
    };
    static NoDestructor<Answer> last;
    if (last->machine != machine) *last = {machine, findOfficialName(machine)};
    return last->official;
}

std::string obtainOs(std::string name) {
    return StringTools::lower(name).empty() ? std::string(HostFacts::unknown) : name;
}

// A launcher that starts several instances on one host names them all apart in this way.
void processHostName(std::string& hostName) {
    std::string given;
    if (!EnvTools::get("tarvik_hostname", given) || given.empty()) return;
    const auto instance = HostFacts::instanceIn(given, hostName);
    if (instance) SystemTools::setAppInstance(*instance);
    hostName = given;
}

void obtainSystemInfo(Facts& facts) {
    utsname names{};  // Blank texts if the call fails.
    uname(&names);
    const std::string node = std::begin(names.nodename);
    const std::string machine = node.substr(0, node.find('.'));
    facts[SystemTools::DetailArchitecture] = std::begin(names.machine);
    facts[SystemTools::DetailMachineName] = machine;
    facts[SystemTools::DetailOs] = obtainOs(std::begin(names.sysname));
    facts[SystemTools::DetailOsVersion] = HostFacts::versionOf(std::begin(names.release));
    const std::string domain = HostFacts::domainOf(officialNameOf(machine));
    facts[SystemTools::DetailDomain] = domain;
    std::string& hostName = facts[SystemTools::DetailHostName];
    hostName = HostFacts::hostNameOf(node, domain);
    processHostName(hostName);
    facts[SystemTools::DetailBlank];
}

// The variable as it stands, with its encoding: nothing here reads the process locale.
std::string obtainOsLanguage() {
    std::string language;
    return EnvTools::get("LANG", language) && language != "C" ? language : "en_US.UTF-8";
}

std::string obtainDisplay() {
    std::string display;
    return EnvTools::get("DISPLAY", display) ? display : "0.0";
}

}  // namespace

// Into a table of its own first: a failure on the way leaves nothing half gathered.
void SystemTools::obtainDetails() {
    Facts facts;
    obtainSystemInfo(facts);
    facts[DetailOsBits] = osBits;
    facts[DetailPlatform] = std::string("linux-") + osBits;
    const std::string language = obtainOsLanguage();
    facts[DetailOsLanguage] = language;
    facts[DetailKeyboardLanguage] = HostFacts::keyboardOf(language);
    facts[DetailKeyboardType] = "[undef]";
    facts[DetailUserName] = getUserFromID(getuid());
    facts[DetailDisplay] = obtainDisplay();
    facts[DetailByteOrder] = std::endian::native == std::endian::little ? "little" : "big";

    facts.merge(Details());  // What the application has set.
    Details().swap(facts);
    DetailsObtained = true;
}

}  // namespace TarvikCorelib
