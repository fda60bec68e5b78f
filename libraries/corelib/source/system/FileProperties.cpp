#include "libraries/corelib/source/system/FileProperties.h"

#include "libraries/corelib/source/system/Descriptor.h"
#include "libraries/corelib/source/system/FileNames.h"
#include "libraries/corelib/source/system/FilePathText.h"
#include "libraries/corelib/source/system/PathResolution.h"

#include <fcntl.h>
#include <mntent.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

namespace TarvikCorelib {

namespace {

using Status = struct stat64;

template <class Char>
std::optional<Status> statusOf(const StringTools::Text<Char>& path, int flags = 0) {
    Status status{};
    if (fstatat64(AT_FDCWD, systemName(path).c_str(), &status, flags) != 0) return std::nullopt;
    return status;
}

bool isOfKind(const std::optional<Status>& status, mode_t kind) {
    return status && (status->st_mode & S_IFMT) == kind;
}

// File systems hold seconds that no count of milliseconds could.
DateTime instant(std::int64_t seconds, std::int64_t nanoseconds) {
    constexpr std::int64_t most = LLONG_MAX / millisecondsPerSecond / 2;
    const std::int64_t count = static_cast<std::int64_t>(unixEpoch) +
                               std::clamp(seconds, -most, most) * millisecondsPerSecond +
                               nanoseconds / 1'000'000;
    return DateTime(static_cast<TimeType>(std::max<std::int64_t>(count, 0)));
}

timespec systemTime(const DateTime& time) {
    const auto count = static_cast<std::int64_t>(time.time() - unixEpoch);
    const std::int64_t rest = count % millisecondsPerSecond;
    const bool isBefore = rest < 0;
    return {.tv_sec = count / millisecondsPerSecond - (isBefore ? 1 : 0),
            .tv_nsec = (rest + (isBefore ? millisecondsPerSecond : 0)) * 1'000'000};
}

template <class Char>
bool setTimes(const StringTools::Text<Char>& path, timespec accessed, timespec modified) {
    const std::array<timespec, 2> times{accessed, modified};
    return utimensat(AT_FDCWD, systemName(path).c_str(), times.data(), 0) == 0;
}

constexpr timespec asItIs{.tv_sec = 0, .tv_nsec = UTIME_OMIT};
constexpr timespec now{.tv_sec = 0, .tv_nsec = UTIME_NOW};

template <class Char>
bool changeMode(const StringTools::Text<Char>& path, unsigned cleared, unsigned set) {
    constexpr unsigned all = 07777;
    const auto status = statusOf<Char>(path);
    if (!status) return false;
    return chmod(systemName(path).c_str(), ((status->st_mode & ~cleared) | set) & all) == 0;
}

// A path that is no name for the system has become empty, and stays as it is.
template <class Char>
bool assignName(StringTools::Text<Char>& path, std::string&& name) {
    auto text = textAs<Char>(std::move(name));
    if (text.empty() || text == path) return false;
    path = std::move(text);
    return true;
}

}  // namespace

template <class Char>
bool FileProperties<Char>::isLink(const Text& path) {
    return isOfKind(statusOf<Char>(path, AT_SYMLINK_NOFOLLOW), S_IFLNK);
}

template <class Char>
bool FileProperties<Char>::createLink(const Text& target, const Text& path) {
    return symlink(systemName(target).c_str(), systemName(path).c_str()) == 0;
}

template <class Char>
bool FileProperties<Char>::isFile(const Text& path) {
    return isOfKind(statusOf<Char>(path), S_IFREG);
}

template <class Char>
bool FileProperties<Char>::isDir(const Text& path) {
    return isOfKind(statusOf<Char>(path), S_IFDIR);
}

template <class Char>
bool FileProperties<Char>::exists(const Text& path) {
    return statusOf<Char>(path, AT_SYMLINK_NOFOLLOW).has_value();
}

template <class Char>
std::int64_t FileProperties<Char>::size(const Text& path) {
    const auto status = statusOf<Char>(path);
    return status ? status->st_size : -1;
}

template <class Char>
bool FileProperties<Char>::isAllowed(const Text& path, int permissions) {
    return faccessat(AT_FDCWD, systemName(path).c_str(), permissions, AT_EACCESS) == 0;
}

template <class Char>
bool FileProperties<Char>::setPermissions(const Text& path, unsigned permissions) {
    return changeMode<Char>(path, 0777, permissions & 0777);
}

template <class Char>
bool FileProperties<Char>::checkStatus(const Text& path, unsigned status) {
    const auto found = statusOf<Char>(path);
    return found && (found->st_mode & status) == status;
}

template <class Char>
bool FileProperties<Char>::setStatus(const Text& path, unsigned status) {
    return changeMode<Char>(path, 0, status);
}

template <class Char>
DateTime FileProperties<Char>::firstCreated(const Text& path) {
    struct statx status {};
    const int failed = statx(AT_FDCWD, systemName(path).c_str(), 0, STATX_BTIME, &status);
    if (failed != 0 || (status.stx_mask & STATX_BTIME) == 0) return DateTime(0);
    return instant(status.stx_btime.tv_sec, status.stx_btime.tv_nsec);
}

template <class Char>
DateTime FileProperties<Char>::lastAccessed(const Text& path) {
    const auto status = statusOf<Char>(path);
    return status ? instant(status->st_atim.tv_sec, status->st_atim.tv_nsec) : DateTime(0);
}

template <class Char>
DateTime FileProperties<Char>::lastModified(const Text& path) {
    const auto status = statusOf<Char>(path);
    return status ? instant(status->st_mtim.tv_sec, status->st_mtim.tv_nsec) : DateTime(0);
}

template <class Char>
bool FileProperties<Char>::setFirstCreated(const Text& /*path*/, const DateTime& /*time*/) {
    return false;
}

template <class Char>
bool FileProperties<Char>::setLastAccessed(const Text& path, const DateTime& time) {
    return setTimes<Char>(path, systemTime(time), asItIs);
}

template <class Char>
bool FileProperties<Char>::setLastModified(const Text& path, const DateTime& time) {
    return setTimes<Char>(path, asItIs, systemTime(time));
}

template <class Char>
bool FileProperties<Char>::touch(const Text& path) {
    return setTimes<Char>(path, now, now) || createFile(path);
}

template <class Char>
bool FileProperties<Char>::createFile(const Text& path) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    Descriptor file(open(systemName(path).c_str(), flags, 0666));
    return file.isOpen() && file.close() == 0;
}

