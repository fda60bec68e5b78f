#include "bench/HandleText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvik_bench {

namespace {

// A "%" gives way to the number of the line's turn.
std::string numbered(std::string_view line, std::size_t number) {
    std::string text(line);
    const std::size_t place = text.find('%');
    if (place != std::string::npos) text.replace(place, 1, std::to_string(number));
    return text;
}

/// Adds the lines in turn until the text has that many bytes.
template <std::size_t Count>
void fillUp(std::string& text, const std::array<std::string_view, Count>& lines, std::size_t size) {
    for (std::size_t number = 0; text.size() < size; ++number) {
        text.append(numbered(lines[number % Count], number)).append("\n");
    }
}

constexpr auto executablesLines = std::to_array<std::string_view>({
    "        rule% = [type=include,exe=planboard,required=yes]",
    "        rule% = [type=include, exe=pbview, args=\"*-edit*, -view*\", child=pbhelp]",
    "        # the batch plotter is no session",
    "        rule% = [type=exclude,exe=planboard,args=\"*-batch*\"]   # ends by itself",
    "",
});

constexpr auto licensesLines = std::to_array<std::string_view>({
    "        rule% = [vendor=planbrd,feature=draft2d]",
    "        rule% = [vendor=planbrd,feature=solid3d,version=12.1,certain=yes]",
});

constexpr auto filedLicensesLines = std::to_array<std::string_view>({
    "        rule% = [license-file=yes,vendor=planbrd,feature=draft2d]",
});

constexpr auto filterLines = std::to_array<std::string_view>({
    "        rule% = [wday=mon,wday=tue,wday=wed,time=07:00:00-19:00:00]",
    "        rule% = [type=exclude,host=class-*,user=guest*,os=linux]",
    "        rule% = [type=exclude,date=2027-01-01T00:00:00-2027-06-30T23:59:59]",
    "        # the evaluation period ends in the summer",
});

constexpr auto prioritiesLines = std::to_array<std::string_view>({
    "        rule% = [group=design-leads,priority=high]",
    "        rule% = [user=guest*,host=desk-*,priority=low]",
});

constexpr auto faultyLines = std::to_array<std::string_view>({
    "        rule% = [type=inclde,exe=planboard]",
    "        rule% = [type=include,exe=planboard,colour=red]",
    "        rule% = [type=include,exe=planboard",
    "        rule% = [type=include,type=include,exe=planboard]",
    "        the rule% = [type=include,exe=planboard]",
    "        rule% = [exe=planboard]",
    "        rule% without an expression",
});

constexpr std::string_view keySections = R"(    idle-detection
    {
        idle-threshold = 4.5
        counters
        {
            cpu = [threshold=2.5,weight=1]
            mouse = [threshold=1,weight=2]
        }
    }
    optimization
    {
        idle-timeout = 30:00
        suspend-timeout = 3:00:00:00
        method = suspend
    }
    cpu-overuse
    {
        threshold = 85
        timeout = 20:00
        action = terminate
    }
)";

constexpr std::string_view handleStart = "handle\n{\n    name = PlanBoard Drafting\n";

}  // namespace

std::string validHandle(std::size_t bytes, const std::string& licenseFile) {
    // The sections with rules have a quarter each.
    const std::size_t part = bytes / 4;
    std::string text(handleStart);
    text.append(keySections).append("    executables\n    {\n");
    fillUp(text, executablesLines, part);
    text.append("    }\n    licenses\n    {\n        license-type = flex\n");
    if (licenseFile.empty()) {
        fillUp(text, licensesLines, 2 * part);
    } else {
        text.append("        license-file = ").append(licenseFile).append("\n");
        fillUp(text, filedLicensesLines, 2 * part);
    }
    text.append("    }\n    filter\n    {\n");
    fillUp(text, filterLines, 3 * part);
    text.append("    }\n    priorities\n    {\n");
    fillUp(text, prioritiesLines, 4 * part);
    return text.append("    }\n}\n");
}

std::string faultyHandle(std::size_t bytes) {
    std::string text(handleStart);
    text.append("    executables\n    {\n");
    fillUp(text, faultyLines, bytes);
    return text.append("    }\n}\n");
}

std::int64_t linesOf(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

}  // namespace tarvik_bench
