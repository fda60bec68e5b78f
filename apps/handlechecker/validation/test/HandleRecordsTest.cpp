// What the sections leave in the records, which no message shows.

#include "apps/handlechecker/validation/HandleValidator.h"
#include "test/support/TempDir.h"

#include <gtest/gtest.h>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <ctime>
#include <filesystem>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using Licenses = decltype(Tarvik::HandleData::licenses);

/// Reads handles that consist of one section's lines, and shows what they left.
class ReadHandle : public Tarvik::HandleValidator {
public:
    /// The faults, each on a line of its own.
    std::string read(const std::string& section, const std::string& lines) {
        std::string path =
            dir.write("a.conf", "handle\n{\nname = a\n" + section + "\n{\n" + lines + "\n}\n}\n");
        loadHandle(path);
        validate();
        std::string faults;
        for (const Error& error : errors) {
            // The sections under test stand alone.
            if (error.message != "End of file, missing required Executable section ") {
                faults.append(error.message).append("\n");
            }
        }
        return faults;
    }

    Tarvik::HandleData* operator->() { return this; }
    Tarvik::HandleData& operator*() { return *this; }

    tarvik_test::TempDir dir;
};

// In the order of the fields, none with its first value.
// clang-format off
const Tarvik::HandleData differsEverywhere = {
    1, {{"m", "1"}}, true, "k", 2, "n", {{"a", {}}}, {"e"}, true, true, 1, 1, {{{0}, {}}}, 1.0, 1,
    1, 1, 2, 1, 1, 1, "x", 1, 1, 1.0, 1, 1, 1, {{"f", {}}}, {{}}, 2, "l", {{}}, {"c"}, 1, 1, "p", 1,
    true, 1, false, 1, {"r"}, true, {{}}, {"v"}, {"f"}, {{}}, 1, {{"o", "1"}}, "s", {"i"}, {"i"},
    {"i"}, {"i"}, {"i"}, {"i"}, {"i"}, {"s"}, "s", "c", 1, {1}, 1, 1, "t", {{{1}, 1}}, 1};
// clang-format on

TEST(HandleRecordsTest, ClearingBringsBackAllFirstValuesAndReadsTheClock) {
    ReadHandle handle;
    *handle = differsEverywhere;
    const std::time_t before = std::time(nullptr);
    handle.clear();
    EXPECT_GE(handle->loadTime, before);
    handle->loadTime = 0;
    EXPECT_TRUE(*handle == Tarvik::HandleData());
}

TEST(HandleRecordsTest, AHandleThatStatesNothingHasTheDefaults) {
    ReadHandle handle;
    EXPECT_EQ(handle.read("priorities", ""), "");
    const Tarvik::HandleData& data = *handle;
    EXPECT_EQ(std::tuple(data.idleThreshold, data.idleTimeout, data.cpuThreshold, data.cpuTimeout),
              std::tuple(4.0, 600, 95.0, 259200));
    EXPECT_EQ(std::tuple(data.suspendTimeout, data.resendTimeout, data.lagTime, data.linkTimeout),
              std::tuple(864000, 1800, 60, 600));
    EXPECT_EQ(std::tuple(data.terminateTime, data.killTime, data.disableMethodArg),
              std::tuple(120, 300, "ps"));
    EXPECT_EQ(std::tuple(data.suspendTimeoutAction, data.cpuAction, data.licenseType),
              std::tuple(1, 0, 1));
    EXPECT_TRUE(data.disableMethod == 0 && !data.useLinkTimeout && data.caseSensitive);
}

TEST(HandleRecordsTest, ARepeatedRuleOfExecutablesReplacesTheFirstAndBothCount) {
    ReadHandle handle;
    EXPECT_EQ(handle.read("executables",
                          "a = [type=include,exe=x,child=y,required=yes]\n"
                          "a = [type=exclude,exe=z,args=,child-args=\"-a, b\",child-only=true]\n"
                          "b = [type=include,exe=,args=-x]\n"
                          "multiple = yes\ncase-sensitive = no"),
              "Multiple definition of \"a\"\n\"Exe\" must not be blank in \"b\"\n");
    const Tarvik::HandleData::ExePatternDef last = {false, "z", "*", "", "-a, b", true, false};
    EXPECT_TRUE(handle->exePatterns.at("a") == last);
    EXPECT_EQ(handle->exePatterns.at("b").args, "-x") << "stored, though it does not count";
    EXPECT_EQ(handle->ruleLines, (std::vector<std::int32_t>{6, 7}));
    EXPECT_EQ(handle->requiredExes, (std::set<std::string>{"x", "y"}));
    EXPECT_TRUE(handle->multiple && !handle->caseSensitive);
}

