#include "libraries/corelib/source/time/DateTime.h"

#include "libraries/corelib/source/time/TimeSpan.h"
#include "libraries/corelib/test/time/TimeTexts.h"
#include "test/support/TimeStateGuard.h"

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

namespace TarvikCorelib {
namespace {

std::string shown(const DateTime& instant) {
    return instant.getGmtString(true, false, false);
}

TEST(DateTimeTest, ADateHasTenPlacesAndAFebruary29EveryFourthYear) {
    for (const char* const text :
         {"2010-01-02", "1000-01-31", "9999-12-31", "2000-02-29", "1900-02-29", "2100-02-29"})
        EXPECT_TRUE(DateTime::isDate(text)) << text;
    for (const char* const text :
         {"", "0999-12-31", "2010-00-01", "2010-13-01", "2010-01-00", "2010-01-32", "2010-04-31",
          "2010-02-29", "2010-1-01", "201-001-01", "2010/01/02", "2010-01-0x", "2010-01-02T"})
        EXPECT_FALSE(DateTime::isDate(text)) << text;
}

TEST(DateTimeTest, OnlyTheShortNamesAreMonthsAndAvriIsNone) {
    for (const std::string_view text :
         {"01 JAN", "05 may", "12 Dec", "01 janv", "02 F\351VR", "08 ao\373t", "12 d\351c",
          "05 mai", "01 gen", "10 ott", "12 dic", "00 avri", "00 Avri", "00 january", "00 "})
        EXPECT_EQ(DateTimeDetails::format(DateTime::mapMonth(text.substr(3)), 2), text.substr(0, 2))
            << text;
}

TEST(DateTimeTest, FieldsAreTakenAsGmtOrInAZoneThatIsAskedForThemAsGmt) {
    DateTime instant(0, TimeZone("+05:30"));
    instant.setGmt(2010, 13, 1, 2, 3, 4, 5);
    EXPECT_EQ(shown(instant), "2011-01-01T02:03:04.005Z");
    instant.setLocal(2010, 7, 1, 2, 3, 4, 5);
    EXPECT_EQ(shown(instant), "2010-06-30T20:33:04.005Z");
    // Half an hour before the clock of that zone goes ahead.
    instant.setTZ(TimeZone(europe), 2010, 3, 28, 1, 30, 0, 0);
    EXPECT_EQ(instant.getLocalString(true, false, true), "2010-03-28T05:00:00.000+05:30");
    instant.set("2010-07-01");
    EXPECT_EQ(shown(instant), "2010-06-30T18:30:00.000Z");
}

TEST(DateTimeTest, OnlyAValidZoneIsTakenOver) {
    DateTime instant(0, TimeZone(europe));
    instant.set(86400000, TimeZone("-13:00"));
    EXPECT_EQ(instant.getTimeZone().getString(), europe);
    EXPECT_FALSE(DateTimeDetails(1, TimeZone("+13:00")).getTimeZone().isSet());
    instant.compensateForDSTEndTime();
    EXPECT_EQ(instant.time(), 90000000U);
    instant.set(DateTimeDetails("2010-01-02T10:00+02:00"));
    EXPECT_EQ(instant.getLocalString(false, false, true), "2010-01-02T10:00:00+02:00");
}

TEST(DateTimeTest, ADateAloneNeedsTheZoneOfTheSystemOnlyAsAnInstant) {
    const tarvik_test::TimeStateGuard guard("STD-1");
    EXPECT_FALSE(DateTimeDetails("2010-01-02").getTimeZone().isSet());
    EXPECT_FALSE(TimeZone::CustomDefaultTZ.isSet());
    EXPECT_EQ(DateTimeDetails("2010-01-02T10:00").getTimeZone().getOffset(), 3600000);
    const DateTime instant("2010-01-02");
    EXPECT_TRUE(instant.getTimeZone().isSet());
    EXPECT_EQ(shown(instant), "2010-01-01T23:00:00.000Z");
}

TEST(DateTimeTest, SumsOfCountsStopAtTheirEnds) {
    constexpr TimeType last = DateTime::getMaxTime();
    EXPECT_EQ((DateTime(5) += TimeSpan(-6)).time(), 0U);
    EXPECT_EQ((DateTime(5) -= TimeSpan(6)).time(), 0U);
    EXPECT_EQ((DateTime(last - 5) += TimeSpan(6)).time(), last);
    EXPECT_EQ((DateTime(last - 5) -= TimeSpan(-6)).time(), last);
    EXPECT_EQ((DateTime(last) += TimeSpan("P1M")).time(), last);
    EXPECT_EQ((DateTime(read("1900-01-15TZ")) -= TimeSpan("P1M")).time(), 0U);
    EXPECT_EQ((DateTime(read("2010-05-05TZ")) += TimeSpan("P-200Y")).time(), 0U);
    const DateTime first(3599999, TimeZone("-01:00"));
    EXPECT_EQ(first.getLocalString(true, false, false), "1900-01-01T00:00:00.000");
}

TEST(DateTimeTest, MonthsAreAddedInGmt) {
    EXPECT_EQ(shown(DateTime(read("2010-01-31T23:30Z")) += TimeSpan("P1M")),
              "2010-03-03T23:30:00.000Z");
    EXPECT_EQ(shown(DateTime(read("2010-03-31T22:30Z")) -= TimeSpan("P1M")),
              "2010-03-03T22:30:00.000Z");
}

// A system beyond the range of a zone: local fields are read and labelled as they were made.
TEST(DateTimeTest, LocalFieldsWithoutAUsableZoneAreThoseOfTheSystem) {
    const tarvik_test::TimeStateGuard guard("STD-13");
    const DateTime instant("2010-07-31T12:00Z");
    EXPECT_EQ(instant.getLocalString(false, false, true), "2010-08-01T01:00:00+13:00");
    DateTimeDetails details(instant.time());
    details.makeLocal(TimeZone("+14:00"));
    EXPECT_EQ(details.getString(false, false, true), "2010-08-01T01:00:00+13:00");
    EXPECT_EQ(details.getTimeType(), instant.time());
    DateTime unset(instant.time());
    unset.alignLocalMonths(1);
    EXPECT_EQ(shown(unset), "2010-08-31T11:00:00.000Z");
}

// Each text holds an instant, a step and the aligned instant.
template <class Align>
void expectAligned(Align align, std::initializer_list<const char*> texts,
                   const char* zone = europe) {
    for (const char* const text : texts) {
        const auto words = wordsOf(text);
        DateTime instant(read(words[0], zone));
        std::invoke(align, instant, std::stoul(words[1]));
        EXPECT_EQ(shown(instant), shown(DateTime(read(words[2])))) << text;
    }
}

TEST(DateTimeTest, AStepAlignsBackAndAWeekToMonday) {
    expectAligned(
        &DateTime::alignGmt,
        {"2010-07-01T10:20Z 0 2010-07-01T10:20Z", "1900-01-01T00:00:20Z 7000 1900-01-01T00:00:15Z",
         "2010-06-28T10:20Z 604800000 2010-06-28TZ", "2010-07-04T10Z 604800000 2010-06-28TZ"});
}

TEST(DateTimeTest, AStepInAZoneAlignsToItsClockAcrossTheChanges) {
    const auto align = [](DateTime& instant, TimeType step) {
        instant.alignTZ(step, instant.getTimeZone());
    };
    expectAligned(align, {"2010-07-01T10:20Z 3600000 2010-07-01T09:30Z"}, "+05:30");
    // Changes on Wednesdays, 3 March and 6 October.
    expectAligned(
        align,
        {"2010-07-01T10:20Z 0 2010-07-01T10:20Z", "2010-07-01T22:20Z 86400000 2010-07-01T22Z",
         "2010-03-03T10Z 86400000 2010-03-02T23Z", "2010-10-06T10Z 86400000 2010-10-05T22Z",
         "2010-03-04T10Z 604800000 2010-02-28T23Z", "2010-10-07T10Z 604800000 2010-10-03T22Z"},
        "+01:00 (+01:00 3M1W2D2H-10M1W2D3H)");
}

TEST(DateTimeTest, MonthsAndYearsAlignForward) {
    expectAligned(&DateTime::alignGmtMonths,
                  {"2010-02-15TZ 0 2010-02-15TZ", "2010-02-15TZ 1 2010-03-01TZ",
                   "2010-02-01T::1Z 1 2010-03-01TZ", "2010-02-01TZ 1 2010-02-01TZ",
                   "2010-11-15TZ 3 2011-01-01TZ", "2010-12-15TZ 5 2011-04-01TZ"});
    expectAligned(&DateTime::alignLocalMonths,
                  {"2010-01-31T23Z 1 2010-01-31T23Z", "2010-03-15TZ 1 2010-03-31T22Z"});
    expectAligned(&DateTime::alignGmtYears,
                  {"2010-01-01TZ 0 2010-01-01TZ", "2010-01-01TZ 10 2010-01-01TZ",
                   "2010-01-01T::1Z 10 2020-01-01TZ"});
    expectAligned(&DateTime::alignLocalYears,
                  {"2009-12-31T23Z 1 2009-12-31T23Z", "2010-06-15TZ 1 2010-12-31T23Z"});
}

}  // namespace
}  // namespace TarvikCorelib
