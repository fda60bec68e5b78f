// The sections: which parser takes the lines of which section.

#include "apps/handlechecker/validation/HandleValidator.h"

#include <array>
#include <cstddef>

namespace Tarvik {

namespace {

using SectionParser = bool (HandleValidator::*)(std::string&);

// Rows in the order of ParseObject.
constexpr auto sectionParsers = std::to_array<SectionParser>({
    nullptr,
    &HandleValidator::parseExecutables,
    &HandleValidator::parseLicenses,
    &HandleValidator::parseIdleDetection,
    &HandleValidator::parseOptimization,
    &HandleValidator::parseCPUOveruse,
    &HandleValidator::parseFilter,
    &HandleValidator::parsePriorities,
});

}  // namespace

bool HandleValidator::parseObjectChecker(ParseObject& object, std::string& line) {
    if (object <= NoObject || object > Priorities) return false;
    return (this->*sectionParsers[static_cast<std::size_t>(object)])(line);
}

}  // namespace Tarvik
