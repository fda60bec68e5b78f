// When the process started, and how it leaves its terminal.

#include "libraries/corelib/source/system/SystemTools.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/TimeSpan.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string_view>

namespace TarvikCorelib {

namespace {

constexpr mode_t ownUmask = 022;

bool staysInForeground(int argc, char** argv) {
    return argc > 1 && std::string_view("--nodetach").find(argv[1]) != std::string_view::npos;
}

// The session comes first: it is what parts the process from the terminal. Then the streams get the
// first three numbers, as nothing else is open; who writes to them later hits no file of ours.
void leaveTerminal() {
    setsid();
    close_range(0, ~0U, 0);
    for (int stream = ::open("/dev/null", O_RDWR); stream == 0 || stream == 1;)
        stream = dup(stream);
}

}  // namespace

// The clock needs no other static to be ready.
const TimeType SystemTools::AppStart = DateTime::getCurrentTime();

TimeType SystemTools::getUpTime() {
    const TimeType now = DateTime::getCurrentTime();
    return now > AppStart ? now - AppStart : 0;
}

bool SystemTools::hasTimedOut(const TimeSpan& span, const DateTime& start) {
    DateTime end(start);
    end += span;
    return DateTime::getCurrentTime() >= end.time();
}

bool SystemTools::detachFromParent(int argc, char** argv) {
    if (!staysInForeground(argc, argv)) {
        // A failure (-1) is no reason not to work.
        const pid_t child = fork();
        if (child > 0) return false;
        if (child == 0) leaveTerminal();
    }

    umask(ownUmask);
    return true;
}

}  // namespace TarvikCorelib
