#include "libraries/corelib/source/system/HostFacts.h"

#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/source/text/StringToolsSplit.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace TarvikCorelib {

namespace {

constexpr std::string_view blanks = " \t\r\v\f";

// The head up to the delimiter, which leaves the text, as the delimiter does.
std::string_view takeUpTo(std::string_view& text, char delimiter) {
    const std::size_t end = std::min(text.find(delimiter), text.size());
    const std::string_view head = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return head;
}

std::string_view takeWord(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    const std::string_view word = line.substr(0, line.find_first_of(blanks));
    line.remove_prefix(word.size());
    return word;
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isSameHost(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return lowered(a) == lowered(b); });
}

// The resolver passes over all other lines when it is asked for an IPv4 address.
bool standsForIpv4(const std::string& address) {
    in_addr ipv4{};
    if (inet_pton(AF_INET, address.c_str(), &ipv4) == 1) return true;
    in6_addr ipv6{};
    return inet_pton(AF_INET6, address.c_str(), &ipv6) == 1 &&
           (IN6_IS_ADDR_LOOPBACK(&ipv6) || IN6_IS_ADDR_V4MAPPED(&ipv6));
}

std::string_view officialNameOf(std::string_view line, std::string_view name) {
    const std::string_view address = takeWord(line);
    const std::string_view official = takeWord(line);
    for (std::string_view word = official; !word.empty(); word = takeWord(line)) {
        if (!isSameHost(word, name)) continue;
        return standsForIpv4(std::string(address)) ? official : std::string_view();
    }
    return {};
}

// Lines of notes, and those that name another database.
bool isRecord(std::string_view name) {
    return !name.empty() && std::string_view("#+-").find(name.front()) == std::string_view::npos;
}

}  // namespace

std::string_view HostFacts::officialNameIn(std::string_view hosts, std::string_view name) {
    while (!hosts.empty()) {
        std::string_view line = takeUpTo(hosts, '\n');
        const std::string_view official = officialNameOf(takeUpTo(line, '#'), name);
        if (!official.empty()) return official;
    }
    return {};
}

std::string_view HostFacts::nameIn(std::string_view database, id_t id) {
    while (!database.empty()) {
        std::string_view line = takeUpTo(database, '\n');
        const std::string_view name = takeUpTo(line, ':');
        if (!isRecord(name)) continue;

        takeUpTo(line, ':');
        const std::string_view number = takeUpTo(line, ':');
        id_t found = 0;
        const auto [end, error] =
            std::from_chars(number.data(), number.data() + number.size(), found);
        if (error == std::errc() && end == number.data() + number.size() && found == id)
            return name;
    }
    return {};
}

std::string HostFacts::domainOf(std::string_view officialName) {
    const bool hasDomain = officialName.find('.') != std::string_view::npos;
    if (!officialName.empty() && !hasDomain) return "[nodomain]";
    takeUpTo(officialName, '.');
    return std::string(officialName.empty() ? unknown : officialName);
}

std::string HostFacts::hostNameOf(std::string_view node, std::string_view domain) {
    std::string name(node);
    const bool isWhole = node.empty() || node.find('.') != std::string_view::npos;
    if (!isWhole && !domain.empty() && domain != unknown) name.append(".").append(domain);
    return name;
}

std::string HostFacts::versionOf(std::string_view release) {
    std::string version;
    for (std::string& part : StringTools::splitVector(takeUpTo(release, '-'), '.', 0, true))
        version += StringTools::padLeft(part, 2, '0');
    return version;
}

std::string HostFacts::keyboardOf(std::string_view language) {
    std::string keyboard(language.substr(0, 2));
    return keyboard.append(":").append(language.substr(3, 2));
}

std::optional<std::string> HostFacts::instanceIn(std::string_view given, std::string_view host) {
    if (given.starts_with(host)) {
        given.remove_prefix(host.size());
        return std::string(given.substr(given.empty() ? 0 : 1));
    }
    if (given.find('#') == std::string_view::npos) return std::nullopt;
    takeUpTo(given, '#');
    return std::string(given);
}

}  // namespace TarvikCorelib
