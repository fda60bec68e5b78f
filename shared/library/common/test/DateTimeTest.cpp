#include "shared/library/common/DateTime.h"

#include "shared/library/common/TimeException.h"
#include "test/support/ScopedEnv.h"

#include <gtest/gtest.h>

#include <array>
#include <ctime>
#include <stdexcept>
#include <tuple>
#include <utility>

// What `time` returns; 0 for the real time.
static constinit std::time_t clockTime = 0;

// Takes the place of the C library's in this program.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): a reserved name.
extern "C" std::time_t time(std::time_t* out) noexcept {
    timespec now{.tv_sec = clockTime, .tv_nsec = 0};
    if (clockTime == 0) clock_gettime(CLOCK_REALTIME, &now);
    if (out != nullptr) *out = now.tv_sec;
    return now.tv_sec;
}

namespace Tarvik {
namespace {

// The zones of the environment, and the clock. Those of before are looked up anew behind it.
class Zones {
public:
    Zones(const char* own, const char* system, std::time_t now = 0)
        : ownZone("TARVIK_TZ", own), zone("TZ", system) {
        clockTime = now;
        forget();
        tzset();  // As for a process that begins in this environment.
    }
    Zones(const Zones&) = delete;
    Zones& operator=(const Zones&) = delete;
    ~Zones() {
        clockTime = 0;
        forget();
    }

private:
    static void forget() {
        DateTime::DefaultTZ = nullptr;
        DateTime::TZSet = false;
    }