TEST(HandleRecordsTest, RequirementsWithNamesStandAheadOfThoseWithoutInReverseOrder) {
    ReadHandle handle;
    handle.read("licenses",
                "require-available = 5\nrequire-available = v:f=2\nrequire-available = 50%\n"
                "require-available = w=7%\nrequire-available = x=bad\nrequire-available = y=");
    std::string all;
    for (const auto& req : handle->availableReqs) {
        all += req.vendor + ":" + req.feature + "=" + std::to_string(req.count);
        all += req.percent ? "% " : " ";
    }
    EXPECT_EQ(all, "y:=1 w:=7% v:f=2 :=5 :=50% ");
}

TEST(HandleRecordsTest, LicensesAreKeptInOrderAndTheTypeDecidesFromItsLineOn) {
    ReadHandle handle;
    handle.setFilechecking();
    handle.read("licenses",
                "required = all\nlicense-file = early\nlicense-type = rlm\nrequired = a, ,B\n"
                "license-server = 70000@h@i\nlicense-server = @j\ncentralized-license = a b, ,c\n"
                "ignore-vendors = V, ,V\nassume-hidden = yes\nlicense-type = FLEX\n"
                "l = [vendor=ABC,version=V1,certain=maybe]\nl = [feature=X,certain=yes]");
    EXPECT_EQ(handle->licenseFile, "");
    EXPECT_EQ(handle->licenseType, 6);
    EXPECT_EQ(handle->requiredMode, 3);
    EXPECT_EQ(handle->requiredNames, (std::list<std::string>{"a", "b"}));
    // The port 70000 is cut to 16 bits.
    EXPECT_TRUE(handle->licenseServers ==
                decltype(handle->licenseServers)({{"h@i", 4464}, {"j", 0}}));
    EXPECT_EQ(handle->centralizedLicenses, (std::vector<std::string>{"ab", "c"}));
    EXPECT_EQ(handle->ignoreVendors, (std::set<std::string>{"V"}));
    EXPECT_TRUE(handle->assumeHidden);
    EXPECT_TRUE(handle->licenses ==
                Licenses({{0, "abc", "", "V1", false}, {0, "", "x", "", true}}));
}

// The hash of "ab" is 97 * 37 + 98; a block ends at 65536 bytes, and zeros ahead change nothing.
TEST(HandleRecordsTest, TheFingerprintIsThatOfTheWholeLicenseFile) {
    ReadHandle handle;
    for (const std::string& zeros : {std::string(), std::string(65535, '\0')}) {
        const std::string path = handle.dir.write("license", zeros + "ab");
        EXPECT_EQ(handle.read("licenses", "license-type = flex\nlicense-file = " + path +
                                              "\nl = [license-file=yes]\nm = [vendor=v]\n"
                                              "n = [license-file=true]"),
                  "");
        const Licenses hashed = {
            {3687, "", "", "", false}, {0, "v", "", "", false}, {3687, "", "", "", false}};
        EXPECT_TRUE(handle->licenses == hashed);
    }
}

TEST(HandleRecordsTest, ALicenseFileShorterThanItsSizeIsReadToItsEnd) {
    const std::string path = "/sys/devices/system/cpu/online";
    if (!std::filesystem::exists(path)) GTEST_SKIP() << "needs a file of the system";
    ReadHandle handle;
    EXPECT_EQ(handle.read("licenses", "license-type = flex\nlicense-file = " + path +
                                          "\nl = [license-file=yes]"),
              "");
}

TEST(HandleRecordsTest, ALicenseFileIsReadOnceHoweverItsPathIsSpelled) {
    ReadHandle handle;
    const std::string path = handle.dir.write("license", "ab");
    const std::string folder = path.substr(0, path.rfind('/'));
    const int watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ASSERT_GE(inotify_add_watch(watch, path.c_str(), IN_OPEN), 0);
    handle.read("licenses", "license-type=flex\nlicense-file=" + path +
                                "\na=[license-file=yes]\nlicense-file=" + folder +
                                "/./license\nb=[license-file=yes]");
    std::array<char, 4096> events{};
    EXPECT_EQ(read(watch, events.data(), events.size()), sizeof(inotify_event)) << "one opening";
    close(watch);
    EXPECT_EQ(handle->licenses.back().fileHash, 3687U);
}

TEST(HandleRecordsTest, RequiredNamesAnyOrAllLicenses) {
    ReadHandle handle;
    for (const auto& [word, mode] : {std::pair("any", 1), {"all", 2}}) {
        handle.read("licenses", std::string("license-type=flex\nrequired=") + word);
        EXPECT_EQ(handle->requiredMode, mode) << word;
    }
}

TEST(HandleRecordsTest, WordsStandForTheirCodes) {
    EXPECT_EQ(Tarvik::mapDisableMethod("standby"), 6);
    EXPECT_EQ(Tarvik::mapDisableMethod("corrupt"), 8);
    EXPECT_EQ(Tarvik::mapCounterID("keyboard"), 3);
}

