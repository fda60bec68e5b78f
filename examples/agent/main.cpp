// A process that waits and counts its beats where others find the number. README.md beside this
// file goes through it.

#include "libraries/appframe/source/AppFrame.h"
#include "libraries/appframe/source/ExitValues.h"
#include "libraries/corelib/source/messaging/Ims.h"
#include "libraries/corelib/source/process/CoreSleep.h"
#include "libraries/corelib/source/process/GlobalData.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"
#include "libraries/filelib/source/directory/FileTools.h"

#include <csignal>
#include <exception>
#include <limits>
#include <optional>

namespace {

using TarvikCorelib::AppFrame;
using TarvikCorelib::Exception;
using TarvikCorelib::exitFailed;
using TarvikCorelib::ImsMessage;
using TarvikCorelib::Logger;
using TarvikCorelib::ParamStream;

constexpr std::uint32_t millisecondsToSleep = 5;
constexpr unsigned long long millisecondsToBeat = 20;

// A log. Every logger of the process sends its records as messages, and whoever hooks them decides
// what becomes of them. Here each is a line of a file.
class LogFile : public TarvikCorelib::ImsAgent {
public:
    explicit LogFile(std::string path) : ImsAgent("log-file"), path(std::move(path)) {
        hook = setMessageHook(false, "debug", "*", "*", TarvikCorelib::HookTypeNormal);
    }
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;
    ~LogFile() override { removeMessageHook(hook); }

    int hookMessage(unsigned long long /*hookId*/, const ImsMessage& message) override {
        const auto* record = dynamic_cast<Logger::LogMessageParameter*>(message.parameter);
        if (record == nullptr) return MsgIgnored;
        // A record is a template with values, as an exception is.
        const Exception text(record->text, record->params);
        TarvikFilelib::FileTools::appendToFile(path, Logger::mapDebugLevel(record->level) + " " +
                                                         record->source + ": " +
                                                         text.getFullMessage(false) + "\n");
        return MsgHandled;
    }

private:
    std::string path;
    unsigned long long hook;
};

class Agent : public AppFrame {
public:
    Agent(int argc, char** argv)
        : AppFrame("Example Agent", "agent", "1", "", true, "Tarvik, Inc.") {
        CommandLineC = argc;
        CommandLineV = argv;
        if (!Agent::construct() || !parseCmd()) setAppState(AppStateFailed);
        if (getAppState() != AppStateRun) return;
        std::string value;
        if (commandLine.getOptionValue("log", value)) log.emplace(value);
        if (commandLine.getOptionValue("beats", value))
            beatsLeft = TarvikCorelib::StringTools::toUInt32(value);
        // Behind the options, since they decide whether there is a number.
        setup();
        // The hook comes last, and goes first: a message must never find half an agent.
        beatHook = setMessageHook(false, "agent", "beat", "*", TarvikCorelib::HookTypeNormal);
    }
    Agent(const Agent&) = delete;
    Agent& operator=(const Agent&) = delete;
    ~Agent() override { removeMessageHook(beatHook); }

    bool construct() override {
        setModuleName("agent");
        commandLine.specifyOptionOnlyArg("Refuse to run beside another", 's', "single");
        commandLine.specifyOptionWithValueArg("End after so many beats", 'b', "beats", {});
        commandLine.specifyOptionWithValueArg("Write a log to this file", 'l', "log", {});
        return true;
    }
    bool destruct() override { return true; }

    // A number among several, unless there is to be one only. The numbers are in the registry, and
    // this comes ahead of `configure`, so it says itself which registry that is.
    bool setAppInstance() override {
        if (commandLine.haveOption("single")) return false;
        specifyFileRegistry();
        return useEnum();
    }

    int run() override {
        if (commandLine.haveOption("single")) ensureSingleInstance();
        output(getAppID() + " is ready\n", false);
        queueBeat();
        std::string reason;
        while (beatsLeft > 0 && !TarvikCorelib::GlobalData::mustQuit(reason)) {
            TarvikCorelib::Ims::updateDefault();
            TarvikCorelib::core_sleep(millisecondsToSleep);
        }
        return 0;
    }

    // Called by `updateDefault`, once for each message whose time has come. The value in the
    // registry is shared with all other agents of the host, and no beat of theirs is lost.
    int hookMessage(unsigned long long /*hookId*/, const ImsMessage& /*message*/) override {
        confAgent.modifyLocalConf("agent-beats", 1, 0);
        logger.info("Beat % of all agents", ParamStream()
                                                << confAgent.getLocalConfInt("agent-beats", 0));
        if (--beatsLeft > 0) queueBeat();
        return MsgHandled;
    }

private:
    void queueBeat() {
        ImsMessage beat("agent", "beat", "");
        queueMessageDelay(beat, millisecondsToBeat);
    }

    std::optional<LogFile> log;
    std::uint32_t beatsLeft = std::numeric_limits<std::uint32_t>::max();
    unsigned long long beatHook = 0;
};

int runAgent(int argc, char** argv) {
    Agent agent(argc, argv);
    if (agent.getAppState() != AppFrame::AppStateRun) return agent.exitProgram();
    return agent.configure() ? agent.runApp() : exitFailed;
}

}  // namespace

int main(int argc, char** argv) {
    for (const int number : {SIGABRT, SIGINT, SIGTERM, SIGCHLD})
        std::signal(number, &AppFrame::signalQuit);
    Logger::MainLevel = Logger::Info;  // Until --debug says otherwise.
    try {
        return runAgent(argc, argv);
    } catch (const Exception& exception) {
        AppFrame::output(exception.getFullMessage(false) + "\n", false);
    } catch (const std::exception& exception) {
        AppFrame::output(std::string(exception.what()) + "\n", false);
    }
    return exitFailed;
}
