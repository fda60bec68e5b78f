#include "libraries/corelib/source/diagnostics/Exception.h"

#include "libraries/corelib/source/diagnostics/TemplateReader.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace TarvikCorelib {

namespace {

// Each message is kept in the width in which it was thrown, and converted when the other is read:
// most are narrow and are read as such, so nothing is converted at all. `appendFullMessage` is one
// template for both widths. It changes over where an exception has a message of the other width
// only, and converts what that one and its causes give.

void append(std::string& out, std::string_view text) {
    out += text;
}

void append(std::wstring& out, std::string_view text) {
    out += StringTools::widen(text);
}

void append(std::string& out, std::wstring_view text) {
    out += StringTools::convert(text);
}

}  // namespace

Exception::Exception(std::string_view text) : message(text) {}

Exception::Exception(std::wstring_view text) : messageW(text) {}

Exception::Exception(std::string_view text, std::string_view location)
    : message(text), locations{std::string(location)} {}

Exception::Exception(std::wstring_view text, std::string_view location)
    : messageW(text), locations{std::string(location)} {}

Exception::Exception(std::string_view text, ParamStream params)
    : message(text), params(std::move(params)) {}

Exception::Exception(std::wstring_view text, ParamStream params)
    : messageW(text), params(std::move(params)) {}

Exception::Exception(std::string_view text, std::string_view location, ParamStream params)
    : message(text), params(std::move(params)), locations{std::string(location)} {}

Exception::Exception(std::wstring_view text, std::string_view location, ParamStream params)
    : messageW(text), params(std::move(params)), locations{std::string(location)} {}

Exception::Exception(std::string_view location, const Exception& inner)
    : locations{std::string(location)} {
    contained.push_back(inner);
}

std::string Exception::getMessage() const {
    return message.empty() ? StringTools::convert(messageW) : message;
}

std::wstring Exception::getMessageW() const {
    return messageW.empty() ? StringTools::widen(message) : messageW;
}

std::string Exception::getLocations() const {
    std::string all;
    for (const std::string& location : locations)
        all += location;
    return all;
}

std::string Exception::getMessageWithLocation() const {
    return getMessage() + getLocations();
}

std::wstring Exception::getMessageWWithLocation() const {
    return getMessageW() + StringTools::widen(getLocations());
}

std::string Exception::getFullMessage(bool withName) const {
    std::string text;
    appendFullMessage(text, withName);
    return text;
}

std::wstring Exception::getFullMessageW(bool withName) const {
    std::wstring text;
    appendFullMessage(text, withName);
    return text;
}

void Exception::forEachLogRecord(const TakeRecord& take) const {
    for (const Exception& inner : contained)
        inner.forEachLogRecord(take);

    if (!message.empty() || !messageW.empty()) {
        take(name + ": " + getMessageWithLocation(), params);
    } else if (contained.empty()) {
        take(name + ": <NO MESSAGE>", {});
    } else {
        take(name + ": Container for above exceptions", {});
    }
}

void Exception::addToMessage(std::string_view text) {
    message.append(1, ' ').append(text);
}

void Exception::addToMessage(std::wstring_view text) {
    messageW.append(1, L' ').append(text);
}

void Exception::addToMessage(std::string_view text, const ParamStream& values) {
    addToMessage(text);
    params.concatenate(values);
}

void Exception::addToMessage(std::wstring_view text, const ParamStream& values) {
    addToMessage(text);
    params.concatenate(values);
}

const Exception* Exception::getContained(std::string_view wanted) const {
    const auto found = std::find_if(contained.begin(), contained.end(),
                                    [wanted](const Exception& e) { return e.name == wanted; });
    return found != contained.end() ? &*found : nullptr;
}

bool Exception::haveContainedException(std::string_view wanted) const {
    return getContained(wanted) != nullptr;
}

template <>
const std::string& Exception::messageIn<char>() const {
    return message;
}

template <>
const std::wstring& Exception::messageIn<wchar_t>() const {
    return messageW;
}

template <class Char>
void Exception::appendFullMessage(std::basic_string<Char>& out, bool withName) const {
    using Other = std::conditional_t<std::is_same_v<Char, char>, wchar_t, char>;
    const std::basic_string<Char>& own = messageIn<Char>();
    if (own.empty() && !messageIn<Other>().empty()) {
        // Quirk: a message of the other width always comes with the name.
        std::basic_string<Other> text;
        appendFullMessage(text, true);
        append(out, text);
        return;
    }

    if (withName) append(out, name + ":");
    if (!own.empty()) {
        if (withName) out += Char{' '};
        ParamStream values = params;  // A copy, since formatting moves the cursor.
        out += values.format(readTemplate(own));
    }
    for (const Exception& inner : contained) {
        out += Char{'\n'};
        inner.appendFullMessage(out, true);
    }
}

}  // namespace TarvikCorelib
