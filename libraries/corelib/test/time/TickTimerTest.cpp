#include "libraries/corelib/source/time/AlignedTickInterval.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "test/support/TimeStateGuard.h"

#include <gtest/gtest.h>

#include <set>

namespace TarvikCorelib {
namespace {

using Ticks = unsigned long long;
constexpr Ticks lastTick = 18446744073709551615ULL;
constexpr Ticks hour = 3'600'000;  // Milliseconds.
constexpr double tolerance = 60'000;

template <class Interval>
struct Open : Interval {
    using Interval::Interval;
    using Interval::nextBase;
    using Interval::nextFiring;
    using Interval::randomSpan;
    // Plays no part: an interval that asked for it would never fire.
    [[nodiscard]] Ticks getTick() const override { return 0; }
};

TEST(TickTimerTest, ATickHasItsInstantByTheWallClock) {
    const TimeType inAnHour = TickTimer::toTimeType(TickTimer::getTickFromNow(hour));
    EXPECT_NEAR(static_cast<double>(inAnHour - DateTime::getCurrentTime()), 3'600'000, tolerance);
    const Ticks anHourAgo = TickTimer::fromTimeType(DateTime::getCurrentTime() - hour);
    EXPECT_NEAR(static_cast<double>(TickTimer::getSpanMS(anHourAgo)), 3'600'000, tolerance);
    EXPECT_EQ(TickTimer::toTimeType(0), 0U);
}

TEST(TickTimerTest, TicksAndLengthsStopAtTheirEnds) {
    EXPECT_EQ(TickTimer::getTickFromNow(9223372036854775807), lastTick);
    EXPECT_EQ(TickTimer::getTickFromNow(-9223372036854775807 - 1), 0U);
    EXPECT_EQ(TickTimer::fromTimeType(86'400'000), 0U);
    EXPECT_EQ(TickTimer::getSpanMS(lastTick, 0), -18446744073709);
    EXPECT_FALSE(TickInterval(lastTick).isTime());
    EXPECT_GT(Open<AlignedTickInterval>(hour, 0, lastTick).nextFiring,
              TickTimer::getTickFromNow(2 * hour));
}

TEST(TickTimerTest, ASleepTakesTenMillisecondsAlsoIfLessRemains) {
    const Ticks start = TickTimer::getTickFromNow(0);
    TickTimer::sleep(TickTimer::getTickFromNow(5));
    EXPECT_GE(TickTimer::getSpanMS(start), 10);
}

TEST(TickIntervalTest, AnIntervalOfZeroIsASecondAndTheRandomSpanIsLess) {
    Open<TickInterval> interval(hour);
    interval.setRandomOffset(hour);
    interval.setInterval(0);
    EXPECT_EQ(interval.getInterval(), 1000U);
    EXPECT_EQ(interval.randomSpan, 999'999'999U);
}

TEST(TickIntervalTest, ThreeMissedPeriodsFireOnce) {
    Open<TickInterval> interval(hour);
    const Ticks first = interval.nextFiring;
    for (int periods = 0; periods < 4; ++periods)
        interval.reset();
    EXPECT_TRUE(interval.isTime());
    EXPECT_EQ(interval.nextFiring, first);
}

TEST(TickIntervalTest, ARandomOffsetIsAWholeNumberOfSecondsBelowTheSpan) {
    Open<TickInterval> interval(hour);
    std::set<Ticks> drawn;
    for (int draws = 0; draws < 100; ++draws) {
        interval.setRandomOffset(2999);
        drawn.insert(interval.nextFiring - interval.nextBase);
    }
    EXPECT_EQ(drawn, (std::set<Ticks>{0, 1'000'000'000}));
}

TEST(AlignedTickIntervalTest, OnABoundaryTheNextOneIsAWholeIntervalAway) {
    const tarvik_test::TimeStateGuard guard("UTC0");
    DateTimeDetails::modifySystemTime = [](DateTimeDetails& present) {
        present.set(2010, 1, 2, 12, 0, 0, 0, false);
    };
    const Open<AlignedTickInterval> hourly(hour, 0, 0);
    EXPECT_NEAR(static_cast<double>(TickTimer::getSpanMS(hourly.nextBase)), -3'600'000, tolerance);
    const Open<AlignedTickInterval> daily(24 * hour, 0, 0);
    EXPECT_NEAR(static_cast<double>(TickTimer::getSpanMS(daily.nextBase)), -43'200'000, tolerance);
}

TEST(AlignedTickIntervalTest, AnIntervalIsCutToTenthsOfASecond) {
    EXPECT_EQ(AlignedTickInterval(1050, 0, 0).getInterval(), 1000U);
}

TEST(AlignedTickIntervalTest, AShiftOfTwoIntervalsLeavesTwoBoundariesOut) {
    Open<AlignedTickInterval> interval(hour, 0, 2 * hour);
    const Ticks first = interval.nextFiring;
    for (int periods = 0; periods < 3; ++periods)
        interval.reset();
    EXPECT_TRUE(interval.isTime());
    EXPECT_EQ(interval.nextBase - interval.getPreviousBase(), 10'800'000'000'000U);
    EXPECT_EQ(interval.nextFiring, first);
}

TEST(AlignedTickIntervalTest, AFiringTickThatIsDrawnAnewLacksTheShift) {
    Open<AlignedTickInterval> interval(hour, 0, 1000);
    interval.recalc();
    EXPECT_EQ(interval.nextFiring, interval.nextBase);
}

}  // namespace
}  // namespace TarvikCorelib
