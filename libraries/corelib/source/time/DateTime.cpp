#include "libraries/corelib/source/time/DateTime.h"

#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/time/TimeArithmetic.h"
#include "libraries/corelib/source/time/TimeSpan.h"

#include <sys/time.h>

#include <ctime>

namespace TarvikCorelib {

namespace {

using TimeArithmetic::moved;
using TimeArithmetic::movedBack;

constexpr long long firstYear = 1900;

// The clock of the system; a clock before 1970 counts back from there.
TimeType readClock() {
    timeval present{};
    if (gettimeofday(&present, nullptr) != 0) present.tv_sec = std::time(nullptr);
    return moved(unixEpoch, present.tv_sec * millisecondsPerSecond + present.tv_usec / 1000);
}

// The calendar counts earlier years as 1900, which would be later than 0 here.
TimeType countFrom1900(const DateTimeDetails& details) {
    return details.getYear() < firstYear ? 0 : details.getTimeType();
}

}  // namespace

DateTime::DateTime() {
    zone.setCurrent(false);
}

DateTime::DateTime(TimeType count, const TimeZone& zone) {
    set(count, zone);
}

DateTime::DateTime(const DateTimeDetails& details) {
    set(details);
}

DateTime::DateTime(std::string_view text) {
    set(text);
}

void DateTime::set(TimeType newCount, const TimeZone& newZone) {
    count = newCount;
    setTimeZone(newZone);
}

void DateTime::set(const DateTimeDetails& details) {
    set(details.getTimeType(), details.getTimeZone());
}

void DateTime::set(std::string_view text) {
    DateTimeDetails details;
    details.setTimeZone(zone);
    details.set(text);
    // The zone in which the fields are read is kept, also if only a date was there.
    zone = details.getTimeZone();
    if (details.isLocal() && !zone.isSet()) zone.setCurrent(false);
    details.setTimeZone(zone);
    count = details.getTimeType();
}

void DateTime::setTimeZone(const TimeZone& newZone) {
    if (newZone.isValid()) zone = newZone;
}

void DateTime::setGmt(long long year, long long month, long long day, long long hour,
                      long long minute, long long second, long long millisecond) {
    count =
        DateTimeDetails(year, month, day, hour, minute, second, millisecond, false).getTimeType();
}

void DateTime::setLocal(long long year, long long month, long long day, long long hour,
                        long long minute, long long second, long long millisecond) {
    setTZ(zone, year, month, day, hour, minute, second, millisecond);
}

void DateTime::setTZ(const TimeZone& other, long long year, long long month, long long day,
                     long long hour, long long minute, long long second, long long millisecond) {
    setGmt(year, month, day, hour, minute, second, millisecond);
    count = movedBack(count, other.getGmtLocalDiff(*this));
}

void DateTime::reset() {
    count = 0;
    zone.reset();
}

int DateTime::compare(const DateTime& other) const {
    return (count > other.count ? 1 : 0) - (count < other.count ? 1 : 0);
}

DateTimeDetails DateTime::getGmt() const {
    return DateTimeDetails(*this);
}

DateTimeDetails DateTime::getLocal() const {
    return getTZ(zone);
}

DateTimeDetails DateTime::getTZ(const TimeZone& other) const {
    DateTimeDetails details(moved(count, other.getGmtLocalDiff(*this)), other);
    details.setLocal(true);
    return details;
}

std::string DateTime::getGmtString(bool milliseconds, bool compact, bool withZone) const {
    return getGmt().getString(milliseconds, compact, withZone);
}

std::string DateTime::getLocalString(bool milliseconds, bool compact, bool withZone) const {
    return getLocal().getString(milliseconds, compact, withZone);
}

DateTime& DateTime::operator+=(const TimeSpan& span) {
    if (span.getYears() == 0 && span.getMonths() == 0)
        count = moved(count, span.countMilliseconds(false));
    else
        count = countFrom1900(getGmt() + span);
    return *this;
}

DateTime& DateTime::operator-=(const TimeSpan& span) {
    if (span.getYears() == 0 && span.getMonths() == 0)
        count = movedBack(count, span.countMilliseconds(false));
    else
        count = countFrom1900(getGmt() - span);
    return *this;
}

void DateTime::compensateForDSTEndTime() {
    if (zone.isValid()) count = moved(count, zone.getDstLength());
}

TimeType DateTime::getCurrentTime() {
    if (DateTimeDetails::modifySystemTime == nullptr) return readClock();
    DateTimeDetails present;
    present.setCurrent();
    return present.getTimeType();
}

void DateTimeDetails::setCurrent() {
    set(readClock());
    if (modifySystemTime != nullptr) modifySystemTime(*this);
}

}  // namespace TarvikCorelib
