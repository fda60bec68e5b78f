#include "libraries/corelib/source/time/TimeZone.h"

#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/TickTimer.h"

#include <cstdlib>
#include <string>

namespace TarvikCorelib {

namespace {

constexpr long long cacheMilliseconds = 3'600'000;

// The tick at which the system's zone was found last, 0 before the first time.
constinit unsigned long long lastCalculation = 0;

bool isFresh(unsigned long long tick) {
    return lastCalculation != 0 && tick - lastCalculation <= TickTimer::toTicks(cacheMilliseconds);
}

}  // namespace

constinit TimeZone TimeZone::CustomDefaultTZ{Unset()};
constinit bool TimeZone::HaveEnvTZ = false;

TimeZone::TimeZone() {
    setTZ(false);
}

TimeZone::TimeZone(std::string_view text) {
    setTZ(false);
    set(text, DateTime(DateTime::getCurrentTime()));
}

TimeZone::TimeZone(const TimeZone& other) {
    setTZ(false);
    *this = other;
}

void TimeZone::setCurrent(bool force) {
    setCurrent(force, {.tick = TickTimer().getTick(), .time = std::time(nullptr)});
}

void TimeZone::setCurrent(bool force, const Moment& now) {
    // Before the first calculation, which replaces what the variable says.
    setTZ(false);
    if (force || !CustomDefaultTZ.isSet() || !isFresh(now.tick)) {
        lastCalculation = now.tick;
        TimeZone found{Unset()};
        found.calcCurrent(now.time);
        CustomDefaultTZ = found;
    }
    *this = CustomDefaultTZ;
}

void TimeZone::calcCurrent() {
    calcCurrent(std::time(nullptr));
}

void TimeZone::calcCurrent(std::time_t now) {
    setTZ(false);
    reset();
    tzset();
    // The rules first: the offset is asked for at a moment outside of them.
    calcDst(now);
    calcTz(now);
    flag = true;
}

void TimeZone::setDefault(const TimeZone& zone) {
    CustomDefaultTZ = zone;
}

void TimeZone::resetDefault() {
    CustomDefaultTZ.flag = false;
}

void TimeZone::setTZ(bool force) {
    if (HaveEnvTZ && !force) return;
    // First, since the zones below ask too.
    HaveEnvTZ = true;
    std::string text;
    if (!EnvTools::get("TARVIK_TZ", text) || text.empty()) return;
    TimeZone zone{Unset()};
    zone.set(text, DateTime(DateTime::getCurrentTime()));
    CustomDefaultTZ = zone;
    tzset();
}

int TimeZone::compare(const TimeZone& other) const {
    return (offset > other.offset ? 1 : 0) - (offset < other.offset ? 1 : 0);
}

}  // namespace TarvikCorelib
