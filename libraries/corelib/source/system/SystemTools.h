/// Facts about the host and the process, gathered once.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace TarvikCorelib {

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

    /// Blank for a fact that is not known. So far only the first two, which are set, and the host
    /// name are known.
    static std::string obtain(DetailCode code);
    /// The flag has no effect.
    static std::string getHostName(bool withDomain);

    static void setAppName(const std::string& name);
    /// Also exported in the environment, for child processes.
    static void setAppInstance(const std::string& instance);
    /// What was set, else what the environment says, else "0".
    static std::string getAppInstance();

    /// Forgets all facts, those that were set included.
    static void resetDetails();

private:
    static std::map<DetailCode, std::string>& details();
    static void obtainDetails();

    /// Process-wide. The facts have been gathered.
    static bool DetailsObtained;
};

}  // namespace TarvikCorelib
