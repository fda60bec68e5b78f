// Permissions, times and links.

#include "libraries/corelib/source/system/FileReplacement.h"
#include "libraries/corelib/source/time/TimeUnits.h"
#include "libraries/filelib/source/directory/FileFailures.h"
#include "libraries/filelib/source/directory/FileTools.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>

namespace TarvikFilelib {

using TarvikCorelib::DateTime;

namespace {

constexpr mode_t allBits = 07777;
constexpr int digitMask = 7;
constexpr int statusDigit = 3;  // Above those of the three groups.

struct stat propertiesOf(const std::string& path, const char* operation) {
    requireName(path, "path", operation);
    struct stat found {};
    if (stat(path.c_str(), &found) != 0) throwRefusal(errno, path, operation);
    return found;
}

unsigned int shiftOf(int digit) {
    return 3U * static_cast<unsigned int>(digit);
}

// A mode is four octal digits.
int digitOf(const std::string& path, int digit, const char* operation) {
    return static_cast<int>(propertiesOf(path, operation).st_mode >> shiftOf(digit)) & digitMask;
}

void changeDigit(const std::string& path, int digit, int set, int cleared, const char* operation) {
    const mode_t mode = propertiesOf(path, operation).st_mode & allBits;
    const auto bits = [digit](int value) {
        return static_cast<mode_t>(value & digitMask) << shiftOf(digit);
    };
    if (chmod(path.c_str(), (mode | bits(set)) & ~bits(cleared)) != 0)
        throwRefusal(errno, path, operation);
}

DateTime toDateTime(long long seconds, long long nanoseconds) {
    constexpr long long nanosecondsPerMillisecond = 1'000'000;
    const long long milliseconds =
        seconds * TarvikCorelib::millisecondsPerSecond + nanoseconds / nanosecondsPerMillisecond;
    return DateTime(TarvikCorelib::unixEpoch + static_cast<TarvikCorelib::TimeType>(milliseconds));
}

timespec toTimespec(const DateTime& time) {
    constexpr long long nanosecondsPerMillisecond = 1'000'000;
    const auto count = static_cast<long long>(time.time() - TarvikCorelib::unixEpoch);
    long long seconds = count / TarvikCorelib::millisecondsPerSecond;
    long long rest = count % TarvikCorelib::millisecondsPerSecond;
    if (rest < 0) {
        --seconds;
        rest += TarvikCorelib::millisecondsPerSecond;
    }
    return {seconds, rest * nanosecondsPerMillisecond};
}

void setTimes(const std::string& path, const std::array<timespec, 2>& accessAndChange,
              const char* operation) {
    requireName(path, "path", operation);
    if (utimensat(AT_FDCWD, path.c_str(), accessAndChange.data(), 0) != 0)
        throwRefusal(errno, path, operation);
}

constexpr timespec keepTime{0, UTIME_OMIT};

}  // namespace

// --- permissions and status

int FileTools::getPermissions(const std::string& path, PermissionGroup group) {
    return digitOf(path, group, "getPermissions");
}

bool FileTools::havePermission(const std::string& path, PermissionGroup group, int permissions) {
    return (digitOf(path, group, "havePermission") & permissions) == permissions;
}

void FileTools::setPermission(const std::string& path, PermissionGroup group, int permissions) {
    changeDigit(path, group, permissions, 0, "setPermission");
}

void FileTools::removePermission(const std::string& path, PermissionGroup group, int permissions) {
    changeDigit(path, group, 0, permissions, "removePermission");
}

int FileTools::getStatus(const std::string& path) {
    return digitOf(path, statusDigit, "getStatus");
}

bool FileTools::haveStatus(const std::string& path, int status) {
    return (digitOf(path, statusDigit, "haveStatus") & status) == status;
}

void FileTools::setStatus(const std::string& path, int status) {
    changeDigit(path, statusDigit, status, 0, "setStatus");
}

void FileTools::unsetStatus(const std::string& path, int status) {
    changeDigit(path, statusDigit, 0, status, "unsetStatus");
}

// --- times

DateTime FileTools::getCreationTime(const std::string& path) {
    constexpr auto operation = "getCreationTime";
    requireName(path, "path", operation);
    struct statx found {};
    if (statx(AT_FDCWD, path.c_str(), 0, STATX_BTIME | STATX_MTIME, &found) != 0)
        throwRefusal(errno, path, operation);
    const auto& time = (found.stx_mask & STATX_BTIME) != 0 ? found.stx_btime : found.stx_mtime;
    return toDateTime(time.tv_sec, time.tv_nsec);
}

DateTime FileTools::getLastAccessTime(const std::string& path) {
    const timespec time = propertiesOf(path, "getLastAccessTime").st_atim;
    return toDateTime(time.tv_sec, time.tv_nsec);
}

DateTime FileTools::getLastModifiedTime(const std::string& path) {
    const timespec time = propertiesOf(path, "getLastModifiedTime").st_mtim;
    return toDateTime(time.tv_sec, time.tv_nsec);
}

void FileTools::setCreationTime(const std::string& path, const DateTime& /*time*/) {
    constexpr auto operation = "setCreationTime";
    propertiesOf(path, operation);
    throwRefusal(ENOTSUP, path, operation);
}

void FileTools::setLastAccessTime(const std::string& path, const DateTime& time) {
    setTimes(path, {toTimespec(time), keepTime}, "setLastAccessTime");
}

void FileTools::setLastModifiedTime(const std::string& path, const DateTime& time) {
    setTimes(path, {keepTime, toTimespec(time)}, "setLastModifiedTime");
}

// --- links and new files

void FileTools::createLink(const std::string& target, const std::string& path) {
    constexpr auto operation = "createLink/symlink";
    requireName(target, "target_path", operation);
    requireName(path, "path", operation);
    if (symlink(target.c_str(), path.c_str()) != 0) throwRefusal(errno, path, operation);
}

std::string FileTools::getLinkTarget(const std::string& path) {
    constexpr std::size_t firstSize = 256;
    constexpr auto operation = "getLinkTarget";
    requireName(path, "path", operation);
    // Longer than the text, or it may have been cut.
    for (std::string text(firstSize, '\0');; text.resize(2 * text.size())) {
        const ssize_t length = readlink(path.c_str(), text.data(), text.size());
        if (length < 0) throwRefusal(errno, path, operation);
        if (static_cast<std::size_t>(length) < text.size())
            return text.substr(0, static_cast<std::size_t>(length));
    }
}

void FileTools::createFile(const std::string& path) {
    constexpr auto operation = "createFile";
    requireName(path, "path", operation);
    TarvikCorelib::FileReplacement file;
    int error = file.openNew(path);
    if (error == 0) error = file.keep();
    if (error != 0) throwRefusal(error, path, operation);
}

}  // namespace TarvikFilelib
