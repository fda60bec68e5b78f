#include "libraries/corelib/source/values/PrimitiveStream.h"

#include "libraries/corelib/source/text/StringToolsConvert.h"
#include "libraries/corelib/source/text/StringToolsEscape.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/time/DateTimeDetails.h"
#include "libraries/corelib/source/values/SharedString.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace TarvikCorelib {

namespace {

using ElementType = PrimitiveStream::ElementType;
using ElementDef = PrimitiveStream::ElementDef;

// How values are encoded. What `ElementDef` writes, the `parse` functions below read:
//
//   flag         "1" or "0"
//   character    its code in decimal
//   number       decimal
//   time         its count in decimal
//   narrow text  escaped: a line feed as "\n", a backslash doubled
//   wide text    escaped in the same way, and then its bytes as they are in memory
//
// Each `parse` is an overload on the type of the target, so that a type costs a constructor, a
// `parse` and a `get`.

struct TypeName {
    std::string_view name;
    ElementType type;
};

constexpr auto typeNames = std::to_array<TypeName>({
    {"bool", PrimitiveStream::BoolElement},
    {"int32", PrimitiveStream::Int32Element},
    {"uint32", PrimitiveStream::UInt32Element},
    {"int64", PrimitiveStream::Int64Element},
    {"uint64", PrimitiveStream::UInt64Element},
    {"double", PrimitiveStream::DoubleElement},
    {"time", PrimitiveStream::TimeElement},
    {"string", PrimitiveStream::StringElement},
    {"wstring", PrimitiveStream::WStringElement},
    {"char", PrimitiveStream::CharElement},
    {"wchar", PrimitiveStream::WCharElement},
});

std::string_view nameOf(ElementType type) {
    for (const TypeName& row : typeNames)
        if (row.type == type) return row.name;
    return {};
}

template <class Char>
ElementType typeOf(std::basic_string_view<Char> name) {
    for (const TypeName& row : typeNames)
        if (std::equal(name.begin(), name.end(), row.name.begin(), row.name.end())) return row.type;
    return PrimitiveStream::UndefinedElement;
}

template <class Char>
std::basic_string_view<Char> viewOf(const Char* text) {
    return text != nullptr ? std::basic_string_view<Char>(text) : std::basic_string_view<Char>();
}

template <class Char>
std::basic_string<Char> escaped(std::basic_string_view<Char> text) {
    return StringTools::escape(text, Char{'\n'}, Char{'n'}, Char{'\\'});
}

template <class Char>
std::basic_string<Char> unescaped(std::basic_string_view<Char> text) {
    return StringTools::unescape(text, Char{'\n'}, Char{'n'}, Char{'\\'});
}

std::string bytesOf(const std::wstring& text) {
    std::string bytes(text.size() * sizeof(wchar_t), '\0');
    std::memcpy(bytes.data(), text.data(), bytes.size());
    return bytes;
}

// Drops bytes at the end that are not a whole character.
std::wstring fromBytes(const std::string& bytes) {
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    return text;
}

void parse(const std::string& text, bool& value) {
    value = StringTools::toBool(text);
}

// Codes are signed and fit 16 bits; the cast brings back bytes from 0x80 up.
void parse(const std::string& text, char& value) {
    value = static_cast<char>(StringTools::toInt16(text));
}

void parse(const std::string& text, wchar_t& value) {
    value = StringTools::toInt32(text);
}

void parse(const std::string& text, int& value) {
    value = StringTools::toInt32(text);
}

void parse(const std::string& text, unsigned int& value) {
    value = StringTools::toUInt32(text);
}

void parse(const std::string& text, long long& value) {
    value = StringTools::toInt64(text);
}

void parse(const std::string& text, unsigned long long& value) {
    value = StringTools::toUInt64(text);
}

void parse(const std::string& text, double& value) {
    value = StringTools::toDouble(text);
}

void parse(const std::string& text, DateTime& value) {
    value = DateTime(StringTools::toUInt64(text));
}

void parse(const std::string& text, std::string& value) {
    value = unescaped<char>(text);
}

void parse(const std::string& text, std::wstring& value) {
    value = unescaped<wchar_t>(fromBytes(text));
}

// Compares the type first, so that a target of another type is never touched.
template <class Value>
bool getAs(ElementType type, const ElementDef& element, Value& target) {
    if (element.type != type) return false;
    parse(element.value, target);
    return true;
}

template <class Value>
Value parsed(const ElementDef& element) {
    Value value{};
    parse(element.value, value);
    return value;
}

}  // namespace

PrimitiveStream::ElementDef::ElementDef(bool flag)
    : type(BoolElement), value(StringTools::toString(flag)) {}

PrimitiveStream::ElementDef::ElementDef(char c)
    : type(CharElement), value(StringTools::toString(c)) {}

PrimitiveStream::ElementDef::ElementDef(wchar_t c)
    : type(WCharElement), value(StringTools::toString(c)) {}

PrimitiveStream::ElementDef::ElementDef(int number)
    : type(Int32Element), value(StringTools::toString(number)) {}

PrimitiveStream::ElementDef::ElementDef(unsigned int number)
    : type(UInt32Element), value(StringTools::toString(number)) {}

