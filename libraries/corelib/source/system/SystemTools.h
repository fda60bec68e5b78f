/// Facts about the host and the process, gathered once.
#pragma once

#include "libraries/corelib/source/diagnostics/NoDestructor.h"
#include "libraries/corelib/source/messaging/ThreadLock.h"
#include "libraries/corelib/source/time/TimeUnits.h"

#include <sys/types.h>

#include <cstdint>
#include <list>
#include <map>
#include <set>
#include <string>

namespace TarvikCorelib {

class DateTime;
class TimeSpan;

/// A table of facts, filled at the first question for one that is not in it: what an application
/// sets about itself is in it at once, what the host says is gathered once a process, all of it
/// together. So the first question for a fact of the host asks the hosts and the user database too.
/// A host whose own name stands in neither /etc/hosts nor any other service costs that first
/// question the timeouts of the resolver, 10 seconds or more when no name server answers;
/// `RES_OPTIONS=attempts:0` in the environment spares them.
///
/// What cannot be found reads "[unknown]" or blank; nothing throws, with one exception.
/// Quirk: if `LANG` is set to fewer than 3 bytes, the first question throws `std::out_of_range`.
/// Nothing is gathered then, and the next question tries again.
///
/// Any thread may ask and set at any time; whoever asks first makes the others wait. The
/// environment, which has no lock, is for the thread that starts the application, before it starts
/// others; `setAppInstance` writes it, and so may the first question.
///
///     SystemTools::setAppName("tool");
///     SystemTools::setAppInstance("7");
///     SystemTools::getAppNameSafe();  // "tool#007"
class SystemTools {
public:
    enum DetailCode : std::int32_t {
        DetailAppName = 0,
        DetailAppInstance = 1,
        DetailNetworkMasterUrl = 2,
        /// With the domain, or all of `tarvik_hostname` if that is set, which may name the instance
        /// too: "host-2" on "host" is instance 2, and so is "other#2".
        /// Quirk: whatever follows the host's own name loses its first character: "hostX7" is
        /// instance 7, and "host7" the blank one.
        /// Quirk: a host that is known without a domain is named "host.[nodomain]".
        DetailHostName = 3,
        DetailMachineName = 4,       ///< Without a domain.
        DetailPlatform = 5,          ///< "linux-64".
        DetailOs = 6,                ///< "linux".
        DetailOsVersion = 7,         ///< Two digits a part: "020618".
        DetailOsLanguage = 8,        ///< From `LANG`; "en_US.UTF-8" for "C" and if it is not set.
        DetailKeyboardLanguage = 9,  ///< "en:US".
        DetailKeyboardType = 10,     ///< Always "[undef]".
        DetailArchitecture = 11,     ///< "x86_64".
        DetailDomain = 12,           ///< "[nodomain]" if the host is known without one.
        DetailUserDomain = 13,       ///< Blank.
        DetailUserName = 14,         ///< Of the real user.
        DetailBlank = 15,            ///< Blank.
        DetailDisplay = 16,          ///< From `DISPLAY`, else "0.0".
        DetailOsBits = 17,           ///< "64".
        DetailByteOrder = 18,        ///< "little" or "big".
    };

    /// The known directories, each with its word.
    enum DirCode : std::int32_t {
        DirUnknown = 0,
        DirCurPersonal = 1,
        DirCurDesktop = 2,
        DirCurAppData = 3,
        DirCurStartMenu = 4,
        DirCurStartMenuPrograms = 5,
        DirCurStartMenuStartup = 6,
        DirCurTemp = 7,
        DirAllDocuments = 8,
        DirAllStartMenu = 9,
        DirAllStartMenuPrograms = 10,
        DirAllStartMenuStartup = 11,
        DirAllDesktop = 12,
        DirAllAppData = 13,
        DirSysFonts = 14,
        DirSysWindows = 15,
        DirSysSystem = 16,
        DirSysPrograms = 17,
        DirSysProgramsCommon = 18,
        DirSysTemp = 19,
    };

    // --- the table

