#include "shared/library/common/Exception.h"

#include <utility>

namespace Tarvik {

Exception::Exception(int code, std::string name, std::string message)
    : code(code), name(std::move(name)), message(std::move(message)) {}

std::string Exception::getMessage() const {
    return message;
}

const char* Exception::what() const noexcept {
    return message.c_str();
}

}  // namespace Tarvik
