// What the process uses, and the report on it.

#include "libraries/corelib/source/system/FileReading.h"
#include "libraries/corelib/source/system/Release.h"
#include "libraries/corelib/source/system/SystemTools.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"
#include "libraries/corelib/source/text/StringToolsSplit.h"
#include "libraries/corelib/source/time/TimeSpan.h"

#include <sys/resource.h>
#include <sys/times.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <optional>

namespace TarvikCorelib {

namespace {

constexpr std::uint64_t bytesPerKiB = 1024;

struct MemoryPages {
    std::uint64_t resident = 0;
    std::uint64_t shared = 0;
};

// Of the line "total resident shared ...", in pages.
MemoryPages readPages() {
    std::string text;
    if (!readContent("/proc/self/statm", text)) return {};
    const auto numbers = StringTools::splitVector(text, ' ', 0, true);
    if (numbers.size() < 3) return {};
    return {StringTools::toUInt64(numbers[1]), StringTools::toUInt64(numbers[2])};
}

std::uint64_t bytesOf(std::uint64_t pages) {
    const long pageSize = sysconf(_SC_PAGESIZE);
    return pageSize > 0 ? pages * static_cast<std::uint64_t>(pageSize) : 0;
}

// The clocks of the processor, each for a system that lacks the ones before it.

using Milliseconds = std::optional<TimeType>;

// In two parts: a long-lived process has more units than would stand a multiplication.
Milliseconds fromUnits(long long units, long long perSecond) {
    if (units < 0 || perSecond <= 0) return std::nullopt;
    const long long seconds = units / perSecond;
    const long long rest = units % perSecond;
    return static_cast<TimeType>(seconds * millisecondsPerSecond +
                                 rest * millisecondsPerSecond / perSecond);
}

Milliseconds askProcessClock() {
    timespec used{};
    if (clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used) != 0) return std::nullopt;
    return fromUnits(used.tv_sec * 1'000'000'000LL + used.tv_nsec, 1'000'000'000);
}

Milliseconds askUsage() {
    rusage used{};
    if (getrusage(RUSAGE_SELF, &used) != 0) return std::nullopt;
    const long long seconds = used.ru_utime.tv_sec + used.ru_stime.tv_sec;
    return fromUnits(seconds * 1'000'000 + used.ru_utime.tv_usec + used.ru_stime.tv_usec,
                     1'000'000);
}

Milliseconds askTimes() {
    tms used{};
    if (times(&used) == -1) return std::nullopt;
    return fromUnits(used.tms_utime + used.tms_stime, sysconf(_SC_CLK_TCK));
}

Milliseconds askClock() {
    return fromUnits(std::clock(), CLOCKS_PER_SEC);
}

std::string spanText(TimeType milliseconds) {
    return std::string(TimeSpan(static_cast<long long>(milliseconds)));
}

std::string sizeText(std::uint64_t bytes) {
    if (bytes == 0) return "N/A";
    constexpr double scale = 1.0 / bytesPerKiB;
    return StringTools::toString(static_cast<double>(bytes) * scale) + " KiB\n";
}

// In percent of one processor.
std::string utilization(TimeType used, TimeType upTime) {
    if (upTime == 0) return "0";  // The clock was set back.
    std::string text =
        StringTools::toString(static_cast<double>(used) * 100 / static_cast<double>(upTime));
    return StringTools::roundNumber(text, 2, false);
}

}  // namespace

TimeType SystemTools::getCpuTime() {
    for (const auto& ask : {askProcessClock, askUsage, askTimes, askClock}) {
        if (const Milliseconds used = ask()) return *used;
    }
    return 0;
}

std::uint64_t SystemTools::getPeakRSS() {
    rusage used{};
    if (getrusage(RUSAGE_SELF, &used) != 0) return 0;
    return static_cast<std::uint64_t>(used.ru_maxrss) * bytesPerKiB;
}

std::uint64_t SystemTools::getCurrentRSS() {
    return bytesOf(readPages().resident);
}

std::uint64_t SystemTools::getPrivateUsage() {
    const MemoryPages pages = readPages();
    return bytesOf(pages.resident - std::min(pages.shared, pages.resident));
}

std::string SystemTools::getReport() {
    const std::string master = obtain(DetailNetworkMasterUrl);
    const std::string osVersion =
        StringTools::toString(StringTools::toUInt64(obtain(DetailOsVersion)));
    const TimeType upTime = getUpTime();
    const TimeType cpuTime = getCpuTime();

    std::string report;
    report.append("Version: ").append(REL_VERSION).append(" r").append(REL_REVISION).append("\n");
    report += "App: " + obtain(DetailAppName) + " #" + getAppInstance() + "\n";
    report += "Host: " + obtain(DetailHostName) + "\n";
    report += "Machine: " + obtain(DetailMachineName) + "\n";
    report += "Domain: " + obtain(DetailDomain) + "\n";
    report += "Platform: " + obtain(DetailPlatform) + "\n";
    report += "OS: " + obtain(DetailOs) + " (" + obtain(DetailOsBits) + "bits v" + osVersion +
              " lang=" + obtain(DetailOsLanguage) + ")\n";
    report += "Architecture: " + obtain(DetailArchitecture) + "\n";
    if (!master.empty()) report += "Networkmaster: " + master + "\n";
    report += "\nUptime: " + spanText(upTime) + "\n\n";
    report += "Memory usage (peak): " + sizeText(getPeakRSS());
    report += "Memory usage (current): " + sizeText(getCurrentRSS());
    report += "Memory usage (private): " + sizeText(getPrivateUsage());
    report += "\nCPU usage (total): " + spanText(cpuTime) + "\n";
    report += "CPU utilization: " + utilization(cpuTime, upTime) + " %\n";
    return report;
}

}  // namespace TarvikCorelib
