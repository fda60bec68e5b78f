#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/TickTimer.h"
#include "libraries/corelib/source/time/TimeZone.h"
#include "test/support/TimeStateGuard.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace TarvikCorelib {
namespace {

using tarvik_test::TimeStateGuard;

constexpr std::time_t january = 1263513600;  // 15 January 2010.
constexpr std::time_t july = 1279152000;     // 15 July 2010.

DateTime instantOf(std::time_t seconds) {
    return DateTime(unixEpoch + static_cast<TimeType>(seconds) * 1000);
}

// As the process finds it at that time. The tick is a real one: the zone stays for the test.
TimeZone systemZone(std::time_t now) {
    TimeZone zone{TimeZone::Unset()};
    zone.setCurrent(true, {TickTimer::getTickFromNow(0), now});
    return zone;
}

TEST(TimeZoneSystemTest, EpochSecondsAreThoseOfTheCLibraryFrom1970To2038) {
    constexpr std::time_t end = 2177452800;
    for (std::time_t time = -86399; time < end + 86399; time += 86399) {
        std::tm fields = {};
        gmtime_r(&time, &fields);
        ASSERT_EQ(toTime(fields), time < 0 || time >= end ? -1 : time);
    }
}

constexpr auto sameZones = std::to_array<const char*>({
    "STD-5:30",
    "STD-13",  // No daylight time.
    "STD-1DST,M3.5.0,M10.5.0/3",
    "STD3:30DST,M1.2.0,M11.1.0",  // North.
    "STD-10DST,M10.1.0,M4.1.0/3",
    "STD-12DST,M9.5.0,M4.1.0/3",  // South.
    "STD12DST,M9.1.3,M12.2.3",
    "STD0DST-2,M3.5.0/1,M10.5.0/3",  // September. Two hours.
    // To midnight, and across it.
    "STD-1DST,M3.2.6/23,M10.2.0/1",
    "STD-1DST-3,M3.2.6/23,M10.2.0/1",
});

// Half an hour is the step, as the full hours of some zones lie there.
TEST(TimeZoneSystemTest, LocalTimeIsThatOfTheCLibraryForAYear) {
    for (const char* const variable : sameZones) {
        const TimeStateGuard state(variable);
        const TimeZone zone = systemZone(january);
        EXPECT_EQ(systemZone(july).getString(), zone.getString()) << variable;
        for (std::time_t time = 1262304000; time < 1293840000; time += 1800) {
            std::tm local = {};
            localtime_r(&time, &local);
            ASSERT_EQ(zone.getGmtLocalDiff(instantOf(time)), local.tm_gmtoff * 1000) << variable;
            ASSERT_EQ(zone.isDST(instantOf(time)), local.tm_isdst > 0) << variable << time;
        }
    }
}

struct OtherZone {
    const char* name;
    const char* variable;
    const char* seen;
    std::time_t now = july;
};

constexpr auto otherZones = std::to_array<OtherZone>({
    {"a fourth is the last", "STD-1DST,M3.4.0,M10.4.0/3", "60+60 3M5W6D2H-10M5W6D3H"},
    {"half past", "STD-1DST,M3.2.0/2:30,M10.2.0/3:30", "60+60 3M2W6D3H-10M2W6D4H"},
    {"half an hour", "STD-1DST-1:30,M3.2.0,M10.2.0/3", "60+0 0M0W0D0H-0M0W0D0H"},
    {"half an hour, south", "STD-10:30DST-11,M10.1.0,M4.1.0", "630+60 10M1W6D2H-4M1W6D2H"},
    {"a shift in winter", "STD-1DST0,M10.2.0,M3.2.0/1", "0+60 3M2W6D1H-10M2W6D2H"},
    {"a midnight", "STD-1DST,M3.2.0/0,M10.2.0/3", "60+60 3M2W5D24H-10M2W6D3H invalid"},
    {"back at midnight", "STD-1DST,M3.2.0,M10.2.0/0", "60+60 3M2W6D2H-10M2W5D24H invalid"},
    {"within 90 days", "STD-1DST,M3.2.0,M6.1.0/3", "60+60 3M2W6D2H-0M0W0D0H invalid"},
    {"no start", "STD-1DST,M11.2.0,M10.2.0", "120+60 0M0W0D0H-10M2W6D2H invalid"},
    // The offset is taken on "31 September", a day of summer.
    {"31 May 2017", "STD-10DST,M10.1.0,M4.1.0", "660+60 10M1W6D2H-4M1W6D2H", 1496260800},
    // The offset is that of the second before the epoch, or nothing if its year is 1969.
    {"2039, east", "STD-1DST,M3.2.0,M10.2.0/3", "60+60 3M2W6D2H-10M2W6D3H", 2194300800},
    {"2039, west", "STD1DST,M3.2.0,M10.2.0/3", "0+60 3M2W6D2H-10M2W6D3H", 2194300800},
    // The last hour of 2038; 2039 on the local clock.
    {"2038", "STD-1", "-36290820+0 0M0W0D0H-0M0W0D0H invalid", 2177449200},
});

std::string print(const TimeZone& zone) {
    return std::to_string(zone.getOffset() / 60000) + "+" +
           std::to_string(zone.getDstLength() / 60000) + " " + zone.getStartRule().toString() +
           "-" + zone.getEndRule().toString() + (zone.isValid() ? "" : " invalid");
}

TEST(TimeZoneSystemTest, TheWalkMistakesFourthWeeksMidnightsPartsOfAnHourAndCloseChanges) {
    for (const OtherZone& row : otherZones) {
        const TimeStateGuard state(row.variable);
        EXPECT_EQ(print(systemZone(row.now)), row.seen) << row.name;
    }
}

TEST(TimeZoneSystemTest, AZoneThatIsNotValidHasTheLocalTimeOfTheSystemOrItsOffset) {
    const TimeStateGuard state("STD-1DST,M3.2.0,M10.2.0");
    systemZone(july);
    EXPECT_EQ(TimeZone("+13:00").getGmtLocalDiff(instantOf(july)), 7200000);
    EnvTools::set("TZ", "STD-3DST,M3.2.0,M5.2.0");
    EXPECT_EQ(systemZone(july).getGmtLocalDiff(instantOf(july)), 10800000);
}

// In the first call the variable has filled the default.
TEST(TimeZoneSystemTest, TheSystemsZoneIsFoundByTheFirstCallAfterAnHourByForceAndAfterAReset) {
    constexpr unsigned long long begin = 1000000;
    constexpr unsigned long long end = begin + 3600000000000;
    const TimeStateGuard state("STD0");
    EnvTools::set("TARVIK_TZ", "+05:00");
    const auto hours = [](const char* variable, bool force, unsigned long long tick) {
        EnvTools::set("TZ", variable);
        TimeZone zone;
        zone.setCurrent(force, {tick, july});
        return zone.getOffset() / 3600000;
    };
    EXPECT_EQ(hours("STD-1", false, begin), 1);
    EXPECT_EQ(hours("STD-2", false, end), 1);
    EXPECT_EQ(hours("STD-2", false, end + 1000000), 2);
    EXPECT_EQ(hours("STD-3", true, end + 1000000), 3);
    TimeZone::setDefault(TimeZone("+06:00"));
    EXPECT_EQ(hours("STD-4", false, end + 1000000), 6);
    TimeZone::resetDefault();
    EXPECT_EQ(hours("STD-4", false, end + 1000000), 4);
}

TEST(TimeZoneSystemTest, TheVariableFillsTheDefaultWhenTheFirstZoneIsMade) {
    const TimeStateGuard state("STD-1");
    EnvTools::set("TARVIK_TZ", "+05:00");
    TimeZone zone{TimeZone::Unset()};
    zone = TimeZone::CustomDefaultTZ;
    EXPECT_FALSE(TimeZone::HaveEnvTZ) << "an assignment makes none";
    EXPECT_FALSE(TimeZone().isSet());
    EXPECT_EQ(TimeZone::CustomDefaultTZ.getOffset(), 18000000);
    EnvTools::set("TARVIK_TZ", "+06:00");
    TimeZone::setTZ(false);
    EXPECT_EQ(TimeZone::CustomDefaultTZ.getOffset(), 18000000);
    EnvTools::set("TZ", "STD-2");
    TimeZone::setTZ(true);
    EXPECT_EQ(timezone, -7200) << "the C library looks at its variable, too";
    EnvTools::set("TARVIK_TZ", "");
    TimeZone::setTZ(true);
    EXPECT_EQ(TimeZone::CustomDefaultTZ.getOffset(), 21600000);
    TimeZone::HaveEnvTZ = false;
    const TimeZone copy(zone);
    EXPECT_TRUE(TimeZone::HaveEnvTZ && !copy.isSet()) << "a copy is one";
}

}  // namespace
}  // namespace TarvikCorelib