template <class Char>
std::int64_t FileProperties<Char>::freeSpace(const Text& path) {
    struct statvfs64 status {};
    if (statvfs64(systemName(path).c_str(), &status) != 0) return -1;
    return static_cast<std::int64_t>(status.f_bavail * status.f_frsize);
}

template <class Char>
auto FileProperties<Char>::getFileSystems() -> std::set<Text> {
    std::set<std::string> mountPoints;
    const std::unique_ptr<FILE, int (*)(FILE*)> table(setmntent("/proc/self/mounts", "re"),
                                                      endmntent);
    if (!table) return {};
    mntent entry{};
    std::array<char, 4 * PATH_MAX> buffer{};
    while (getmntent_r(table.get(), &entry, buffer.data(), int{buffer.size()}) != nullptr)
        mountPoints.insert(entry.mnt_dir);
    return textsAs<Char>(std::move(mountPoints));
}

template <class Char>
auto FileProperties<Char>::getCurrentDir() -> Text {
    const std::unique_ptr<char, void (*)(void*)> name(getcwd(nullptr, 0), std::free);
    return name ? textAs<Char>(name.get()) : Text();
}

template <class Char>
bool FileProperties<Char>::setCurrentDir(const Text& path) {
    return chdir(systemName(path).c_str()) == 0;
}

template <class Char>
bool FileProperties<Char>::expand(Text& path) {
    return assignName<Char>(path, expandedPath(systemName(path)));
}

template <class Char>
bool FileProperties<Char>::mapSymbolic(Text& path) {
    return assignName<Char>(path, tracedPath(systemName(path)));
}

template <class Char>
auto FileProperties<Char>::processPath(const Text& path, int flags) -> Text {
    Text result = path;
    FilePathText<Char>::correctSeparation(result);
    if ((flags & ProcessClean) != 0) FilePathText<Char>::cleanPath(result);
    if ((flags & ProcessContract) != 0) FilePathText<Char>::contractPath(result);
    if ((flags & ProcessExpand) != 0) expand(result);
    if ((flags & ProcessTrace) != 0) mapSymbolic(result);
    return result;
}

template class FileProperties<char>;
template class FileProperties<wchar_t>;

}  // namespace TarvikCorelib
