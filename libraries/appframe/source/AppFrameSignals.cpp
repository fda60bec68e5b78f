// What happens when a signal comes. The handler may interrupt anything, so it takes no lock, calls
// no stdio and allocates nothing: all text with names in it is made beforehand, with signals
// blocked, in a buffer of fixed size. The handler itself only appends the number and writes.

#include "libraries/appframe/source/AppFrame.h"
#include "libraries/appframe/source/AppFrameMessages.h"
#include "libraries/appframe/source/ExitValues.h"
#include "libraries/corelib/source/process/CoreSleep.h"
#include "libraries/corelib/source/process/GlobalData.h"
#include "libraries/corelib/source/system/SystemTools.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstddef>
#include <limits>
#include <string_view>

namespace TarvikCorelib {

namespace {

// A text in memory of its own, so that it can be made in a handler. What does not fit is cut.
template <std::size_t Capacity>
class FixedBuffer {
public:
    constexpr explicit FixedBuffer(std::string_view text = {}) { append(text); }

    constexpr void append(std::string_view text) {
        const std::size_t count = std::min(text.size(), Capacity - size);
        std::copy_n(text.begin(), count, bytes.begin() + size);
        size += count;
    }
    [[nodiscard]] constexpr std::string_view text() const { return {bytes.data(), size}; }

private:
    std::array<char, Capacity> bytes{};
    std::size_t size = 0;
};

constexpr std::size_t prefixCapacity = 1024;
constexpr std::size_t numberCapacity = std::numeric_limits<int>::digits10 + 2;

// Cuts names that are too long, so that there is room for what happened.
constexpr FixedBuffer<prefixCapacity> prefixWith(std::string_view names) {
    constexpr std::string_view separator = ": ";
    constexpr std::size_t rest = separator.size() + messages::interceptedSignal.size();
    FixedBuffer<prefixCapacity> prefix(names.substr(0, prefixCapacity - rest));
    prefix.append(separator);
    prefix.append(messages::interceptedSignal);
    return prefix;
}

// Process-wide. Printed ahead of the signal's number. Until they are known, the names are blank.
constinit FixedBuffer<prefixCapacity> signalPrefix = prefixWith(": #0");

FixedBuffer<numberCapacity> decimal(int number) {
    std::array<char, numberCapacity> digits{};
    const char* const end = std::to_chars(digits.begin(), digits.end(), number).ptr;
    return FixedBuffer<numberCapacity>(
        {digits.data(), static_cast<std::size_t>(end - digits.data())});
}

// One call for the whole text, so that no other output gets into it.
void printSignal(int signalNumber) {
    constexpr std::string_view eraseControlC = "\b\b";
    constexpr std::size_t rest = eraseControlC.size() + numberCapacity + 1;
    FixedBuffer<prefixCapacity + rest> line;
    if (signalNumber == SIGINT) line.append(eraseControlC);
    line.append(signalPrefix.text());
    line.append(decimal(signalNumber).text());
    line.append("\n");
    [[maybe_unused]] const auto written =
        write(STDOUT_FILENO, line.text().data(), line.text().size());
}

void storeSignal(int signalNumber) {
    FixedBuffer<messages::interceptedSignal.size() + numberCapacity> reason(
        messages::interceptedSignal);
    reason.append(decimal(signalNumber).text());
    GlobalData::setSignal(signalNumber, reason.text());
}

}  // namespace

void AppFrame::prepareSignalText() {
    const std::string names = DisplayName + ": " + SystemTools::obtain(SystemTools::DetailAppName) +
                              "#" + SystemTools::getAppInstance();
    const GlobalData::SignalBlock block;
    signalPrefix = prefixWith(names);
}

void AppFrame::signalQuit(int signalNumber) {
    constexpr std::uint32_t millisecondsToAbort = 500;
    if (signalNumber == SIGCHLD) return;
    const int errorBefore = errno;
    NoPopupOutput = true;
    printSignal(signalNumber);
    storeSignal(signalNumber);
    if (signalNumber == SIGABRT) {
        core_sleep(millisecondsToAbort);
        // Not `exit`: the destructors and buffers it would run may have been interrupted half way.
        _exit(exitAborted);
    }
    errno = errorBefore;
}

}  // namespace TarvikCorelib
