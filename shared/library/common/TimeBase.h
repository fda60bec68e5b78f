/// What the older classes for time have in common: one number.
#pragma once

namespace Tarvik {

/// `left` less `right`, which wraps instead of overflowing: fields that are open may hold anything.
constexpr long wrappingDifference(long left, long right) {
    return static_cast<long>(static_cast<unsigned long>(left) - static_cast<unsigned long>(right));
}

/// Holds an internal time, whose unit the derived class says. Zero counts as null.
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