    /// Blank for a fact that is not known.
    static std::string obtain(DetailCode code);
    /// The flag has no effect here and in `getDomain`.
    static std::string getHostName(bool withDomain);
    static std::string getDomain(bool withDomain);
    /// With the domain as "DOMAIN\name", if the user has one.
    static std::string getCurrentUser(bool withDomain);

    static void setAppName(const std::string& name);
    /// Also exported in the environment as `tarvik_application_instance`, for child processes.
    static void setAppInstance(const std::string& instance);
    static void setNetworkMasterUrl(const std::string& url);
    /// The instance that was set, else the one in the environment, else "0".
    static std::string getAppInstance();
    /// The name and the instance, at least three characters of it: "App#007".
    static std::string getAppNameSafe();
    /// Forgets all facts, also those that were set. The environment stays as it is, and so does
    /// what the resolver said, which is asked once a process.
    static void resetDetails();

    // --- directories

    /// The code of a word such as "cur_temp", in any case.
    static DirCode mapDirCode(const std::string& word);
    /// Without a slash at the end. Blank for a code that is not known, and for a directory that
    /// `HOME` gives if it is not set. The environment is asked each time.
    static std::string obtainDir(DirCode code);

    // --- time and memory of this process

    /// Milliseconds since the start of the process; 0 if the clock was set back behind it.
    static TimeType getUpTime();
    /// Whether the span has gone by since then. Months and years go by the calendar.
    static bool hasTimedOut(const TimeSpan& span, const DateTime& start);
    /// Milliseconds on the processor, 0 if unknown.
    static TimeType getCpuTime();
    /// Bytes of memory: the most that was resident at once, what is resident now, and the part of
    /// that which no other process shares. 0 if unknown.
    static std::uint64_t getPeakRSS();
    static std::uint64_t getCurrentRSS();
    static std::uint64_t getPrivateUsage();
    /// Release, application, host, times and memory as lines for a log.
    /// Quirk: "N/A" for a size that is not known takes the place of its line end, too.
    static std::string getReport();

    /// To be called first of all, by the only thread: makes the process one without a terminal, its
    /// standard streams empty and all other descriptors closed. Returns false in the parent, which
    /// should end, and true in the process that goes on, with 022 as its umask.
    ///
    /// It stays in the foreground for the argument "--nodetach", and if it cannot fork.
    /// Quirk: any part of that text as first argument will do, a blank one and "-" too.
    static bool detachFromParent(int argc, char** argv);

    // --- users, groups, devices

    /// The name, or "[unknown]"; `lookup...` returns a blank text instead. Each call asks the
    /// database.
    static std::string getUserFromID(uid_t id);
    static std::string getGroupFromID(gid_t id);
    static std::string lookupUserName(uid_t id);
    static std::string lookupGroupName(gid_t id);
    /// The names of all groups of the host; of all users in a group, and of all groups of a user,
    /// with the user's first group in both. None for an unknown name. Services that do not list
    /// their users or groups are not seen here.
    static std::set<std::string> obtainGroups();
    static std::set<std::string> obtainGroupUsers(const std::string& group);
    static std::set<std::string> obtainUserGroups(const std::string& user);
    /// The addresses of all interfaces that are up but the loopback, as the system lists them: IPv4
    /// as "192.0.2.1", IPv6 as "2001:db8::1" without its zone.
    static std::list<std::string> obtainIP();
    /// Always "[unknown]".
    static std::string obtainDiskSerial(const std::string& disk);

    // --- state

    /// Process-wide. The table; for those who hold the lock. Never destroyed.
    // NOLINTNEXTLINE(readability-identifier-naming): an accessor keeps the name of its static.
    static std::map<DetailCode, std::string>& Details();
    /// Process-wide. For the table and for `DetailsObtained`.
    static NoDestructor<ThreadLock> DetailsLock;
    /// Process-wide. The facts about the host are in the table.
    static bool DetailsObtained;
    /// Process-wide. When the process started; 0 until the constructors of statics have run.
    static const TimeType AppStart;

private:
    // For those who hold the lock.
    static void obtainDetails();
};

}  // namespace TarvikCorelib
