#include "libraries/corelib/source/messaging/ImsMessage.h"

#include <memory>
#include <tuple>

namespace TarvikCorelib {

ImsMessage::ImsMessage(const ImsMessage& other)
    : generalType(other.generalType),
      groupType(other.groupType),
      messageType(other.messageType),
      parameter(other.parameter),
      source(other.source) {}

ImsMessage& ImsMessage::operator=(const ImsMessage& other) {
    if (this == &other) return *this;
    // One that it owns stays its own if the other message refers to it.
    if (parameter != other.parameter) releaseParameter();
    generalType = other.generalType;
    groupType = other.groupType;
    messageType = other.messageType;
    parameter = other.parameter;
    source = other.source;
    return *this;
}

ImsMessage::~ImsMessage() {
    releaseParameter();
}

void ImsMessage::releaseParameter() {
    const std::unique_ptr<ImsMessageParameter> owned(deleteParameter ? parameter : nullptr);
    parameter = nullptr;
    deleteParameter = false;
}

int ImsMessage::compare(const ImsMessage& other) const {
    const auto words = [](const ImsMessage& of) {
        return std::tie(of.generalType, of.groupType, of.messageType);
    };
    return (words(*this) > words(other) ? 1 : 0) - (words(*this) < words(other) ? 1 : 0);
}

std::string ImsMessage::getLogString() const {
    return "\tGeneral type: " + generalType + "\n\tGroup type  : " + groupType +
           "\n\tMessage type: " + messageType;
}

}  // namespace TarvikCorelib
