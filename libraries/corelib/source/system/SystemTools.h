/// Facts about the host and the process, gathered once.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace TarvikCorelib {

/// A table of facts, filled at the first question for one that is not in it: what an application
/// sets about itself is in it at once, what the host says is asked for once a process.
///
/// Process-wide. Any thread may ask and set at any time; the environment variable, which has no
/// lock, is for the thread that starts the application, before it starts others.
class SystemTools {
public:
    enum DetailCode : std::int32_t {
        DetailAppName = 0,
        DetailAppInstance = 1,
        DetailNetworkMasterUrl = 2,
        DetailHostName = 3,
        DetailMachineName = 4,
        DetailPlatform = 5,
        DetailOs = 6,
        DetailOsVersion = 7,
        DetailOsLanguage = 8,
        DetailKeyboardLanguage = 9,
        DetailKeyboardType = 10,
        DetailArchitecture = 11,
        DetailDomain = 12,
        DetailUserDomain = 13,
        DetailUserName = 14,
        DetailBlank = 15,
        DetailDisplay = 16,
        DetailOsBits = 17,
        DetailByteOrder = 18,
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

    /// Blank for a fact that is not known. So far these are known: the first two, which are set by
    /// the application, the host name, and the byte order, "little" or "big".
    static std::string obtain(DetailCode code);
    /// The flag has no effect.
    static std::string getHostName(bool withDomain);

    static void setAppName(const std::string& name);
    /// Also exported in the environment as `tarvik_application_instance`, for child processes.
    static void setAppInstance(const std::string& instance);
    /// The instance that was set, else the one in the environment, else "0".
    static std::string getAppInstance();

    /// The code of a word such as "cur_temp", in any case.
    static DirCode mapDirCode(const std::string& word);
    /// Without a slash at the end. Blank for a code that is not known, and for a directory that
    /// `HOME` gives if it is not set. The environment is asked each time.
    static std::string obtainDir(DirCode code);

    /// Forgets all facts, also those that were set. The environment stays as it is.
    static void resetDetails();

private:
    // For those who hold the lock.
    static std::map<DetailCode, std::string>& details();
    static void obtainDetails();

    /// Process-wide. The facts about the host are in the table.
    static bool DetailsObtained;
};

}  // namespace TarvikCorelib
