#include "libraries/corelib/source/time/TimeZone.h"

#include "libraries/corelib/source/time/DateTime.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace TarvikCorelib {
namespace {

constexpr auto europe = "+01:00 (+01:00 3M5W6D2H-10M5W6D3H)";
constexpr auto australia = "+10:00 (+01:00 10M1W6D2H-4M1W6D3H)";
constexpr auto newfoundland = "-03:30 (+01:00 3M2W6D2H-11M1W6D2H)";
constexpr auto withoutAShift = "+01:00 (+00:00 3M5W6D2H-10M5W6D3H)";
constexpr auto firstWeeks = "+00:00 (+01:00 3M1W6D2H-10M1W6D3H)";
constexpr auto lastWeeks = "+00:00 (+01:00 3M5W5D2H-10M5W4D3H)";
constexpr TimeType january = 3471379200000;  // 1 January 2010.
constexpr TimeType july = 3487017600000;     // 1 July 2010.

constexpr auto texts = std::to_array<std::array<const char*, 3>>({
    {"an offset", "+01:00", "+01:00"},
    {"without a colon", "-0530", "-05:30"},
    {"nothing may follow it", "+01:00 ", "+00:00"},
    {"minutes", "120", "+02:00"},
    {"milliseconds from seven digits on", "7200000", "+02:00"},
    {"a number takes no plus", "+120", "+00:00"},
    {"but a minus", "-120", "-02:00"},
    {"the long form", newfoundland, newfoundland},
    {"one month apart", "+01:00 (+01:00 3M5W6D2H-4M5W6D3H)", "+01:00"},
    {"two", "+00:00 (+01:00 5M5W6D2H-3M5W6D3H)", "+00:00 (+01:00 5M5W6D2H-3M5W6D3H)"},
    {"ten", "+00:00 (+01:00 1M1W0D0H-11M1W0D0H)", "+00:00 (+01:00 1M1W0D0H-11M1W0D0H)"},
    {"eleven", "+01:00 (+01:00 1M1W0D0H-12M1W0D0H)", "+01:00"},
    {"a bad rule", "+01:00 (+01:00 3M5W6D2H-10M5W6D24H)", "+01:00"},
});

TEST(TimeZoneTest, AnyTextSetsAZoneAndTheLongFormPrintsAsItWasRead) {
    for (const auto& [name, text, shown] : texts) {
        EXPECT_EQ(TimeZone(text).getString(), shown) << name;
        EXPECT_TRUE(TimeZone(text).isSet() && TimeZone(text).isValid()) << name;
    }
    EXPECT_EQ(TimeZone("+12:01 (+01:00 3M5W6D2H-10M5W6D3H)").getString(), "+12:01");
}

TEST(TimeZoneTest, AnIsoTextWithAReferenceIncludesTheShiftOfTheRulesThatTheZoneHolds) {
    TimeZone zone(newfoundland);
    zone.setISO("-02:30", DateTime(july));
    EXPECT_EQ(zone.getString(), newfoundland);
    zone.setISO("-0330", DateTime(january));
    EXPECT_EQ(zone.getString(), newfoundland);
    zone.setISO("-02:30");
    EXPECT_EQ(zone.getString(), "-02:30");
}

TEST(TimeZoneTest, ANumberTakesTheRulesOfTheReferenceAndSubtractsTheShiftEvenInWinter) {
    TimeZone zone(newfoundland);
    zone.set("120", DateTime(july, TimeZone(europe)));
    EXPECT_EQ(zone.getString(), europe);
    zone.setNumber(120, DateTime(january, TimeZone(europe)));
    EXPECT_EQ(zone.getString(), europe);
    zone.setNumber(-1000000, DateTime(july));
    EXPECT_EQ(zone.getOffset(), -60000000000);
    zone.setNumber(1000001, DateTime(july));
    EXPECT_EQ(zone.getOffset(), 1000001);
}

// Daylight time or not, and how near the change is: at 61, 60, 1 and 0 minutes before an instant
// and 59, 60 and 61 behind it.
constexpr auto changes = std::to_array<std::array<const char*, 5>>({
    {"north, the start", europe, "2010-03-28T01:00:00Z", "0001111", "2331111"},
    {"north, the end", europe, "2010-10-31T01:00:00Z", "1110000", "1111122"},
    {"south, the end", australia, "2010-04-03T16:00:00Z", "1110000", "1444442"},
    {"south, the start", australia, "2010-10-02T16:00:00Z", "0001111", "2331111"},
    {"south, January", australia, "2010-01-01T02:00:00Z", "1111111", "1111111"},
    {"a Sunday on the first", firstWeeks, "2009-03-01T02:00:00Z", "0001111", "2331111"},
    {"four Sundays, five Fridays", lastWeeks, "2015-10-23T02:00:00Z", "1110000", "1111122"},
    {"five Sundays, four Saturdays", lastWeeks, "2009-04-04T02:00:00Z", "0001111", "2331111"},
    {"no shift", withoutAShift, "2010-07-01T00:00:00Z", "0000000", "2222222"},
    {"too far east", "+12:01", "2010-07-01T00:00:00Z", "0000000", "0000000"},
    {"too far west", "-12:01", "2010-07-01T00:00:00Z", "0000000", "0000000"},
});

// Quirks: the number of Sundays limits the week of every weekday. A week that the month does not
// have lies in the next one.
TEST(TimeZoneTest, DaylightTimeBeginsAndEndsWithTheWeeksCountedInSundays) {
    for (const auto& [name, zone, text, isDST, nearness] : changes) {
        std::string daylight;
        std::string near;
        for (const int minutes : {-61, -60, -1, 0, 59, 60, 61}) {
            DateTime instant(text);
            instant.set(instant.time() + static_cast<TimeType>(minutes * 60000LL));
            daylight += TimeZone(zone).isDST(instant) ? "1" : "0";
            near += std::to_string(TimeZone(zone).dstQuickTest(instant));
        }
        EXPECT_EQ(daylight, isDST) << name;
        EXPECT_EQ(near, nearness) << name;
    }
}

TEST(TimeZoneTest, AnIsoTextHasTheWholeOffsetInHoursAndMinutes) {
    EXPECT_EQ(TimeZone(newfoundland).getIsoString(DateTime(july), false), "-02:30");
    EXPECT_EQ(TimeZone(australia).getIsoString(DateTime(july), true), "+1000");
    EXPECT_EQ(TimeZone::toString(-1859999), "-00:30");
}

TEST(TimeZoneTest, OnlyOffsetsAreCompared) {
    EXPECT_EQ(TimeZone("+01:00").compare(TimeZone(europe)), 0);
    EXPECT_EQ(TimeZone("-01:00").compare(TimeZone("-00:59")), -1);
}

TEST(TimeZoneTest, EachFieldOfARuleIsReadByItsLetterAndHasItsRange) {
    DSTTimeDef rule;
    for (const char* const text : {"1M5W6D0H", "0H0D1W12M", "1M", "5W", "6D", "23H"}) {
        rule.fromString(text);
        EXPECT_TRUE(rule.isValid()) << text;
    }
    EXPECT_EQ(rule.toString(), "1M5W6D23H");
    for (const char* const text : {"0M", "13M", "x7M", "0W", "6W", "-1D", "7D", "-1H", "24H"}) {
        DSTTimeDef other = rule;
        other.fromString(text);
        EXPECT_FALSE(other.isValid()) << text;
    }
}

}  // namespace
}  // namespace TarvikCorelib
