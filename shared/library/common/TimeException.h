/// Faults of dates and times.
#pragma once

#include "shared/library/common/Exception.h"

#include <cstdint>
#include <string>

namespace Tarvik {

/// The codes of `TimeException`.
enum TimeError : std::int32_t {
    TimeNoError = 0,
    TimeDays = 1,
    TimeHours = 2,
    TimeMinutes = 3,
    TimeSeconds = 4,
    TimeYear = 5,
    TimeMonth = 6,
    TimeDay = 7,
    TimeDateTime = 8,
    TimeAncient = 9,
    TimeInput = 10,
};

/// For callers that check times themselves. Reading a date throws none of these: it brings each
/// field into its range instead.
class TimeException : public Exception {
public:
    /// An unknown code is kept and gets the name and the text of `TimeDateTime`, which fits every
    /// fault.
    explicit TimeException(int code);

    /// "Time"
    [[nodiscard]] std::string getModule() const override;
};

}  // namespace Tarvik