TEST(HandleRecordsTest, TheLastGoodFilterOfAKeyIsKept) {
    ReadHandle handle;
    handle.read("filter",
                "a = [os=x,count=5,licenses=50]\nb =\n"
                "a = [type=exclude,n-os=z,n-os=y,wday=sun,wday=mon,n-time=22:00:00-06:00:00,"
                "time=22:00-23:00,count=5-,date=1970-01-02T00:00+00:00-1970-01-03T01:00+00:00]\n"
                "a = [wday=Mon]");
    Tarvik::FilterDef kept;
    kept.type = 1;
    kept.notOs = {"z", "y"};
    kept.wday = {{6}, {0}};
    kept.date = {{86400, 176400}};
    kept.time = {{1320, 1380}};
    kept.notTime = {{79200, 108000}};
    EXPECT_TRUE(handle->filters.at("a") == kept);
    EXPECT_TRUE(handle->filters.at("b") == Tarvik::FilterDef());
}

TEST(HandleRecordsTest, TheOtherSectionsKeepWhatStoodBeforeAFault) {
    ReadHandle handle;
    EXPECT_EQ(handle.read("optimization",
                          "suspend-timeout-action = sleep\nsuspend-timeout-action = Terminate\n"
                          "method = bogus:foo\nlag-time = 1:x\nadditional-countdown = a : b"),
              "Multiple definition of \"suspend-timeout-action\"\nInvalid element \"Terminate\"\n"
              "Invalid element \"bogus\"\nInvalid value of \"x\"\n");
    EXPECT_EQ(std::tuple(handle->suspendTimeoutAction, handle->disableMethod, handle->lagTime),
              std::tuple(0, 0, 0));
    EXPECT_EQ(handle->disableMethodArg, "foo");
    EXPECT_EQ(handle->additionalOptions.at("additional-countdown"), "a : b");

    EXPECT_EQ(handle.read("cpu-overuse", "action=terminate-notify\nnotify-timeout=1:00"), "");
    EXPECT_EQ(std::tuple(handle->cpuAction, handle->cpuNotifyTimeout), std::tuple(2, 60));

    handle.read("idle-detection",
                "idle-threshold=.\ncounters\n{\nio=[threshold=,weight=.5]\ncpu=[threshold=1.5]\n"
                "cpu=[threshold=2.]\ncpu=[weight=3]\n}");
    EXPECT_EQ(handle->idleThreshold, 0.0);
    EXPECT_EQ(handle->counters.at({1}).threshold, 0.0);
    EXPECT_EQ(handle->counters.at({1}).weight, 0.5);
    EXPECT_EQ(handle->counters.at({0}).threshold, 2.0);

    handle.read("priorities", "a = [host=,priority=total]\na =\nb = [priority=urgent]");
    using Priorities = decltype(handle->priorities);
    EXPECT_TRUE(handle->priorities ==
                Priorities({{"a", "", "*", "*", 3}, {"a", "*", "*", "*", 1}}));
}

TEST(HandleRecordsTest, DurationsAreAddedUpFromTheRight) {
    using Row = std::pair<const char*, long>;
    for (const auto& [text, seconds] : {Row{"90:00", 5400},
                                        {"1:00:00:00", 86400},
                                        {"1::30", 90},
                                        {":", 0},
                                        {"1:x:0", 0},
                                        {"1:0:0:0:0", 0},
                                        {"4294967297", 1},
                                        {"2147483647:0:0:0", 2147483647L * 86400},
                                        {"99999999999999999999", -1}}) {
        EXPECT_EQ(ReadHandle().getHMS(text), seconds) << text;
    }
}

TEST(HandleRecordsTest, ParametersInAMapAreCheckedAsThoseOfARule) {
    ReadHandle handle;
    std::string allowed = "os,type";
    std::string out = "before";
    Tarvik::HandleValidator::RuleParameters params;
    EXPECT_FALSE(handle.parseValue(R"([os=1,os=2,os=3,vendor=,"type"=1])", params));
    EXPECT_FALSE(handle.validateRuleParameters(params, allowed));
    EXPECT_TRUE(handle.checkDoubleDeclaration(params, allowed, true));
    EXPECT_FALSE(handle.checkDoubleDeclaration(params, allowed, false));
    EXPECT_TRUE(handle.getValueElement(params, "type", out, false));
    EXPECT_FALSE(handle.getValueElement(params, "type", out, true));
    EXPECT_EQ(out, "before");
    EXPECT_TRUE(handle.getValueElement(params, "os", out, true));
    EXPECT_EQ(out, "1");
    EXPECT_EQ(handle.getErrors(),
              "\n\t- \"vendor\" param is not supported in line 0"
              "\n\t- Multiple definition of \"os\" in line 0"
              "\n\t- \"type\" is required in \"\" in line 0\n\t- Ignoring Handle");
}

}  // namespace
