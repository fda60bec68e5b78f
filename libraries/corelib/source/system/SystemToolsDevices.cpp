// Addresses and disks.

#include "libraries/corelib/source/system/HostFacts.h"
#include "libraries/corelib/source/system/SystemTools.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

#include <array>
#include <memory>
#include <utility>

namespace TarvikCorelib {

namespace {

// Blank for an address of another family.
std::string addressText(const sockaddr& address) {
    std::array<char, INET6_ADDRSTRLEN> text{};
    const void* bytes = nullptr;
    if (address.sa_family == AF_INET)
        bytes = &reinterpret_cast<const sockaddr_in&>(address).sin_addr;
    if (address.sa_family == AF_INET6)
        bytes = &reinterpret_cast<const sockaddr_in6&>(address).sin6_addr;
    if (bytes == nullptr) return {};
    inet_ntop(address.sa_family, bytes, text.data(), text.size());
    return text.data();
}

// What others can reach this host by.
bool isPublic(const ifaddrs& entry) {
    return entry.ifa_addr != nullptr && (entry.ifa_flags & IFF_UP) != 0 &&
           (entry.ifa_flags & IFF_LOOPBACK) == 0;
}

}  // namespace

std::list<std::string> SystemTools::obtainIP() {
    ifaddrs* first = nullptr;
    if (getifaddrs(&first) != 0) return {};
    const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> all(first, freeifaddrs);

    std::list<std::string> addresses;
    for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next) {
        std::string text = isPublic(*entry) ? addressText(*entry->ifa_addr) : "";
        if (!text.empty()) addresses.push_back(std::move(text));
    }
    return addresses;
}

std::string SystemTools::obtainDiskSerial(const std::string& /*disk*/) {
    return std::string(HostFacts::unknown);
}

}  // namespace TarvikCorelib
