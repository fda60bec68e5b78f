// Dates to fields, to text and back, beside the calendar and the clock functions of the standard
// library; and what the system's zone and clock cost.

#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/time/TickTimer.h"
#include "libraries/corelib/source/time/TimeZone.h"

#include <benchmark/benchmark.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string>

namespace {

using TarvikCorelib::DateTime;
using TarvikCorelib::DateTimeDetails;
using TarvikCorelib::TickTimer;
using TarvikCorelib::TimeType;
using TarvikCorelib::TimeZone;

constexpr std::size_t inputs = 1024;
constexpr auto textForm = "%Y-%m-%dT%H:%M:%SZ";

// Spread over the years from 1900 to 2099, in no order.
TimeType countAt(std::size_t index) {
    constexpr TimeType firstDay = 86'400'000;
    constexpr TimeType twoHundredYears = 73'049 * firstDay;
    constexpr TimeType step = 3'900'000'000'007;
    return firstDay + index * step % twoHundredYears;
}

std::time_t toSeconds(TimeType count) {
    return static_cast<std::time_t>(count / 1000) -
           static_cast<std::time_t>(TarvikCorelib::unixEpoch / 1000);
}

std::chrono::sys_days toDay(TimeType count) {
    return std::chrono::sys_days(std::chrono::days(count / 86'400'000 - 25568));
}

std::string toText(TimeType count) {
    return DateTime(count).getGmtString(false, false, false);
}

// One operation on one input after the other, made of the counts by `make`.
template <class Make, class Operation>
void onEach(benchmark::State& state, Make make, Operation operation) {
    std::array<decltype(make(TimeType{})), inputs> values{};
    for (std::size_t i = 0; i < inputs; ++i)
        values[i] = make(countAt(i));
    std::size_t at = 0;
    for ([[maybe_unused]] auto _ : state) {
        auto result = operation(values[at]);
        benchmark::DoNotOptimize(result);
        at = (at + 1) % inputs;
    }
    state.SetItemsProcessed(state.iterations());
}

TimeType asItIs(TimeType count) {
    return count;
}

void countToFields(benchmark::State& state) {
    onEach(state, asItIs, [details = DateTimeDetails()](TimeType count) mutable {
        details.set(count);
        return details.getWeek() + details.getDay() + details.getMillisecond();
    });
}

void chronoToDate(benchmark::State& state) {
    onEach(state, toDay,
           [](std::chrono::sys_days day) { return std::chrono::year_month_day(day); });
}

void fieldsToCount(benchmark::State& state) {
    const auto make = [](TimeType count) { return DateTimeDetails(count); };
    onEach(state, make, [](const DateTimeDetails& details) { return details.getTimeType(); });
}

void printGmt(benchmark::State& state) {
    onEach(state, asItIs, toText);
}

void printStrftime(benchmark::State& state) {
    onEach(state, toSeconds, [](std::time_t seconds) {
        std::tm fields{};
        gmtime_r(&seconds, &fields);
        std::array<char, 32> text{};
        return std::string(text.data(), std::strftime(text.data(), text.size(), textForm, &fields));
    });
}

// With a zone of its own: the system's is not asked.
void readGmt(benchmark::State& state) {
    DateTime instant(0, TimeZone("+01:00"));
    onEach(state, toText, [&instant](const std::string& text) {
        instant.set(text);
        return instant.time();
    });
}

void readStrptime(benchmark::State& state) {
    onEach(state, toText, [](const std::string& text) {
        std::tm fields{};
        strptime(text.c_str(), textForm, &fields);
        return timegm(&fields);
    });
}

template <class Operation>
void again(benchmark::State& state, Operation operation) {
    for ([[maybe_unused]] auto _ : state) {
        auto result = operation();
        benchmark::DoNotOptimize(result);
    }
}

void systemZoneKept(benchmark::State& state) {
    TimeZone zone;
    again(state, [&zone] {
        zone.setCurrent(false);
        return zone.getOffset();
    });
}

void systemZoneFound(benchmark::State& state) {
    TimeZone zone;
    again(state, [&zone] {
        zone.calcCurrent();
        return zone.getOffset();
    });
}

void tick(benchmark::State& state) {
    const TickTimer timer;
    again(state, [&timer] { return timer.getTick(); });
}

BENCHMARK(countToFields);
BENCHMARK(chronoToDate);
BENCHMARK(fieldsToCount);
BENCHMARK(printGmt);
BENCHMARK(printStrftime);
BENCHMARK(readGmt);
BENCHMARK(readStrptime);
BENCHMARK(systemZoneKept);
BENCHMARK(systemZoneFound)->Unit(benchmark::kMicrosecond);
BENCHMARK(tick);

}  // namespace
