#include "libraries/corelib/source/time/DateTimeDetails.h"

#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/TimeSpan.h"
#include "test/support/TimeStateGuard.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>

namespace TarvikCorelib {
namespace {

constexpr long long lowest = std::numeric_limits<long long>::min();
constexpr long long highest = std::numeric_limits<long long>::max();
constexpr auto north = "+01:00 (+01:00 3M5W6D2H-10M5W6D3H)";

// In a zone that is given, so that the system's is not asked.
DateTimeDetails read(std::string_view text, std::string_view zone = "+01:00") {
    DateTimeDetails details;
    details.setTimeZone(TimeZone(zone));
    details.set(text);
    return details;
}

std::string shown(const DateTimeDetails& details) {
    return details.getString(true, false, false);
}

// The words of an equation such as "1 + 2 = 3".
std::array<std::string, 5> wordsOf(const char* equation) {
    std::istringstream stream(equation);
    std::array<std::string, 5> words;
    for (std::string& word : words)
        stream >> word;
    return words;
}

TEST(DateTimeDetailsTest, EachDayFrom1900To2400IsWhereTheCalendarHasIt) {
    namespace chrono = std::chrono;
    using Details = DateTimeDetails;
    using Numbers = std::array<long long, 5>;
    const chrono::sys_days zero = chrono::year(1899) / 12 / 31;
    for (TimeType number = 1; number <= 182987; ++number) {
        const chrono::sys_days day = zero + chrono::days(number);
        const chrono::year_month_day date(day);
        const auto y = static_cast<int>(date.year());
        const auto m = static_cast<unsigned>(date.month());
        const auto d = static_cast<unsigned>(date.day());
        const chrono::sys_days monthEnd = date.year() / date.month() / chrono::last;
        const long long weekDay = chrono::weekday(day).iso_encoding() - 1;
        const long long yearDay = (day - chrono::sys_days(date.year() / 1 / 1)).count() + 1;
        ASSERT_EQ((Numbers{d + (monthEnd - day).count(), weekDay, yearDay}),
                  (Numbers{Details::getDaysInMonth(y, m), Details::getWeekDay(y, m, d),
                           Details::getYearDay(y, m, d)}));
        for (const TimeType count : {number * 86400000, number * 86400000 + 86399999}) {
            const Details at(count);
            ASSERT_EQ((Numbers{y, m, d, weekDay, yearDay}),
                      (Numbers{at.getYear(), at.getMonth(), at.getDay(), at.getWeekDay(),
                               at.getYearDay()}));
            ASSERT_EQ(at.getTimeType(), count);
        }
    }
}

// Years that begin on a Monday, Tuesday, Wednesday, Thursday, Saturday, Sunday and Friday; then the
// end of December.
TEST(DateTimeDetailsTest, WeeksAreThoseOfIsoButInYearsFromAFridayAndAtTheEndOfDecember) {
    for (const std::string_view text :
         {"1900-01-07 1", "1900-01-08 2", "2019-01-06 1", "2020-01-06 2", "2015-01-04 1",
          "2015-01-05 2", "2015-12-31 53", "2022-01-02 52", "2022-01-03 1", "2017-01-01 52",
          "2017-01-02 1", "2021-01-02 53", "2021-01-03 1", "2021-01-09 1", "2021-01-10 2",
          "2021-12-31 52", "2019-12-29 52", "2019-12-30 53", "2019-12-31 53"}) {
        using Details = DateTimeDetails;
        Details fields = read(text);
        fields.setLocal(false);
        for (const long long week :
             {fields.getWeek(), Details(fields.getTimeType()).getWeek(),
              Details::getWeek(fields.getYear(), fields.getMonth(), fields.getDay())})
            EXPECT_EQ(std::to_string(week), text.substr(11)) << text;
    }
}

struct FieldsCase {
    const char* name;
    std::array<long long, 7> fields;
    const char* shown;
};

constexpr auto normalizings = std::to_array<FieldsCase>({
    {"month -12", {2010, -12, 15}, "2008-12-15T00:00:00.000Z"},
    {"months before days, back", {2011, 15, 0}, "2012-02-29T00:00:00.000Z"},
    {"months before days, ahead", {2010, 14, 30}, "2011-03-02T00:00:00.000Z"},
    {"400 years ahead", {2000, 1, 146098}, "2400-01-01T00:00:00.000Z"},
    {"400 years back", {2400, 1, -146096}, "2000-01-01T00:00:00.000Z"},
    {"a day far away", {2010, 1, highest}, "25252734927768564-07-26T00:00:00.000Z"},
    {"up through all fields", {2010, 12, 31, 23, 59, 59, 1000}, "2011-01-01T00:00:00.000Z"},
    {"down through all fields", {2010, 1, 1, 0, 0, 0, -1}, "2009-12-31T23:59:59.999Z"},
    {"against each other", {2010, 1, 1, 48, -61, 3600, -86400000}, "2010-01-01T23:59:00.000Z"},
    {"below 1900", {1900, 1, 0}, "1899-00-00T00:00:00.000Z"},
});

TEST(DateTimeDetailsTest, FieldsOfAnyValueCarryOverDownToMonthZeroOf1899) {
    for (const FieldsCase& row : normalizings) {
        const auto [year, month, day, hour, minute, second, ms] = row.fields;
        const DateTimeDetails details(year, month, day, hour, minute, second, ms, false);
        EXPECT_EQ(shown(details), row.shown) << row.name;
    }
}

TEST(DateTimeDetailsTest, CountZeroIsShownAsTheFirstDayAndTheRestOfItsDayAsTheLastOf1899) {
    EXPECT_TRUE(DateTimeDetails(0).isReset());
    EXPECT_TRUE(DateTimeDetails(86400000).isReset());
    EXPECT_EQ(shown(DateTimeDetails(1)), "1899-12-31T00:00:00.001Z");
}

TEST(DateTimeDetailsTest, YearsBefore1900CountAs1900InTheNumberOfADay) {
    EXPECT_EQ(DateTimeDetails::countDays(1850, 2, 1), 32);
}

TEST(DateTimeDetailsTest, FieldsBeyondTheLargestCountStopThere) {
    DateTimeDetails details;
    details.setEnd();
    EXPECT_EQ(shown(details), "584555949-04-02T14:25:51.615Z");
    EXPECT_EQ(details.getTimeType(), DateTime::getMaxTime());
    details.setMillisecond(616);
    EXPECT_EQ(details.getTimeType(), DateTime::getMaxTime());
}

struct TextCase {
    const char* name;
    const char* text;
    const char* shown;
};

constexpr auto texts = std::to_array<TextCase>({
    {"by separators", "2010-1-2T3:4:5Z", "2010-01-02T03:04:05.000Z+01:00"},
    {"by width alone", "20100102T030405006", "2010-01-02T03:04:05.006+01:00"},
    {"by both", "2010-01-02T0304:05", "2010-01-02T03:04:05.000+01:00"},
    {"milliseconds are not scaled", "2010-01-02T03:04:05.5Z", "2010-01-02T03:04:05.005Z+01:00"},
    {"a longer fraction", "2010-01-02T03:04:05:1239", "2010-01-02T03:04:05.123+01:00"},
    {"a blank does not end the date", "2010-01-02 10:00", "2010-01-02T00:00:00.000+01:00"},
    {"nor does a Z", "2010-01-02Z", "2010-01-02T00:00:00.000+01:00"},
    {"no date", "T10:00", "1900-01-01T10:00:00.000+01:00"},
    {"no day is day 0", "2010-05TZ", "2010-04-30T00:00:00.000Z+01:00"},
    {"no digits are 0", "2010-x-02T::5", "2009-12-02T00:00:05.000+01:00"},
    {"beyond the ranges", "2010-13-31T24:60:60", "2011-02-01T01:01:00.000+01:00"},
    {"nothing", "", "1900-01-01T00:00:00.000+01:00"},
    {"a zone behind a blank", "2010-01-02T10:00 +02:00", "2010-01-02T10:00:00.000+02:00"},
    {"a compact zone behind a Z", "20100102T10Z-0530", "2010-01-02T10:00:00.000Z-05:30"},
    {"a long zone", "2010-07-02T10-02:00 (+01:00 3M5W6D2H-10M5W6D3H)",
     "2010-07-02T10:00:00.000-01:00"},
});

TEST(DateTimeDetailsTest, ATextIsReadByWidthAndSeparatorsAndNeverRefused) {
    for (const TextCase& row : texts)
        EXPECT_EQ(read(row.text).getString(true, false, true), row.shown) << row.name;
    EXPECT_TRUE(read("2010-12-31T23:59:59.999").isNormalized());
    EXPECT_FALSE(read("2010-02-29").isNormalized());
}

TEST(DateTimeDetailsTest, DaylightTimeIsAssumedInTheHourThatIsRepeated) {
    for (const char* const text :
         {"2010-01-02T12 = 2010-01-02T11Z", "2010-03-28T01:59:59.999 = 2010-03-28T00:59:59.999Z",
          "2010-03-28T02:30 = 2010-03-28T00:30Z", "2010-10-31T03 = 2010-10-31T02Z",
          "2010-10-31T02:59:59.999 = 2010-10-31T00:59:59.999Z"}) {
        const auto words = wordsOf(text);
        EXPECT_EQ(read(words[0], north).getTimeType(), read(words[2]).getTimeType()) << text;
    }
    EXPECT_EQ(read("2010-04-04T02:30", "+10:00 (+01:00 10M1W6D2H-4M1W6D3H)").getTimeType(),
              read("2010-04-03T15:30Z").getTimeType());
}

TEST(DateTimeDetailsTest, TheZIsPrintedForGmtAndTheOffsetOnDemand) {
    const DateTimeDetails inGmt = read("2010-01-02T03:04:05.006Z", north);
    EXPECT_EQ(inGmt.getString(false, false, false), "2010-01-02T03:04:05Z");
    EXPECT_EQ(inGmt.getString(true, true, true), "20100102T030405.006Z+0100");
    const DateTimeDetails local = read("2010-07-02T03:04:05.006", north);
    EXPECT_EQ(local.getString(false, false, true), "2010-07-02T03:04:05+02:00");
    EXPECT_EQ(local.getString(true, true, false), "20100702T030405.006");
    EXPECT_EQ(DateTimeDetails::format(-7, 3), "-07");
    EXPECT_EQ(DateTimeDetails::format(lowest, 30), "-00000000009223372036854775808");
}

TEST(DateTimeDetailsTest, TheOrderOfAddingFixesTheDayAtTheEndsOfMonths) {
    for (const char* const text :
         {"2010-01-31 + P1M = 2010-03-03", "2012-02-29 + P1Y = 2013-03-01",
          "2010-01-31 + P1M1D = 2010-03-01", "2011-01-29 + P1Y1M = 2012-03-01",
          "2010-03-01 + P-1M-1D = 2010-01-31", "2013-03-29 + P-1Y-1M = 2012-02-29",
          "2010-02-01 + P1M-1D = 2010-02-28", "2010-03-31 - P1M = 2010-03-03",
          "2010-03-01 - P1M1D = 2010-01-31", "2013-03-29 - P1Y1M = 2012-02-29",
          "2010-01-31 - P-1M-1D = 2010-03-01", "2011-01-29 - P-1Y-1M = 2012-03-01"}) {
        const auto [date, sign, span, equals, sum] = wordsOf(text);
        const DateTimeDetails from = read(date);
        const DateTimeDetails to = sign == "+" ? from + TimeSpan(span) : from - TimeSpan(span);
        EXPECT_EQ(shown(to).substr(0, 10), sum) << text;
    }
}

TEST(DateTimeDetailsTest, ADifferenceIsCountedFromTheEarlierDate) {
    for (const char* const text :
         {"2010-03-01TZ - 2010-03-01TZ = P", "2010-01-31TZ - 2010-01-01T::1Z = P29DT23H59M59S",
          "2010-03-01TZ - 2010-01-31TZ = P1M1D", "2012-03-01TZ - 2012-02-28TZ = P2D",
          "2010-03-01TZ - 2008-12-31TZ = P1Y2M1D", "2009-12-31TZ - 2010-03-01TZ = P-2M-1D",
          "2010-02-01TZ - 2010-01-31T23:59:59.999Z = PT0.001S",
          "2010-01-01TZ - 2010-01-31TZ = P-30D", "2010-03-15TZ - 2010-02-15T12Z = P27DT12H"}) {
        const auto [to, minus, from, equals, span] = wordsOf(text);
        EXPECT_EQ(std::string(read(to) - read(from)), span) << text;
    }
    // In one month by the instants: the clock goes ahead there.
    EXPECT_EQ(std::string(read("2010-03-29", north) - read("2010-03-28", north)), "PT23H");
}

TEST(DateTimeDetailsTest, TwoLocalTimesAreComparedWithoutTheirZones) {
    const DateTimeDetails noon = read("2010-07-02T12:00:00.001+01:00");
    EXPECT_EQ(noon.compare(read("2010-07-02T12:00:00.001+05:00")), 0);
    EXPECT_EQ(noon.compare(read("2010-07-02T12:00:00.002+05:00")), -1);
    EXPECT_EQ(noon.compare(read("2010-07-02T11:00:00.001Z")), 0);
    EXPECT_EQ(read("2010-07-02T11:00:00.002Z").compare(noon), 1);
}

TEST(DateTimeDetailsTest, FieldsThatAreLocalAlreadyStayInTheirZone) {
    DateTimeDetails details = read("2010-07-02T10:00Z");
    details.makeLocal(TimeZone(north));
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
