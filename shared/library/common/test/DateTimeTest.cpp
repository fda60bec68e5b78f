#include "shared/library/common/DateTime.h"

#include "shared/library/common/TimeException.h"
#include "test/support/ScopedEnv.h"

#include <gtest/gtest.h>

#include <array>
#include <ctime>
#include <stdexcept>
#include <tuple>
#include <utility>

// What `time` returns.
static constinit std::time_t clockTime = 0;

// Takes the place of the C library's in this program.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): a reserved name.
extern "C" std::time_t time(std::time_t* out) noexcept {
    if (out != nullptr) *out = clockTime;
    return clockTime;
}

namespace Tarvik {
namespace {

// The environment and the clock of a process that has not asked for a zone yet. What it then finds
// stays behind: each test that needs a zone makes its own.
struct Zones {
    Zones(const char* own, const char* system, std::time_t now = 0)
        : ownZone("TARVIK_TZ", own), systemZone("TZ", system) {
        clockTime = now;
        DateTime::DefaultTZ = nullptr;
        DateTime::TZSet = false;
        tzset();
    }

    tarvik_test::ScopedEnv ownZone;
    tarvik_test::ScopedEnv systemZone;
};

constexpr auto gmt = "+00:00";
constexpr auto north = "+01:00 (+01:00 3M5W6D2H-10M5W6D3H)";
constexpr auto south = "+10:00 (+01:00 10M1W6D2H-4M1W6D3H)";

// The seconds of a compact time are at position 6. What is out of range is brought into it, and the
// last instant cuts as a chain.
constexpr auto texts = std::to_array<std::pair<const char*, long>>({
    {"2020-03-01 12:30", 1583065800},
    {"2020-03", 1583020800},
    {"2020035", 1583366400},
    {"20200319", 1584576000},
    {"2020-03-01T24:60", 1583107140},
    {"20200301x", 0},
    {" 20200301", 0},
    {"2020-03-01T1230x", 1583020800},
    {"2020-03-01T123045", 1583065800},
    {"2020-03-01T12304567", 1583065859},
    {"2020-03-01T1230", 1583065800},
    {"2020-13-45", 1609372800},
    {"2020-02-30", 1582934400},
    {"99999999999999999999-01-01", 0},
    {"2040-06-15", 2147126400},
    {"2040-06-25T04:20", 2147483640},
    {"2038-12-31", 2177366400},
    {"2020-03-01T12:30:05+02:00", 1583058605},
    {"2020-03-01T12:30:00+120", 1583058600},
    {"2020-03-01T12:30:00-02:00", 1583073000},
    {"2020-03-01T12:30:00+02:00x", 1583065800},
    {"2020-03-01T12:30:00+9999", 1582703460},
    {"2020-03-01T12:30:00+99999", 1583065800},
});

TEST(DateTimeTest, ATextBecomesAnInstantWhateverIsWrongWithIt) {
    for (const auto& [text, seconds] : texts) {
        const Zones zones(gmt, "");
        EXPECT_EQ(DateTime(text).getInternalTime(), seconds) << text;
    }
}

// A text, its instant, and the zone of the environment.
constexpr auto textsInZones = std::to_array<std::tuple<const char*, long, const char*>>({
    {" \t", 0, north},
    {"1960-01-01", -7200, "+02:00"},
    {"2020-07-01T12:00+01:00 (+01:00 3M5W6D2H-10M5W6D3H)", 1593597600, gmt},
    // Daylight time.
    {"2020-03-29T02:30", 1585441800, north},
    {"2020-10-25T02:30+02:00", 1603585800, north},
    {"2020-10-25T02:30+01:00", 1603589400, north},
    {"2020-01-01T12:00", 1577840400, south},
    // What is wrong with the zone.
    {"2020-07-01T12:00", 1593601200, "+01:00 (+01:00 3M6W6D2H-10M5W6D3H)"},
    {"2020-07-01T12:00", 1593601200, "+01:00 (+01:00 3M5W6D2H-10M5W6D24H)"},
    {"2020-07-01T12:00", 1593601200, "+01:00 (+01:00 3M0W6D2H-10M5W6D3H)"},
    {"2020-07-01T12:00", 1593601200, "+01:00 (+01:00 3M5W7D2H-10M5W6D3H)"},
    {"2020-07-01T12:00", 1593601200, "+01:00 (+01:00 0M5W6D2H-9M5W6D3H)"},
    {"2020-07-01T12:00", 1593590400, "+01:00 (+01:00 1M5W6D2H-11M5W6D3H)"},
    {"2020-07-01T12:00", 1593604800, "x01:00"},
    {"2020-07-01T12:00", 1593561600, "+12:00"},
    {"2020-07-01T12:00", 1593590400, "+13:00"},
    {"2020-07-01T12:00", 1593590400, " "},
});

TEST(DateTimeTest, ATextWithoutAZoneIsInTheEnvironmentsZoneOrElseInTheSystems) {
    for (const auto& [text, seconds, zone] : textsInZones) {
        const Zones zones(zone, "SYS-4");
        EXPECT_EQ(DateTime(text).getInternalTime(), seconds) << text << " in " << zone;
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
        const DateTime last(DateTimeT{{2019, month, 31, 0}, {}, {}});
        const DateTime next(DateTimeT{{2019, month + 1, 1, 0}, {}, {}});
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

// A name, the variable of the system, the time, and the zone that is found.
using SystemCase = std::tuple<const char*, const char*, std::time_t, const char*>;

constexpr auto systemZones = std::to_array<SystemCase>({
    {"no changes", "STD+3:30", january2010, "-03:30"},
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
    for (const auto& [name, variable, now, zone] : systemZones) {
        const Zones zones("", variable, now);
        EXPECT_TRUE(DateTime::currentTz() == zoneOf(zone)) << name;
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

// In daylight time, not in it, near its start and near its end, from 1 to 4: at -3601, -3600, -1,
// 0, 3599 and 3600 seconds from a change.
TEST(DateTimeTest, AMomentNearAChangeHasAPositionOfItsOwn) {
    using Row = std::tuple<const char*, const char*, long, const char*>;
    for (const auto& [name, zone, change, expected] :
         {Row{"north, the start", north, 1585443600, "233111"},
          {"north, the end", north, 1603587600, "111112"},
          {"south, the end", south, 1586016000, "144442"},
          {"south, the start", south, 1601740800, "223111"},
          {"no changes", gmt, 1585443600, "222222"}}) {
        std::string found;
        for (const long distance : {-3601L, -3600L, -1L, 0L, 3599L, 3600L}) {
            DateTime moment;
            moment.setInternalTime(change + distance);
            found += std::to_string(zoneOf(zone).dstQuickTest(moment));
        }
        EXPECT_EQ(found, expected) << name;
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
