#include "libraries/corelib/source/time/TimeZone.h"

#include "libraries/corelib/test/time/TimeTexts.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace TarvikCorelib {
namespace {

constexpr auto newfoundland = "-03:30 (+01:00 3M2W6D2H-11M1W6D2H)";
constexpr auto lastWeeks = "+00:00 (+01:00 3M5W5D2H-10M5W4D3H)";
constexpr TimeType january = 3471379200000;  // 1 January 2010.
constexpr TimeType july = 3487017600000;     // 1 July 2010.

constexpr auto texts = std::to_array<TextCase>({
    {"without a colon", "-0030", "-00:30"},
    {"nothing may follow it", "+01:00 ", "+00:00"},
    {"milliseconds from seven digits on, cut", "7259999", "+02:00"},
    {"a number takes no plus", "+120", "+00:00"},
    {"but a minus", "-120", "-02:00"},
    {"one month apart", "+01:00 (+01:00 3M5W6D2H-4M5W6D3H)", "+01:00"},
    {"two", "+00:00 (+01:00 5M5W6D2H-3M5W6D3H)", "+00:00 (+01:00 5M5W6D2H-3M5W6D3H)"},
    {"ten", "+00:00 (+01:00 1M1W0D0H-11M1W0D0H)", "+00:00 (+01:00 1M1W0D0H-11M1W0D0H)"},
    {"eleven", "+01:00 (+01:00 1M1W0D0H-12M1W0D0H)", "+01:00"},
    {"all fields", "-03:30 (+01:45 4M3W2D1H-9M4W5D23H)", "-03:30 (+01:45 4M3W2D1H-9M4W5D23H)"},
    {"a bad rule", "+01:00 (+01:00 3M5W6D24H-10M5W6D3H)", "+01:00"},
});

TEST(TimeZoneTest, AnyTextSetsAZoneAndTheLongFormPrintsAsItWasRead) {
    for (const auto& [name, text, printed] : texts) {
        EXPECT_EQ(TimeZone(text).getString(), printed) << name;
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
constexpr auto changes = std::to_array<std::array<const char*, 4>>({
    {"north, the start", europe, "2010-03-28T01Z", "0001111 2331111"},
    {"north, the end", europe, "2010-10-31T01Z", "1110000 1111122"},
    {"south, the end", australia, "2010-04-03T16Z", "1110000 1444442"},
    {"south, the start", australia, "2010-10-02T16Z", "0001111 2331111"},
    {"Sunday the 1st", "+00:00 (+01:00 3M1W6D2H-10M1W6D3H)", "2009-03-01T02Z", "0001111 2331111"},
    {"four Sundays, five Fridays", lastWeeks, "2015-10-23T02Z", "1110000 1111122"},
    {"five Sundays, four Saturdays", lastWeeks, "2009-04-04T02Z", "0001111 2331111"},
    {"too far west", "-12:01", "2010-07-01T00Z", "0000000 0000000"},
});

// Quirks: the number of Sundays limits the week of every weekday. A week that the month does not
// have lies in the next one.
TEST(TimeZoneTest, DaylightTimeBeginsAndEndsWithTheWeeksCountedInSundays) {
    for (const auto& [name, zone, text, expected] : changes) {
        std::string daylight;
        std::string near = " ";
        for (const int minutes : {-61, -60, -1, 0, 59, 60, 61}) {
            DateTime instant(text);
            instant.set(instant.time() + static_cast<TimeType>(minutes * 60000LL));
            daylight += TimeZone(zone).isDST(instant) ? "1" : "0";
            near += std::to_string(TimeZone(zone).dstQuickTest(instant));
        }
        EXPECT_EQ(daylight + near, expected) << name;
    }
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
