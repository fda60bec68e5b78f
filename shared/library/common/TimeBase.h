/// The base of the older classes for time: one number.
#pragma once

namespace Tarvik {

/// `left` minus `right`. Wraps instead of overflowing, since open fields may hold any number.
constexpr long wrappingDifference(long left, long right) {
    return static_cast<long>(static_cast<unsigned long>(left) - static_cast<unsigned long>(right));
}

/// Holds an internal time in the unit of the derived class. Zero means null, so the first instant
/// of all cannot be told from none.
class TimeBase {
public:
    TimeBase() = default;
    TimeBase(const TimeBase&) = default;
    TimeBase& operator=(const TimeBase&) = default;
    virtual ~TimeBase() = default;

    void setInternalTime(long time) { internalTime = time; }
    [[nodiscard]] long getInternalTime() const { return internalTime; }
    void setNull() { internalTime = 0; }
    [[nodiscard]] bool isNull() const { return internalTime == 0; }

private:
    long internalTime = 0;
};

}  // namespace Tarvik
