#include "libraries/corelib/source/time/DSTTimeDef.h"

#include "libraries/corelib/source/text/StringToolsNumbers.h"

namespace TarvikCorelib {

namespace {

constexpr bool isWithin(int value, int first, int last) {
    return first <= value && value <= last;
}

}  // namespace

bool DSTTimeDef::isValid() const {
    return isWithin(month, 1, 12) && isWithin(week, 1, 5) && isWithin(day, 0, 6) &&
           isWithin(hour, 0, 23);
}

std::string DSTTimeDef::toString() const {
    std::string text = StringTools::toString(month);
    text.append(1, 'M').append(StringTools::toString(week));
    text.append(1, 'W').append(StringTools::toString(day));
    text.append(1, 'D').append(StringTools::toString(hour)).append(1, 'H');
    return text;
}

void DSTTimeDef::fromString(std::string_view text) {
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::int8_t* field = nullptr;
        switch (text[at]) {
        case 'M': field = &month; break;
        case 'W': field = &week; break;
        case 'D': field = &day; break;
        case 'H': field = &hour; break;
        default: continue;
        }
        *field = StringTools::toInt8(text.substr(begin, at - begin));
        begin = at + 1;
    }
}

}  // namespace TarvikCorelib
