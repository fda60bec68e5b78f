#include "libraries/corelib/source/system/DirWalk.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdio>

namespace TarvikCorelib {

namespace {

constexpr const char* asideSuffix = "._tmpmove_";

int renameEntry(const DirPlace& from, const DirPlace& to, unsigned int flags) {
    const int result =
        renameat2(from.dir.get(), from.name.c_str(), to.dir.get(), to.name.c_str(), flags);
    return result == 0 ? 0 : errno;
}

// Not all file systems know more than the plain call.
bool isUnknown(int error) {
    return error == EINVAL || error == ENOSYS;
}

int removeOld(const DirPlace& place, std::string& left) {
    const WalkFailures failures = removeTree(place.dir.get(), place.name.c_str(), false);
    if (failures.count > 0) left = place.name;
    return failures.error;
}

// The old one steps aside, and back if the new one cannot follow.
int takePlaceBySteps(const DirPlace& from, const DirPlace& to, std::string& left) {
    DirPlace aside{Descriptor(fcntl(to.dir.get(), F_DUPFD_CLOEXEC, 0)), to.name + asideSuffix};
    if (!aside.dir.isOpen()) return errno;
    if (const int error = renameToNewPlace(to, aside); error != 0) return error;
    if (const int error = renameToNewPlace(from, to); error != 0) {
        renameToNewPlace(aside, to);
        return error;
    }
    return removeOld(aside, left);
}

}  // namespace

int renameToNewPlace(const DirPlace& from, const DirPlace& to) {
    const int error = renameEntry(from, to, RENAME_NOREPLACE);
    if (!isUnknown(error)) return error;
    EntryKind kind = EntryKind::Other;
    if (kindOf(to.dir.get(), to.name.c_str(), kind) == 0) return EEXIST;
    return renameEntry(from, to, 0);
}

int takePlace(const DirPlace& from, const DirPlace& to, std::string& left) {
    left.clear();
    const int error = renameEntry(from, to, RENAME_EXCHANGE);
    if (error == 0) return removeOld(from, left);
    if (isUnknown(error)) return takePlaceBySteps(from, to, left);
    return error;
}

}  // namespace TarvikCorelib
