#include "shared/library/common/DateTime.h"

#include "shared/library/common/TimeException.h"
#include "test/support/ScopedEnv.h"

#include <gtest/gtest.h>

#include <array>
#include <ctime>
#include <stdexcept>

namespace Tarvik {
namespace {

// The zones of the environment; those of before are looked up anew behind it.
class Zones {
public:
    Zones(const char* own, const char* system) : ownZone("TARVIK_TZ", own), zone("TZ", system) {
        forget();
        tzset();  // As for a process that begins in this environment.
    }
    Zones(const Zones&) = delete;
    Zones& operator=(const Zones&) = delete;
    ~Zones() { forget(); }

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
    {"20200301x", 0},
    {" 20200301", 0},
    {"2020-03-01T1230x", 1583020800},
    // The seconds of a compact time stand at position 6.
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

// Of these two zones, one is in daylight time whenever this runs.
TEST(DateTimeTest, TheSystemsOffsetHoldsTheShiftInForceAndDatesInDaylightTimeTakeItOnceMore) {
    long offsets = 0;
    for (const bool northern : {true, false}) {
        const Zones zones("",
                          northern ? "STD-1DST,M4.1.0/2,M10.1.0/3" : "STD-1DST,M10.1.0/2,M4.1.0/3");
        const TzDef& zone = DateTime::calcCurrentTz();
        const long shiftInJanuary = northern ? 0 : 3600;
        EXPECT_EQ(DateTime("2020-01-01T12:00").getInternalTime() + zone.offset,
                  1577880000 - shiftInJanuary);
        EXPECT_EQ(DateTime("2020-07-01").getInternalTime() + zone.offset,
                  1593561600 - 3600 + shiftInJanuary);
        EXPECT_EQ(zone.getDstStart(2020), northern ? 1586048400 : 1601773200);
        EXPECT_EQ(zone.getDstEnd(2020), northern ? 1601773200 : 1586048400);
        offsets += zone.offset;
    }
    EXPECT_EQ(offsets, 3600 + 7200);
}

struct SystemCase {
    const char* name;
    const char* zone;
    long offset;
    long shift;
    long start2010;
};

constexpr auto systemZones = std::to_array<SystemCase>({
    {"no changes", "STD+3:30", -12600, 0, 0},
    {"the last of a weekday", "STD-1DST,M3.5.0,M10.5.0/3", 3600, 3600, 1269738000},
    {"half an hour", "STD-10DST-10:30,M3.5.0,M10.5.0", 36000, 1800, 1269705600},
    {"changes two months apart are not told", "STD0DST,M3.2.0,M5.2.0", 0, 0, 0},
});

TEST(DateTimeTest, TheSystemsChangesAreToldAsRules) {
    for (const SystemCase& row : systemZones) {
        const Zones zones("", row.zone);
        const TzDef& zone = DateTime::currentTz();
        EXPECT_EQ(zone.offset, row.offset) << row.name;
        EXPECT_EQ(zone.dstShift, row.shift) << row.name;
        EXPECT_EQ(zone.getDstStart(2010), row.start2010) << row.name;
    }
}

TzDef zoneOf(const char* text) {
    TzDef zone;
    zone.fromDstString(text);
    return zone;
}

// October 2019 begins on a Tuesday and has five of them, but four Sundays; November 2020 has five
// Sundays, but four Tuesdays.
TEST(DateTimeTest, TheWeeksOfAMonthAreCountedByItsSundays) {
    const TzDef october = zoneOf("+00:00 (+01:00 10M5W1D2H-4M1W6D3H)");
    EXPECT_EQ(october.getDstStart(2019), 1571709600) << "Tuesday the 22nd";
    const TzDef november = zoneOf("+00:00 (+01:00 11M5W1D2H-4M1W6D3H)");
    EXPECT_EQ(november.getDstStart(2020), 1606788000) << "Tuesday the 1st of December";
}

struct NearnessCase {
    const char* zone;
    long moment;
    DstNearness nearness;
};

constexpr long northStart = 1585443600;  // 2020-03-29 01:00 GMT
constexpr long northEnd = 1603587600;    // 2020-10-25 01:00 GMT
constexpr long southEnd = 1586016000;    // 2020-04-04 16:00 GMT
constexpr long southStart = 1601740800;  // 2020-10-03 16:00 GMT

constexpr auto moments = std::to_array<NearnessCase>({
    {north, northStart - 3601, NotInDaylightTime},
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
    {gmt, northStart, NotInDaylightTime},
});

TEST(DateTimeTest, AMomentNearAChangeIsToldApart) {
    for (const NearnessCase& row : moments) {
        DateTime moment;
        moment.setInternalTime(row.moment);
        EXPECT_EQ(zoneOf(row.zone).dstQuickTest(moment), row.nearness) << row.zone << row.moment;
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
