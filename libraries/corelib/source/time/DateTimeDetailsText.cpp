// Dates as text: reading and printing.

#include "libraries/corelib/source/text/StringToolsCharacters.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/time/PaddedNumber.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

namespace TarvikCorelib {

namespace {

// Nearly all texts begin like this. They are read without a search for the end of each field, which
// takes a fifth of the time.
constexpr std::string_view usualForm = "0000-00-00T00:00:00";
constexpr std::size_t usualDate = 10;
constexpr std::size_t usualTime = 8;
constexpr std::string_view timeSeparators = ":.";

template <std::size_t... Index>
bool hasForm(const char* text, std::index_sequence<Index...> /*places*/) {
    // Numbers, so that no place is skipped: a look at all of them takes no branches.
    const auto fits = [](char c, char place) {
        return static_cast<unsigned int>(place == '0' ? StringTools::isDigit(c) : c == place);
    };
    return (... & fits(text[Index], usualForm[Index])) != 0;
}

bool hasUsualForm(std::string_view text) {
    return text.size() >= usualForm.size() &&
           hasForm(text.data(), std::make_index_sequence<usualForm.size()>());
}

// The pieces of a text such as "2010-01-02T03:04:05.678Z+01:00".
struct Pieces {
    std::string_view date;
    std::string_view time;
    std::string_view zone;
    bool isUsual = false;
    bool hasTime = false;
    bool isGmt = false;
};

bool isTimeEnd(char c) {
    return c == ' ' || c == '+' || c == '-' || c == 'Z';
}

// A "T" ends the date; then a blank, a "Z" or a sign ends the time. Only the sign is kept: it
// belongs to the zone.
Pieces splitString(std::string_view text) {
    Pieces pieces;
    pieces.isUsual = hasUsualForm(text);
    const std::size_t dateEnd = pieces.isUsual ? usualDate : text.find('T');
    pieces.date = text.substr(0, dateEnd);
    if (dateEnd == std::string_view::npos) return pieces;

    pieces.hasTime = true;
    const std::size_t firstEnd = pieces.isUsual ? usualForm.size() : dateEnd + 1;
    std::size_t timeEnd = firstEnd;
    while (timeEnd < text.size() && !isTimeEnd(text[timeEnd]))
        ++timeEnd;
    pieces.time = text.substr(dateEnd + 1, timeEnd - dateEnd - 1);
    text.remove_prefix(timeEnd);
    pieces.isGmt = text.starts_with('Z');
    if (pieces.isGmt || text.starts_with(' ')) text.remove_prefix(1);
    pieces.zone = text;
    return pieces;
}

struct FieldOfText {
    std::size_t width;
    long long* target;
};

// Takes numbers of at most so many characters each from the front of a piece. A separator ends a
// field and is dropped, also one behind the full width.
template <std::size_t Count>
void parseDetails(std::string_view piece, std::string_view separators,
                  const std::array<FieldOfText, Count>& fields) {
    for (const FieldOfText& field : fields) {
        const auto isSeparator = [=](char c) {
            return separators.find(c) != std::string_view::npos;
        };
        const std::string_view room = piece.substr(0, field.width);
        const auto length = static_cast<std::size_t>(
            std::find_if(room.begin(), room.end(), isSeparator) - room.begin());
        *field.target = StringTools::toInt64(room.substr(0, length));
        piece.remove_prefix(length);
        if (!piece.empty() && isSeparator(piece.front())) piece.remove_prefix(1);
    }
}

int twoDigits(const char* text) {
    return (text[0] - '0') * 10 + (text[1] - '0');
}

// Room for seven fields of any value, and what stands between them.
constexpr std::size_t maxDate = 8 * maxPaddedNumber;

}  // namespace

void DateTimeDetails::set(std::string_view text) {
    Pieces pieces = splitString(text);
    if (pieces.isUsual) {
        const char* const at = text.data();
        year = twoDigits(at) * 100 + twoDigits(at + 2);
        month = twoDigits(at + 5);
        day = twoDigits(at + 8);
        hour = twoDigits(at + 11);
        minute = twoDigits(at + 14);
        second = twoDigits(at + 17);
        millisecond = 0;
        if (pieces.time.size() > usualTime) {
            // No field, but a separator in front of the next one.
            pieces.time.remove_prefix(usualTime);
            parseDetails<2>(pieces.time, timeSeparators, {{{0, &millisecond}, {3, &millisecond}}});
        }
    } else {
        year = 1900;
        month = 1;
        day = 1;
        if (!pieces.date.empty())
            parseDetails<3>(pieces.date, "-", {{{4, &year}, {2, &month}, {2, &day}}});
        parseDetails<4>(pieces.time, timeSeparators,
                        {{{2, &hour}, {2, &minute}, {2, &second}, {3, &millisecond}}});
    }
    local = !pieces.isGmt;
    if (!pieces.zone.empty())
        zone = TimeZone(pieces.zone);
    else if (pieces.hasTime && !zone.isSet())
        zone.setCurrent(false);

    normalized = isWithinRanges();
    countWeekAndDay();
}

bool DateTimeDetails::isWithinRanges() const {
    const auto isWithin = [](long long value, long long first, long long last) {
        return first <= value && value <= last;
    };
    return isWithin(month, 1, 12) &&
           isWithin(day, 1, day > 28 ? getDaysInMonth(year, month) : 28) && isWithin(hour, 0, 23) &&
           isWithin(minute, 0, 59) && isWithin(second, 0, 59) && isWithin(millisecond, 0, 999);
}

std::string DateTimeDetails::getString(bool milliseconds, bool compact, bool withZone) const {
    if (!normalized) {
        DateTimeDetails copy(*this);
        copy.normalize();
        return copy.getString(milliseconds, compact, withZone);
    }

    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): what is used is written before.
    std::array<char, maxDate> buffer;
    char* out = buffer.data();
    const auto write = [&](char before, long long value, int width) {
        if (!compact) *out++ = before;
        out = writePadded(out, value, width);
    };
    out = writePadded(out, year, 4);
    write('-', month, 2);
    write('-', day, 2);
    *out++ = 'T';
    out = writePadded(out, hour, 2);
    write(':', minute, 2);
    write(':', second, 2);
    if (milliseconds) {
        *out++ = '.';
        out = writePadded(out, millisecond, 3);
    }
    if (!local) *out++ = 'Z';
    if (!withZone) return {buffer.data(), out};

    const DateTime instant(getTimeType());
    const std::string offset =
        local ? zoneInForce().getIsoString(instant, compact) : zone.getIsoString(instant, compact);
    return std::string(buffer.data(), out).append(offset);
}

std::string DateTimeDetails::format(long long value, int width) {
    const int length = std::snprintf(nullptr, 0, "%0*lld", width, value);
    if (length < 0) return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), "%0*lld", width, value);
    text.pop_back();
    return text;
}

}  // namespace TarvikCorelib