PrimitiveStream::ElementDef::ElementDef(long long number)
    : type(Int64Element), value(StringTools::toString(number)) {}

PrimitiveStream::ElementDef::ElementDef(unsigned long long number)
    : type(UInt64Element), value(StringTools::toString(number)) {}

PrimitiveStream::ElementDef::ElementDef(double number)
    : type(DoubleElement), value(StringTools::toString(number)) {}

PrimitiveStream::ElementDef::ElementDef(const DateTime& instant)
    : type(TimeElement), value(StringTools::toString(instant.time())) {}

PrimitiveStream::ElementDef::ElementDef(const char* text) : ElementDef(viewOf(text)) {}

PrimitiveStream::ElementDef::ElementDef(const wchar_t* text) : ElementDef(viewOf(text)) {}

PrimitiveStream::ElementDef::ElementDef(std::string_view text)
    : type(StringElement), value(escaped(text)) {}

PrimitiveStream::ElementDef::ElementDef(std::wstring_view text)
    : type(WStringElement), value(bytesOf(escaped(text))) {}

PrimitiveStream::ElementDef::ElementDef(const SharedString& text)
    : ElementDef(text.isWide() ? ElementDef(text.getW()) : ElementDef(text.get())) {}

bool PrimitiveStream::ElementDef::get(bool& target) const {
    return getAs(BoolElement, *this, target);
}

bool PrimitiveStream::ElementDef::get(char& target) const {
    return getAs(CharElement, *this, target);
}

bool PrimitiveStream::ElementDef::get(wchar_t& target) const {
    return getAs(WCharElement, *this, target);
}

bool PrimitiveStream::ElementDef::get(int& target) const {
    return getAs(Int32Element, *this, target);
}

bool PrimitiveStream::ElementDef::get(unsigned int& target) const {
    return getAs(UInt32Element, *this, target);
}

bool PrimitiveStream::ElementDef::get(long long& target) const {
    return getAs(Int64Element, *this, target);
}

bool PrimitiveStream::ElementDef::get(unsigned long long& target) const {
    return getAs(UInt64Element, *this, target);
}

bool PrimitiveStream::ElementDef::get(double& target) const {
    return getAs(DoubleElement, *this, target);
}

bool PrimitiveStream::ElementDef::get(DateTime& target) const {
    return getAs(TimeElement, *this, target);
}

bool PrimitiveStream::ElementDef::get(std::string& target) const {
    return getAs(StringElement, *this, target);
}

bool PrimitiveStream::ElementDef::get(std::wstring& target) const {
    return getAs(WStringElement, *this, target);
}

bool PrimitiveStream::ElementDef::get(SharedString& target) const {
    if (type == StringElement) {
        target.set(value);
        return true;
    }
    if (type != WStringElement) return false;
    target.set(parsed<std::wstring>(*this));
    return true;
}

std::string PrimitiveStream::ElementDef::getAsString() const {
    switch (type) {
    case BoolElement: return parsed<bool>(*this) ? "true" : "false";
    case TimeElement: return DateTimeDetails(parsed<TimeType>(*this)).getString(true, false, false);
    case StringElement: return parsed<std::string>(*this);
    case WStringElement: return StringTools::convert(parsed<std::wstring>(*this));
    case CharElement: return {parsed<char>(*this)};
    case WCharElement: return StringTools::convert(std::wstring(1, parsed<wchar_t>(*this)));
    // The numbers, which are stored as they are shown; undefined elements show nothing.
    default: return type > BoolElement && type < TimeElement ? value : std::string();
    }
}

std::wstring PrimitiveStream::ElementDef::getAsWString() const {
    switch (type) {
    case WStringElement: return parsed<std::wstring>(*this);
    case WCharElement: return {parsed<wchar_t>(*this)};
    default: return StringTools::widen(getAsString());
    }
}

bool PrimitiveStream::push(const DateTime& instant) {
    ElementDef element(instant);
    return write(element);
}

bool PrimitiveStream::push(const char* text) {
    return pushText(viewOf(text));
}

bool PrimitiveStream::push(const wchar_t* text) {
    return pushText(viewOf(text));
}

bool PrimitiveStream::push(std::string_view text) {
    return pushText(text);
}

bool PrimitiveStream::push(std::wstring_view text) {
    return pushText(text);
}

bool PrimitiveStream::push(const SharedString& text) {
    return text.isWide() ? push(text.getW()) : push(text.get());
}

std::string PrimitiveStream::mapElementType(ElementType type) {
    return std::string(nameOf(type));
}

std::wstring PrimitiveStream::mapElementTypeW(ElementType type) {
    return StringTools::widen(nameOf(type));
}

PrimitiveStream::ElementType PrimitiveStream::mapElementType(std::string_view name) {
    return typeOf(name);
}

PrimitiveStream::ElementType PrimitiveStream::mapElementType(std::wstring_view name) {
    return typeOf(name);
}

// The hook encodes a copy, since the caller keeps the text; then `ElementDef` escapes as always.
template <class Char>
bool PrimitiveStream::pushText(std::basic_string_view<Char> text) {
    std::basic_string<Char> encoded(text);
    escape(encoded);
    ElementDef element(encoded);
    return write(element);
}

}  // namespace TarvikCorelib
