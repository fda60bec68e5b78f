#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/time/TickTimer.h"
#include "libraries/corelib/source/time/TimeZone.h"
#include "libraries/corelib/test/time/TimeTexts.h"
#include "test/support/TimeStateGuard.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace TarvikCorelib {
namespace {

constexpr std::time_t july = 1279152000;  // 15 July 2010.

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

// Without daylight time, in the north, in the south, changes in September, by two hours, to
// midnight and across it. Half an hour is the step, as the full hours of some zones lie there.
TEST(TimeZoneSystemTest, LocalTimeIsThatOfTheCLibraryForAYear) {
    for (const char* const variable :
         {"STD-5:30", "STD-1DST,M3.5.0,M10.5.0/3", "STD3:30DST,M1.2.0,M11.1.0",
          "STD-10DST,M10.1.0,M4.1.0/3", "STD-12DST,M9.5.0,M4.1.0/3", "STD12DST,M9.1.3,M12.2.3",
          "STD0DST-2,M3.5.0/1,M10.5.0/3", "STD-1DST,M3.2.6/23,M10.2.0/1",
          "STD-1DST-3,M3.2.6/23,M10.2.0/1"}) {
        const tarvik_test::TimeStateGuard state(variable);
        const TimeZone zone = systemZone(july);
        for (std::time_t time = 1262304000; time < 1293840000; time += 1800) {
            std::tm local = {};
            localtime_r(&time, &local);
            const DateTime instant(unixEpoch + static_cast<TimeType>(time) * 1000);
            ASSERT_EQ(zone.getGmtLocalDiff(instant), local.tm_gmtoff * 1000) << variable << time;
        }
    }
}

// Offset, shift and rules of the zone that is found then.
std::string seen(const char* variable, std::time_t now = july) {
    const tarvik_test::TimeStateGuard state(variable);
    const TimeZone zone = systemZone(now);
    return TimeZone::toString(zone.getOffset()) + " " + TimeZone::toString(zone.getDstLength()) +
           " " + zone.getStartRule().toString() + "-" + zone.getEndRule().toString();
}

constexpr auto otherZones = std::to_array<TextCase>({
    {"a fourth is the last", "STD-1DST,M3.4.0,M10.4.0/3", "+01:00 +01:00 3M5W6D2H-10M5W6D3H"},
    {"half an hour", "STD-1DST-1:30,M3.2.0,M10.2.0/3", "+01:00 +00:00 0M0W0D0H-0M0W0D0H"},
    {"half an hour, south", "STD-10:30DST-11,M10.1.0,M4.1.0", "+10:30 +01:00 10M1W6D2H-4M1W6D2H"},
    {"a shift in winter", "STD-1DST0,M10.2.0,M3.2.0/1", "+00:00 +01:00 3M2W6D1H-10M2W6D2H"},
    {"a midnight", "STD-1DST,M3.2.0/0,M10.2.0/3", "+01:00 +01:00 3M2W5D24H-10M2W6D3H"},
    {"back at midnight", "STD-1DST,M3.2.0,M10.2.0/0", "+01:00 +01:00 3M2W6D2H-10M2W5D24H"},
    {"within 90 days", "STD-1DST,M3.2.0,M6.1.0/3", "+01:00 +01:00 3M2W6D2H-0M0W0D0H"},
});

TEST(TimeZoneSystemTest, TheWalkMistakesFourthWeeksMidnightsPartsOfAnHourAndCloseChanges) {
    for (const auto& [name, variable, zone] : otherZones)
        EXPECT_EQ(seen(variable), zone) << name;
}

TEST(TimeZoneSystemTest, TheOffsetIsTakenInSummerOn31MayAndBefore1970From2039On) {
    // On "31 September", a day of summer.
    EXPECT_EQ(seen("STD-10DST,M10.1.0,M4.1.0", 1496260800), "+11:00 +01:00 10M1W6D2H-4M1W6D2H");
    // In the second before the epoch, or nowhere if its local year is 1969.
    EXPECT_EQ(seen("STD-1DST,M3.2.0,M10.2.0/3", 2194300800), "+01:00 +01:00 3M2W6D2H-10M2W6D3H");
    EXPECT_EQ(seen("STD1DST,M3.2.0,M10.2.0/3", 2194300800), "+00:00 +01:00 3M2W6D2H-10M2W6D3H");
}

TEST(TimeZoneSystemTest, AZoneThatIsNotValidHasTheLocalTimeOfTheSystemOrItsOffset) {
    const tarvik_test::TimeStateGuard state("STD-1DST,M3.2.0,M10.2.0");
    const DateTime instant(read("2010-07-15TZ"));
    systemZone(july);
    EXPECT_EQ(TimeZone("+13:00").getGmtLocalDiff(instant), 7200000);
    EnvTools::set("TZ", "STD-3DST,M3.2.0,M5.2.0");
    EXPECT_EQ(systemZone(july).getGmtLocalDiff(instant), 10800000);
}

// In the first call the variable has filled the default. Ticks are nanoseconds.
TEST(TimeZoneSystemTest, TheSystemsZoneIsFoundByTheFirstCallAfterAnHourByForceAndAfterAReset) {
    const tarvik_test::TimeStateGuard state("STD0");
    EnvTools::set("TARVIK_TZ", "+05:00");
    const auto hours = [](const char* variable, bool force, unsigned long long tick) {
        EnvTools::set("TZ", variable);
        TimeZone zone;
        zone.setCurrent(force, {tick, july});
        return zone.getOffset() / 3600000;
    };
    EXPECT_EQ(hours("STD-1", false, 1), 1);
    EXPECT_EQ(hours("STD-2", false, 3600000000001), 1);
    EXPECT_EQ(hours("STD-2", false, 3600001000001), 2);
    EXPECT_EQ(hours("STD-3", true, 3600001000001), 3);
    TimeZone::resetDefault();
    EXPECT_EQ(hours("STD-4", false, 3600001000001), 4);
}

TEST(TimeZoneSystemTest, TheVariableFillsTheDefaultWhenTheFirstZoneIsMade) {
    const tarvik_test::TimeStateGuard state("STD-1");
    EnvTools::set("TARVIK_TZ", "+05:00");
    EXPECT_FALSE(TimeZone().isSet());
    EXPECT_EQ(TimeZone::CustomDefaultTZ.getOffset(), 18000000);
    EnvTools::set("TARVIK_TZ", "+06:00");
    EnvTools::set("TZ", "STD-2");
    TimeZone::setTZ(true);
    EXPECT_EQ(timezone, -7200) << "the C library looks at its variable, too";
    EnvTools::set("TARVIK_TZ", "");
    TimeZone::setTZ(true);
    EXPECT_EQ(TimeZone::CustomDefaultTZ.getOffset(), 21600000);
    TimeZone::HaveEnvTZ = false;
    const TimeZone copy(TimeZone::CustomDefaultTZ);
    EXPECT_TRUE(TimeZone::HaveEnvTZ) << "a copy is one";
}

}  // namespace
}  // namespace TarvikCorelib
