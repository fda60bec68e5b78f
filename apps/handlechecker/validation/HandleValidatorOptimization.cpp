// The section `optimization`: what is done to an idle application, and when.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"
#include "shared/library/common/StringTools.h"

namespace Tarvik {

// Quirk: "terminate" is the only word that is a fault; unknown words are accepted as 0.
bool HandleValidator::readSuspendTimeoutAction(std::string& value) {
    std::string word = value;
    StringTools::makeLower(word);
    if (word == "terminate") return report(messages::fill(messages::invalidElement, {value}));
    suspendTimeoutAction = mapSuspendAction(value);
    return true;
}

// word[":"argument]
// Quirk: the argument is stored before the word is checked, and is kept if the word is bad.
bool HandleValidator::readMethod(std::string& value) {
    const std::size_t colon = value.find(':');
    if (colon != std::string::npos) {
        disableMethodArg = value.substr(colon + 1);
        value.erase(colon);
    }
    disableMethod = mapDisableMethod(value);
    if (disableMethod != unknownDisableMethod) return true;
    return report(messages::fill(messages::invalidElement, {value}));
}

// Any text. Nothing here interprets it.
bool HandleValidator::readAdditionalOption(std::string& value) {
    additionalOptions[currentKey] = value;
    return true;
}

}  // namespace Tarvik
