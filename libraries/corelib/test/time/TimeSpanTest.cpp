#include "libraries/corelib/source/time/TimeSpan.h"

#include "libraries/corelib/test/time/TimeTexts.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>

namespace TarvikCorelib {
namespace {

constexpr long long lowest = std::numeric_limits<long long>::min();
constexpr long long highest = std::numeric_limits<long long>::max();

using Fields = std::array<long long, 3>;

Fields fieldsOf(const TimeSpan& span) {
    return {span.getYears(), span.getMonths(), span.countMilliseconds(false)};
}

constexpr auto texts = std::to_array<TextCase>({
    {"all fields", "P1Y2M3DT4H5M6.7S", "P1Y2M3DT4H5M6.700S"},
    {"negative fields", "P-1Y-2M-1DT-1H-1M-1.5S", "P-1Y-2M-1DT-1H-1M-1.500S"},
    {"small letters, larger units", "P1y2m2dT24h60m60s", "P1Y2M3DT1H1M"},
    {"no large P", "1Dp1D", "P"},
    {"what is before the P", "1Y-P1M", "P1M"},
    {"times add up, years and months do not", "P1Y2Y1M3M1D1DT1H1M1M1S1S", "P2Y3M2DT1H2M2S"},
    {"times before the T, dates behind it", "P1H2S3DT4D5Y6S", "P3DT6S"},
    {"other letters, and the T, do not end a number", "P1W2tT3H", "P5DT3H"},
    {"short fractions are filled up", "PT1.S1.05S", "PT2.050S"},
    {"a fraction of more than three digits is milliseconds", "PT1.2345S", "PT3.345S"},
    {"the lowest", "P-106751991167DT-7H-12M-55.808S", "P-106751991167DT-7H-12M-55.808S"},
    {"too much", "P999999999999D", "P106751991167DT7H12M55.807S"},
});

TEST(TimeSpanTest, ATextIsReadUncheckedAndPrintedWithoutWhatIsZero) {
    for (const auto& [name, text, printed] : texts) {
        TimeSpan span(9, 9, 0, 0, 0, 0, 9);
        span = text;
        EXPECT_EQ(std::string(span), printed) << name;
    }
    EXPECT_EQ(fieldsOf(TimeSpan("P1Y2M3DT4H5M6.7S")), (Fields{1, 2, 273906700}));
}

TEST(TimeSpanTest, AFractionHasTheSignOfTheWholeSeconds) {
    EXPECT_EQ(std::string(TimeSpan(-1)), "PT-0.001S");
    EXPECT_EQ(TimeSpan("PT-0.001S").countMilliseconds(false), 1);
}

TEST(TimeSpanTest, FieldsAreMultipliedOneByOneAndCutOff) {
    TimeSpan span(1, -3, 0, 0, 0, 0, 5);
    (span *= 1.5) *= -2;
    EXPECT_EQ(fieldsOf(span), (Fields{-2, 8, -14}));
    EXPECT_TRUE((span *= std::numeric_limits<double>::quiet_NaN()).isZero());
}

TEST(TimeSpanTest, FieldsStopAtTheEndsOfTheirType) {
    TimeSpan span(lowest, lowest, 0, 0, 0, 0, lowest);
    span -= TimeSpan(1, 1, 0, 0, 0, 0, 1);
    EXPECT_EQ(fieldsOf(span), (Fields{lowest, lowest, lowest}));
    span.invert();
    span += TimeSpan(1, 1, highest, 1, 1, 1, 1);
    (span *= 2) *= 1e30;
    EXPECT_EQ(fieldsOf(span), (Fields{highest, highest, highest}));
    span *= -1e30;
    EXPECT_EQ(fieldsOf(span), (Fields{lowest, lowest, lowest}));
}

TEST(TimeSpanTest, AllFieldsAreCountedInOneUnit) {
    // A year, half a year in months, and half a year in milliseconds.
    const TimeSpan span(1, 6, 0, 0, 0, 0, 15778476000);
    EXPECT_DOUBLE_EQ(span.countYears(), 2);
    EXPECT_DOUBLE_EQ(span.countMonths(), 24);
    EXPECT_DOUBLE_EQ(span.countDays(), 730.485);
    EXPECT_DOUBLE_EQ(span.countHours(), 17531.64);
    EXPECT_DOUBLE_EQ(span.countMinutes(), 1051898.4);
    EXPECT_DOUBLE_EQ(span.countSeconds(), 63113904);
    EXPECT_EQ(span.countMilliseconds(true), 63113904000);
}

TEST(TimeSpanTest, SpansAreComparedByTheirExactLength) {
    EXPECT_EQ(TimeSpan("P12M").compare(TimeSpan("P1Y")), 0);
    EXPECT_EQ(TimeSpan("P30D").compare(TimeSpan("P1M")), -1);
    const TimeSpan longest(highest, highest, 0, 0, 0, 0, highest);
    EXPECT_EQ(longest.compare(TimeSpan(highest, highest, 0, 0, 0, 0, highest - 1)), 1);
}

}  // namespace
}  // namespace TarvikCorelib
