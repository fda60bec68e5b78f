// What joins the frame to the services of the suite: the file registry, one instance at a time, and
// instances with numbers.

#include "libraries/appframe/source/AppFrame.h"
#include "libraries/appframe/source/AppFrameMessages.h"
#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/services/FileRegistry.h"
#include "libraries/corelib/source/system/SystemTools.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"

#include <algorithm>
#include <list>
#include <set>

namespace TarvikCorelib {

namespace {

constexpr std::uint32_t lastNumber = 999'999;
// For the list of them: trims its texts, and what else it says is for other services of the suite.
constexpr std::int32_t listScope = 6;

std::string appName() {
    return SystemTools::obtain(SystemTools::DetailAppName);
}

// The numbers of the instances of this application. Other processes wait while the object lives.
class InstanceNumbers {
public:
    using Numbers = std::set<std::uint32_t>;

    InstanceNumbers() : lock(appName()) {
        if (!lock.lock(0)) throw ProcessLock::LockFailed("", here());
    }

    [[nodiscard]] Numbers read() const {
        Numbers numbers;
        for (const std::string& text : agent.getLocalConfList(key, listScope))
            numbers.insert(StringTools::toUInt32(text));
        return numbers;
    }
    void write(const Numbers& numbers) const {
        std::list<std::string> texts;
        for (const std::uint32_t number : numbers)
            texts.push_back(StringTools::toString(number));
        agent.setLocalConf(key, texts, listScope);
    }

private:
    ProcessLock lock;
    ConfAgent agent;
    std::string key = appName() + "-enum";
};

// One above the last number if all are taken.
std::uint32_t lowestFree(const InstanceNumbers::Numbers& used, std::uint32_t first) {
    std::uint32_t number = std::min(first, lastNumber + 1);
    while (number <= lastNumber && used.contains(number))
        ++number;
    return number;
}

}  // namespace

void AppFrame::specifyFileRegistry() {
    std::string directory;
    if (commandLine.getOptionValue("filereg", directory) || EnvTools::get("TARVIK_FREG", directory))
        FileRegistry::setRootDir(directory);
}

bool AppFrame::configure() {
    specifyFileRegistry();
    return true;
}

std::string AppFrame::getAppNameForConf() {
    std::string name = appName();
    StringTools::lower(name);
    return name.substr(name.find(':') + 1);  // All of it if there is no colon.
}

std::string AppFrame::getAppID() {
    return appName() + ":" + SystemTools::getAppInstance();
}

bool AppFrame::ensureSingleInstance() {
    constexpr int milliseconds = 100;
    const std::string host = SystemTools::getHostName(true);
    processLock.setName(getAppID() + "@" + host);
    if (!processLock.lock(milliseconds))
        throw AlreadyRunning(messages::alreadyRunning.view(),
                             valuesFor(messages::alreadyRunning, getAppID(), host));
    return true;
}

bool AppFrame::useEnum() {
    const InstanceNumbers instances;
    InstanceNumbers::Numbers used;
    try {
        used = instances.read();
    } catch (const ConfAgent::GetLocal_NotFound&) {
        // This is the first instance that there ever was.
    } catch (const Exception& exception) {
        logger.fatal(exception);
        throw;
    }
    const std::uint32_t number = lowestFree(used, static_cast<std::uint32_t>(AppInstance.id));
    if (number <= lastNumber) used.insert(number);
    instances.write(used);
    AppInstance.id = static_cast<std::int32_t>(number);
    AppInstance.type = AppInstanceDefs::Enumerated;
    prepareSignalText();  // The application may have named its instance meanwhile.
    return true;
}

void AppFrame::removeEnum() {
    const InstanceNumbers instances;
    InstanceNumbers::Numbers used;
    try {
        used = instances.read();
    } catch (const Exception& exception) {
        logger.fatal(exception);
        return;
    }
    used.erase(static_cast<std::uint32_t>(AppInstance.id));
    instances.write(used);
}

}  // namespace TarvikCorelib
