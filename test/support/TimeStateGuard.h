/// Sets the system's zone for a test, and restores the process-wide state of the time classes.
#pragma once

#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/time/TimeZone.h"
#include "test/support/ScopedEnv.h"

#include <ctime>
#include <optional>
#include <string>
#include <utility>

namespace tarvik_test {

/// For a test of zones or of the clock. It begins as a process does that has not asked for a zone
/// yet, without the variable `TARVIK_TZ`, and with the real clock. A test may set `TZ` and
/// `TARVIK_TZ` to other values: they, too, are restored.
class TimeStateGuard {
public:
    /// Takes a value for `TZ`, such as "STD-1DST,M3.5.0,M10.5.0/3".
    explicit TimeStateGuard(const std::string& systemZone)
        : systemVariable(std::in_place, "TZ", systemZone) {
        // Tick 0 is none: no calculation is remembered.
        TarvikCorelib::TimeZone().setCurrent(true, {.tick = 0, .time = 0});
        TarvikCorelib::TimeZone::HaveEnvTZ = false;
        TarvikCorelib::TimeZone::resetDefault();
        TarvikCorelib::DateTimeDetails::modifySystemTime = nullptr;
        tzset();
    }
    TimeStateGuard(const TimeStateGuard&) = delete;
    TimeStateGuard& operator=(const TimeStateGuard&) = delete;
    ~TimeStateGuard() {
        TarvikCorelib::TimeZone::HaveEnvTZ = haveEnvTZ;
        TarvikCorelib::TimeZone::CustomDefaultTZ = defaultZone;
        TarvikCorelib::DateTimeDetails::modifySystemTime = modifySystemTime;
        systemVariable.reset();
        tzset();
    }

private:
    // In this order: to copy the default is to look at the variable.
    bool haveEnvTZ = TarvikCorelib::TimeZone::HaveEnvTZ;
    ScopedEnv defaultVariable{"TARVIK_TZ"};
    TarvikCorelib::TimeZone defaultZone = TarvikCorelib::TimeZone::CustomDefaultTZ;
    void (*modifySystemTime)(TarvikCorelib::DateTimeDetails&) =
        TarvikCorelib::DateTimeDetails::modifySystemTime;
    std::optional<ScopedEnv> systemVariable;  // Restored ahead of the last `tzset`.
};

}  // namespace tarvik_test
