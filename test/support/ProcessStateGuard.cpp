#include "test/support/ProcessStateGuard.h"

#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/process/GlobalData.h"
#include "libraries/corelib/source/system/SystemTools.h"

namespace tarvik_test {

ProcessStateGuard::~ProcessStateGuard() {
    AppFrame::CommandLineC = commandLineC;
    AppFrame::CommandLineV = commandLineV;
    AppFrame::DisplayName = displayName;
    AppFrame::Vendor = vendor;
    AppFrame::AppVersion = appVersion;
    AppFrame::AppInstance = appInstance;
    AppFrame::NoPopupOutput = noPopupOutput;
    AppFrame::AppQuitOnLogOff = appQuitOnLogOff;
    Logger::MainLevel = mainLevel;
    Logger::Revision = revision;
    TarvikCorelib::GlobalData::reset();
    TarvikCorelib::SystemTools::resetDetails();
    // An instance that was set is exported too, and would be read back from there.
    TarvikCorelib::EnvTools::remove("tarvik_application_instance");
}

}  // namespace tarvik_test