    tarvik_test::ScopedEnv ownZone;
    tarvik_test::ScopedEnv zone;
};

constexpr auto gmt = "+00:00";
constexpr auto north = "+01:00 (+01:00 3M5W6D2H-10M5W6D3H)";
constexpr auto south = "+10:00 (+01:00 10M1W6D2H-4M1W6D3H)";

struct TextCase {
    const char* text;
    long seconds;
    const char* ownZone = gmt;
};

constexpr auto texts = std::to_array<TextCase>({
    {"", 0, north},
    {" \t", 0, north},
    {"abc", 0},
    {"2020-03-01T12:30:00", 1583065800},
    {"20200301T123000", 1583065800},
    {"2020-03-01 12:30", 1583065800},
    {"2020-03-01", 1583020800},
    {"2020-03", 1583020800},
    {"202003", 1583020800},
    {"2020035", 1583366400},
    {"20200319", 1584576000},
    {"2020-03-01T24:60", 1583107140},
    {"20200301x", 0},
    {" 20200301", 0},
    {"2020-03-01T1230x", 1583020800},
    // The seconds of a compact time are at position 6.
    {"2020-03-01T123045", 1583065800},
    {"2020-03-01T12304567", 1583065859},
    {"2020-03-01T1230", 1583065800},
    // Out of range is brought into it, and the last instant cuts as a chain.
    {"2020-13-45", 1609372800},
    {"2020-02-30", 1582934400},
    {"2020--01", 1577836800},
    {"99999999999999999999-01-01", 0},
    {"2040-01-01", 2145916800},
    {"2040-06-25", 2147472000},
    {"2040-06-15", 2147126400},
    {"2040-06-25T04:20", 2147483640},
    {"2038-12-31", 2177366400},
    {"1960-01-01", -7200, "+02:00"},
    // Zones behind the time.
    {"2020-03-01T12:30:00+02:00", 1583058600},
    {"2020-03-01T12:30:00+0200", 1583058600},
    {"2020-03-01T12:30:00+120", 1583058600},
    {"2020-03-01T12:30:00-02:00", 1583073000},
    {"2020-03-01T12:30:00+02:00x", 1583065800},
    {"2020-03-01T12:30:00+9999", 1583065800 - (99 * 60 + 99) * 60},
    {"2020-03-01T12:30:00+99999", 1583065800},
    {"2020-07-01T12:00+01:00 (+01:00 3M5W6D2H-10M5W6D3H)", 1593597600},
    // Daylight time.
    {"2020-01-01T12:00", 1577876400, north},
    {"2020-07-01T12:00", 1593597600, north},
    {"2020-07-01T12:00+02:00", 1593597600, north},
    {"2020-07-01T12:00+120", 1593597600, north},
    {"2020-03-29T02:30", 1585441800, north},
    {"2020-10-25T02:30", 1603585800, north},
    {"2020-10-25T03:00", 1603591200, north},
    {"2020-10-25T02:30+02:00", 1603585800, north},
    {"2020-10-25T02:30+01:00", 1603589400, north},
    {"2020-01-01T12:00", 1577840400, south},
    {"2020-07-01T12:00", 1593568800, south},
    {"2020-04-05T03:00", 1586019600, south},
    // What is wrong with the zone of the environment.
    {"2020-07-01T12:00", 1593604800, "nonsense"},
    {"2020-07-01T12:00", 1593601200, "+01:00 (+01:00 3M6W6D2H-10M5W6D3H)"},
    {"2020-07-01T12:00", 1593601200, "+01:00 (+01:00 3M5W6D2H-10M5W6D24H)"},
    {"2020-07-01T12:00", 1593601200, "+01:00 (+01:00 3M0W6D2H-10M5W6D3H)"},
    {"2020-07-01T12:00", 1593601200, "+01:00 (+01:00 3M5W7D2H-10M5W6D3H)"},
    {"2020-07-01T12:00", 1593601200, "+01:00 (+01:00 0M5W6D2H-9M5W6D3H)"},
    {"2020-07-01T12:00", 1593590400, "+01:00 (+01:00 1M5W6D2H-11M5W6D3H)"},
    {"2020-07-01T12:00", 1593604800, "x01:00"},
    {"2020-07-01T12:00", 1593561600, "+12:00"},
    {"2020-07-01T12:00", 1593590400, "+13:00"},
    {"2020-07-01T12:00", 1593590400, "+01:00 (+01:00 3M5W6D2H-5M5W6D3H)"},
    {"2020-07-01T12:00", 1593590400, " "},
});

TEST(DateTimeTest, ATextBecomesAnInstantWhateverIsWrongWithIt) {
    for (const TextCase& row : texts) {
        const Zones zones(row.ownZone, "SYS-4");
        EXPECT_EQ(DateTime(row.text).getInternalTime(), row.seconds)
            << '"' << row.text << "\" in " << row.ownZone;
    }
}

TEST(DateTimeTest, MinutesBeyond32BitsCountAsTheFarthest) {
    const Zones zones(gmt, "");
    TzDef zone;
    zone.fromString("99999999999999999999", DateTime());
    EXPECT_EQ(zone.offset, 2147483647L * 60);
}

TEST(DateTimeTest, ACompactTimeOfFiveDigitsThrows) {
    const Zones zones(gmt, "");
    EXPECT_THROW(DateTime("2020-03-01T12304"), std::out_of_range);
}

TEST(DateTimeTest, TheLastDayOfAMonthIsTheOneBeforeTheNextMonth) {
    for (int month = 1; month < 12; ++month) {
        DateTime last;
        DateTime next;
        last.set(2019, month, 31, 0, 0, 0, {}, false);
        next.set(2019, month + 1, 1, 0, 0, 0, {}, false);
        EXPECT_EQ(last.getInternalTime() + 86400, next.getInternalTime()) << month;
    }
}

TzDef zoneOf(const char* text) {
    TzDef zone;
    zone.fromDstString(text);
    return zone;
}

TEST(DateTimeTest, AZoneThatIsNotSetIsGmtAndABlankTextForgetsTheZone) {
    DateTime moment;
    moment.set(2020, 7, 1, 12, 0, 0, TzDef{.offset = 3600}, false);
    EXPECT_EQ(moment.getInternalTime(), 1593604800);
    moment.set(2020, 7, 1, 12, 0, 0, zoneOf(north), false);
    EXPECT_EQ(moment.getInternalTime(), 1593601200) << "without the daylight shift";
    EXPECT_TRUE(moment.getZone() == zoneOf(north));
    moment.set(" ");
    EXPECT_TRUE(moment.isNull() && moment.getZone() == TzDef());
}

constexpr std::time_t january2010 = 1263513600;
constexpr std::time_t july2010 = 1279152000;
constexpr std::time_t january2026 = 1768435200;

TEST(DateTimeTest, InSummerADateOfThatSeasonWithoutAZoneIsShiftedTwice) {
    const Zones zones("", "STD-1DST,M4.1.0/2,M10.1.0/3", july2010);
    EXPECT_EQ(DateTime("2020-01-01T12:00").getInternalTime(), 1577872800) << "10:00 GMT";
    EXPECT_EQ(DateTime("2020-07-01T12:00").getInternalTime(), 1593594000) << "9:00 GMT";
}

struct SystemCase {
    const char* name;
    const char* zone;
    std::time_t now;
    const char* rules;
};

constexpr auto systemZones = std::to_array<SystemCase>({
    {"no changes", "STD+3:30", january2010, "-03:30"},
    {"the last of a weekday", "STD-1DST,M3.5.0,M10.5.0/3", january2010, north},
    {"half an hour", "STD-10DST-10:30,M3.5.0,M10.5.0", january2010,
     "+10:00 (+00:30 3M5W6D2H-10M5W6D2H)"},
    {"the offset in summer holds the shift", "STD5DST,M3.2.0,M11.1.0", july2010,
     "-04:00 (+01:00 3M2W6D3H-11M1W6D3H)"},
    {"in the south", "STD-10DST,M10.1.0,M4.1.0/3", july2010, south},
    {"the last Friday beside five Sundays", "STD0DST,M3.5.5,M11.5.5", january2026,
     "+00:00 (+01:00 3M4W4D2H-11M4W4D2H)"},
    {"changes two months apart are dropped", "STD0DST,M3.2.0,M5.2.0", january2010, gmt},
});

TEST(DateTimeTest, TheSystemsChangesBecomeRules) {
    for (const SystemCase& row : systemZones) {
        const Zones zones("", row.zone, row.now);
        EXPECT_TRUE(DateTime::currentTz() == zoneOf(row.rules)) << row.name;
    }
}

TEST(DateTimeTest, TheSystemsZoneIsKeptForAnHourUnlessTheClockIsPutBack) {
    for (const auto& [later, offset] : {std::pair(3599L, 3600L), {3600L, 7200L}, {-1L, 7200L}}) {
        const Zones zones("", "OLD-1", july2010);
        EXPECT_EQ(DateTime::calcCurrentTz().offset, 3600);
        const tarvik_test::ScopedEnv changed("TZ", "NEW-2");
        tzset();
        clockTime = july2010 + later;
        EXPECT_EQ(DateTime::calcCurrentTz().offset, offset) << later << " seconds later";
    }
}

// October 2019 begins on a Tuesday and has five of them, but four Sundays; November 2020 has five
// Sundays, but four Tuesdays.
TEST(DateTimeTest, TheWeeksOfAMonthAreCountedByItsSundays) {
    const TzDef october = zoneOf("+00:00 (+01:00 10M5W1D2H-4M1W6D3H)");
    EXPECT_EQ(october.getDstStart(2019), 1571709600) << "Tuesday the 22nd";
    const TzDef november = zoneOf("+00:00 (+01:00 11M5W1D2H-4M1W6D3H)");
    EXPECT_EQ(november.getDstStart(2020), 1606788000) << "Tuesday the 1st of December";
}

TEST(DateTimeTest, AYearAfter9999HasTheChangesOf9999) {
    for (const unsigned long year : {9999UL, 10000UL})
        EXPECT_EQ(zoneOf(north).getDstStart(year), 253378198800) << year;
}

constexpr long northStart = 1585443600;  // 2020-03-29 01:00 GMT
constexpr long northEnd = 1603587600;    // 2020-10-25 01:00 GMT
constexpr long southEnd = 1586016000;    // 2020-04-04 16:00 GMT
constexpr long southStart = 1601740800;  // 2020-10-03 16:00 GMT

TEST(DateTimeTest, AMomentNearAChangeHasAPositionOfItsOwn) {
    using Row = std::tuple<const char*, long, DstNearness>;
    for (const auto& [zone, instant, nearness] : {Row{north, northStart - 3601, NotInDaylightTime},
                                                  {north, northStart - 3600, NearDaylightStart},
                                                  {north, northStart, InDaylightTime},
                                                  {north, northEnd + 3599, InDaylightTime},
                                                  {north, northEnd + 3600, NotInDaylightTime},
                                                  {south, southEnd - 3601, InDaylightTime},
                                                  {south, southEnd - 3600, NearDaylightEnd},
                                                  {south, southEnd + 3599, NearDaylightEnd},
                                                  {south, southEnd + 3600, NotInDaylightTime},
                                                  {south, southStart - 3600, NotInDaylightTime},
                                                  {south, southStart - 1, NearDaylightStart},
                                                  {south, southStart, InDaylightTime},
                                                  {gmt, northStart, NotInDaylightTime}}) {
        DateTime moment;
        moment.setInternalTime(instant);
        EXPECT_EQ(zoneOf(zone).dstQuickTest(moment), nearness) << zone << instant;
    }
}

TEST(DateTimeTest, ATimeFaultOfAnUnknownCodeReadsAsTheGeneralOne) {
    const TimeException known(TimeInput);
    EXPECT_EQ(known.getName(), "TM_INPUT");
    EXPECT_EQ(known.getMessage(), "Illegal input format.");
    EXPECT_EQ(known.getModule(), "Time");
    for (const int code : {-1, 11}) {
        const TimeException unknown(code);
        EXPECT_EQ(unknown.getCode(), code);
        EXPECT_EQ(unknown.getName(), "TM_DATETIME");
        EXPECT_STREQ(unknown.what(), "Illegal date and/or time.");
    }
}

}  // namespace
}  // namespace Tarvik
