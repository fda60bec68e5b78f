/// What the texts of the system say about host and users: rules alone, which ask nobody.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>

namespace TarvikCorelib::HostFacts {

inline constexpr std::string_view unknown = "[unknown]";

/// The first name in the first line of a text like /etc/hosts that has an IPv4 address and `name`,
/// in any case, among its names; blank without such a line. The IPv6 addresses that stand for IPv4
/// ones will do, too: the loopback and the mapped ones.
std::string_view officialNameIn(std::string_view hosts, std::string_view name);

/// The name with this number in a text like /etc/passwd or /etc/group, or a blank one.
std::string_view nameIn(std::string_view database, id_t id);

/// What follows the first "." of a host's official name. "[nodomain]" if it has none, "[unknown]"
/// if there is nothing behind it or the name is blank.
std::string domainOf(std::string_view officialName);

/// The node with its domain, unless it has one already or that is not known.
std::string hostNameOf(std::string_view node, std::string_view domain);

/// Two digits for each part of a release such as "2.6.18-92", up to the "-": "020618".
std::string versionOf(std::string_view release);

/// The keyboard of a language such as "en_US.UTF-8": "en:US". Throws `std::out_of_range` for fewer
/// than three characters.
std::string keyboardOf(std::string_view language);

/// The instance that the name given to a host contains, whose own name is `host`: all behind that
/// name, or behind the first "#" of another one. None if there is no "#" either.
/// Quirk: the first character behind the host's own name goes, whatever it is, so that "-", "_" and
/// "#" may stand there: a letter goes as well.
std::optional<std::string> instanceIn(std::string_view given, std::string_view host);

}  // namespace TarvikCorelib::HostFacts
