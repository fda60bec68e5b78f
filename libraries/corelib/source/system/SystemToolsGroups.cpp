// Which users and groups there are, and who is in which.

#include "libraries/corelib/source/system/SystemDatabase.h"
#include "libraries/corelib/source/system/SystemTools.h"

#include <grp.h>
#include <pwd.h>

#include <vector>

namespace TarvikCorelib {

namespace {

// The C library has one position in each database for the whole process.
constinit NoDestructor<ThreadLock> walkLock;

template <class Record>
struct Database {
    void (*open)();
    int (*next)(Record*, char*, std::size_t, Record**);
    void (*close)();
};

constexpr Database<passwd> users{setpwent, getpwent_r, endpwent};
constexpr Database<group> groups{setgrent, getgrent_r, endgrent};

// All records, one after the other.
template <class Record>
class Walk {
public:
    explicit Walk(const Database<Record>& database) : database(database) { database.open(); }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;
    ~Walk() { database.close(); }

    // The next one, or null at the end.
    const Record* next() { return current.read(database.next) ? &*current : nullptr; }

private:
    const ThreadLockGuard held{*walkLock};
    const Database<Record>& database;
    DatabaseRecord<Record> current;
};

template <class Record, class ByName>
bool findRecord(ByName byName, const std::string& name, DatabaseRecord<Record>& record) {
    return record.read([&](auto... result) { return byName(name.c_str(), result...); });
}

// `first` is among them.
std::vector<gid_t> groupIds(const std::string& user, gid_t first) {
    std::vector<gid_t> ids(64);
    int count = static_cast<int>(ids.size());
    while (getgrouplist(user.c_str(), first, ids.data(), &count) < 0) {
        ids.resize(2 * ids.size());
        count = static_cast<int>(ids.size());
    }
    ids.resize(static_cast<std::size_t>(count));
    return ids;
}

}  // namespace

std::set<std::string> SystemTools::obtainGroups() {
    std::set<std::string> names;
    Walk all(groups);
    while (const ::group* next = all.next())
        names.insert(next->gr_name);
    return names;
}

std::set<std::string> SystemTools::obtainGroupUsers(const std::string& group) {
    DatabaseRecord<::group> found;
    if (!findRecord(getgrnam_r, group, found)) return {};

    // The list of a group leaves out those whose first group it is.
    std::set<std::string> names;
    for (char** member = found->gr_mem; *member != nullptr; ++member)
        names.insert(*member);
    Walk all(users);
    while (const passwd* next = all.next()) {
        if (next->pw_gid == found->gr_gid) names.insert(next->pw_name);
    }
    return names;
}

std::set<std::string> SystemTools::obtainUserGroups(const std::string& user) {
    DatabaseRecord<passwd> found;
    if (!findRecord(getpwnam_r, user, found)) return {};

    std::set<std::string> names;
    for (const gid_t id : groupIds(user, found->pw_gid))
        names.insert(getGroupFromID(id));
    return names;
}

}  // namespace TarvikCorelib
