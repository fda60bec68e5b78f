#include "libraries/corelib/source/time/DateTimeDetails.h"

#include "libraries/corelib/source/time/TimeSpan.h"
#include "libraries/corelib/test/time/TimeTexts.h"
#include "test/support/TimeStateGuard.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <string>
#include <string_view>

namespace TarvikCorelib {
namespace {

TEST(DateTimeDetailsTest, EachDayFrom1900To2400IsWhereTheCalendarHasIt) {
    namespace chrono = std::chrono;
    const chrono::sys_days zero = chrono::year(1899) / 12 / 31;
    for (TimeType number = 1; number <= 182987; ++number) {
        const chrono::sys_days day = zero + chrono::days(number);
        // By turns the first and the last millisecond of the day.
        const TimeType count = number * 86400000 + number % 2 * 86399999;
        const DateTimeDetails at(count);
        const chrono::year_month_day date(day);
        ASSERT_EQ(at.getYear(), int{date.year()});
        ASSERT_EQ(at.getMonth(), unsigned{date.month()});
        ASSERT_EQ(at.getDay(), unsigned{date.day()});
        ASSERT_EQ(at.getWeekDay(), (chrono::weekday(day) - chrono::Monday).count());
        ASSERT_EQ(at.getYearDay(), (day - chrono::sys_days(date.year() / 1 / 1)).count() + 1);
        ASSERT_EQ(at.getTimeType(), count);

        const auto [y, m, d] = std::array{at.getYear(), at.getMonth(), at.getDay()};
        const chrono::year_month_day_last last = date.year() / date.month() / chrono::last;
        ASSERT_EQ(DateTimeDetails::countDays(y, m, d), number);
        ASSERT_EQ(DateTimeDetails::getDaysInMonth(y, m), unsigned{last.day()});
        ASSERT_EQ(DateTimeDetails::getWeekDay(y, m, d), at.getWeekDay());
        ASSERT_EQ(DateTimeDetails::getYearDay(y, m, d), at.getYearDay());
    }
}

// Years that begin on a Monday, Tuesday, Wednesday, Thursday, Saturday, Sunday and Friday; then the
// end of December.
TEST(DateTimeDetailsTest, WeeksAreThoseOfIsoButInYearsFromAFridayAndAtTheEndOfDecember) {
    for (const std::string_view text :
         {"1900-01-07 1", "1900-01-08 2", "2019-01-06 1", "2020-01-06 2", "2015-01-04 1",
          "2015-01-05 2", "2015-12-31 53", "2022-01-02 52", "2022-01-03 1", "2017-01-01 52",
          "2017-01-02 1", "2021-01-02 53", "2021-01-03 1", "2021-01-09 1", "2021-01-10 2",
          "2019-12-30 53"}) {
        const DateTimeDetails fields = read(text, "+00:00");
        for (const long long week :
             {fields.getWeek(), DateTimeDetails(fields.getTimeType()).getWeek(),
              DateTimeDetails::getWeek(fields.getYear(), fields.getMonth(), fields.getDay())})
            EXPECT_EQ(std::to_string(week), text.substr(11)) << text;
    }
}

std::string normalized(long long year, long long month, long long day, long long hour = 0,
                       long long minute = 0, long long second = 0, long long millisecond = 0) {
    return shown({year, month, day, hour, minute, second, millisecond, false});
}

TEST(DateTimeDetailsTest, FieldsOfAnyValueCarryOverDownToMonthZeroOf1899) {
    EXPECT_EQ(normalized(2010, -12, 15), "2008-12-15T00:00:00.000Z");
    // Months before days.
    EXPECT_EQ(normalized(2011, 15, 0), "2012-02-29T00:00:00.000Z");
    EXPECT_EQ(normalized(2400, 1, -146096), "2000-01-01T00:00:00.000Z");
    EXPECT_EQ(normalized(2010, 1, 9223372036854775807), "25252734927768564-07-26T00:00:00.000Z");
    // Through all fields, and against each other.
    EXPECT_EQ(normalized(2010, 12, 31, 23, 59, 59, 1000), "2011-01-01T00:00:00.000Z");
    EXPECT_EQ(normalized(2010, 1, 1, 0, 0, 0, -1), "2009-12-31T23:59:59.999Z");
    EXPECT_EQ(normalized(2010, 1, 1, 48, -61, 3600, -86400000), "2010-01-01T23:59:00.000Z");
    EXPECT_EQ(normalized(1900, 1, 0), "1899-00-00T00:00:00.000Z");
}

TEST(DateTimeDetailsTest, CountZeroIsShownAsTheFirstDayAndEarlierYearsCountAs1900) {
    EXPECT_TRUE(DateTimeDetails(0).isReset());
    EXPECT_EQ(shown(DateTimeDetails(1)), "1899-12-31T00:00:00.001Z");
    EXPECT_EQ(DateTimeDetails::countDays(1850, 2, 1), 32);
}

TEST(DateTimeDetailsTest, FieldsBeyondTheLargestCountStopThere) {
    DateTimeDetails details;
    details.setEnd();
    EXPECT_EQ(shown(details), "584555949-04-02T14:25:51.615Z");
    details.setMillisecond(616);
    EXPECT_EQ(details.getTimeType(), DateTime::getMaxTime());
}

constexpr auto texts = std::to_array<TextCase>({
    {"by separators", "2010-1-2T3:4:5Z", "2010-01-02T03:04:05.000Z+01:00"},
    {"by width alone", "20100102T030405006", "2010-01-02T03:04:05.006+01:00"},
    {"milliseconds are not scaled", "2010-01-02T03:04:05.5Z", "2010-01-02T03:04:05.005Z+01:00"},
    {"a longer fraction", "2010-01-02T03:04:05:1239", "2010-01-02T03:04:05.123+01:00"},
    {"a blank does not end the date", "2010-01-02 10:00", "2010-01-02T00:00:00.000+01:00"},
    {"no date", "T10:00", "1900-01-01T10:00:00.000+01:00"},
    {"no day is day 0", "2010-02TZ", "2010-01-31T00:00:00.000Z+01:00"},
    {"no digits are 0", "2010-x-02T::5", "2009-12-02T00:00:05.000+01:00"},
    {"beyond the ranges", "2010-13-31T24:60:60", "2011-02-01T01:01:00.000+01:00"},
    {"a zone behind a blank", "2010-01-02T10:00 +02:00", "2010-01-02T10:00:00.000+02:00"},
    {"a compact zone behind a Z", "20100102T10Z-0530", "2010-01-02T10:00:00.000Z-05:30"},
    {"a zone behind the time", "2010-01-02T10-02:00", "2010-01-02T10:00:00.000-02:00"},
});

TEST(DateTimeDetailsTest, ATextIsReadByWidthAndSeparatorsAndNeverRefused) {
    for (const auto& [name, text, printed] : texts)
        EXPECT_EQ(read(text).getString(true, false, true), printed) << name;
    for (const char* const text : {"2010-02-29", "2010-01-02T24", "T00:60", "T00:00:60"})
        EXPECT_FALSE(read(text).isNormalized()) << text;
}

TEST(DateTimeDetailsTest, DaylightTimeIsAssumedInTheHourThatIsRepeated) {
    for (const char* const text :
         {"2010-01-02T12 = 2010-01-02T11Z", "2010-03-28T01:59:59.999 = 2010-03-28T00:59:59.999Z",
          "2010-03-28T02:30 = 2010-03-28T00:30Z", "2010-10-31T03 = 2010-10-31T02Z",
          "2010-10-31T02:59:59.999 = 2010-10-31T00:59:59.999Z"}) {
        const auto words = wordsOf(text);
        EXPECT_EQ(read(words[0]).getTimeType(), read(words[2]).getTimeType()) << text;
    }
    EXPECT_EQ(read("2010-04-04T02:30", australia).getTimeType(),
              read("2010-04-03T15:30Z").getTimeType());
}

TEST(DateTimeDetailsTest, TheZIsPrintedForGmtAndTheOffsetOnDemand) {
    const DateTimeDetails inGmt = read("2010-01-02T03:04:05.006Z");
    EXPECT_EQ(inGmt.getString(true, true, true), "20100102T030405.006Z+0100");
    const DateTimeDetails local = read("2010-07-02T03:04:05.006");
    EXPECT_EQ(local.getString(false, false, true), "2010-07-02T03:04:05+02:00");
    EXPECT_EQ(DateTimeDetails::format(-7, 3), "-07");
}

TEST(DateTimeDetailsTest, TheOrderOfAddingFixesTheDayAtTheEndsOfMonths) {
    for (const char* const text :
         {"2010-01-31 + P1M1D = 2010-03-01", "2011-01-29 + P1Y1M = 2012-03-01",
          "2010-03-01 + P-1M-1D = 2010-01-31", "2013-03-29 + P-1Y-1M = 2012-02-29",
          "2010-02-01 + P1M-1D = 2010-02-28", "2010-03-01 - P1M1D = 2010-01-31",
          "2010-01-31 - P-1M-1D = 2010-03-01", "2011-01-29 - P-1Y-1M = 2012-03-01"}) {
        const auto [date, sign, span, equals, sum] = wordsOf(text);
        const DateTimeDetails from = read(date);
        const DateTimeDetails to = sign == "+" ? from + TimeSpan(span) : from - TimeSpan(span);
        EXPECT_EQ(shown(to).substr(0, 10), sum) << text;
    }
}

TEST(DateTimeDetailsTest, ADifferenceIsCountedFromTheEarlierDate) {
    for (const char* const text :
         {"2010-03-01TZ - 2010-03-01TZ = P", "2010-03-15TZ - 2010-02-15T12Z = P27DT12H",
          "2010-03-01TZ - 2010-01-31TZ = P1M1D", "2012-03-01TZ - 2012-02-28TZ = P2D",
          "2010-03-01TZ - 2008-12-31TZ = P1Y2M1D", "2009-12-31TZ - 2010-03-01TZ = P-2M-1D",
          "2010-02-01TZ - 2010-01-31T23:59:59.999Z = PT0.001S",
          // In one month by the instants: the clock goes ahead there.
          "2010-03-29 - 2010-03-28 = PT23H"}) {
        const auto [to, minus, from, equals, span] = wordsOf(text);
        EXPECT_EQ(std::string(read(to) - read(from)), span) << text;
    }
}

TEST(DateTimeDetailsTest, TwoLocalTimesAreComparedWithoutTheirZones) {
    const DateTimeDetails noon = read("2010-07-02T12:00:00.001+01:00");
    EXPECT_EQ(noon.compare(read("2010-07-02T12:00:00.001+05:00")), 0);
    EXPECT_EQ(noon.compare(read("2010-07-02T12:00:00.002+05:00")), -1);
    EXPECT_EQ(read("2010-07-02T11:00:00.002Z").compare(noon), 1);
}

TEST(DateTimeDetailsTest, FieldsThatAreLocalAlreadyStayInTheirZone) {
    DateTimeDetails details = read("2010-07-02T10:00Z", "+00:00");
    details.makeLocal(TimeZone(europe));
    details.makeLocal(TimeZone("+05:00"));
    EXPECT_EQ(details.getString(false, false, true), "2010-07-02T12:00:00+02:00");
}

TEST(DateTimeDetailsTest, TheHostCanChangeThePresent) {
    const tarvik_test::TimeStateGuard guard("STD-1");
    DateTimeDetails::modifySystemTime = [](DateTimeDetails& present) {
        present.set(1999, 12, 31, 23, 59, 59, 999, present.isLocal());
    };
    DateTimeDetails details = read("2010-01-02");
    details.setCurrent();
    EXPECT_EQ(details.getString(true, false, true), "1999-12-31T23:59:59.999Z+01:00");
    EXPECT_EQ(DateTime::getCurrentTime(), details.getTimeType());
}

}  // namespace
}  // namespace TarvikCorelib
