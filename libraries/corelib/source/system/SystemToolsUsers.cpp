// The names of users and groups.
//
// Each program asks for its user's name at its start, and each function of the C library that a
// program links makes its start longer: so the lists of users and groups have a source of their
// own.

#include "libraries/corelib/source/system/HostFacts.h"
#include "libraries/corelib/source/system/SystemDatabase.h"
#include "libraries/corelib/source/system/SystemTools.h"

#include <grp.h>
#include <pwd.h>

namespace TarvikCorelib {

namespace {

// The file first, as for hosts.
template <class Record, class ById>
std::string nameOf(id_t id, const char* path, ById byId, char* Record::*name) {
    std::string known =
        searchFile(path, [&](std::string_view records) { return HostFacts::nameIn(records, id); });
    if (!known.empty()) return known;

    DatabaseRecord<Record> record;
    const bool isKnown = record.read([&](auto... result) { return byId(id, result...); });
    return isKnown ? (*record).*name : "";
}

std::string orUnknown(const std::string& name) {
    return name.empty() ? std::string(HostFacts::unknown) : name;
}

}  // namespace

std::string SystemTools::getUserFromID(uid_t id) {
    return orUnknown(lookupUserName(id));
}

std::string SystemTools::getGroupFromID(gid_t id) {
    return orUnknown(lookupGroupName(id));
}

std::string SystemTools::lookupUserName(uid_t id) {
    return nameOf(id, "/etc/passwd", getpwuid_r, &passwd::pw_name);
}

std::string SystemTools::lookupGroupName(gid_t id) {
    return nameOf(id, "/etc/group", getgrgid_r, &group::gr_name);
}

}  // namespace TarvikCorelib
