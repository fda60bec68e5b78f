/// The operators of the streams of values.
#pragma once

#include "libraries/corelib/source/values/PrimitiveStream.h"

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

namespace TarvikCorelib {

/// `<<` writes an element, `>>` reads one. Neither reports a failure: a refused element is dropped,
/// and `>>` leaves its target unchanged if there is no element or one of another type, which it
/// consumes. Use `push` and `pull` where the result matters.
///
/// `<<` does not call the `escape` hook, so texts reach a derived class as they are. The order of
/// the operations is that of their slots in the table of virtual functions: programs built against
/// this class rely on it, so new ones are added as free functions, as below.
class StreamBase : public PrimitiveStream {
public:
    virtual StreamBase& operator<<(bool flag) { return put(ElementDef(flag)); }
    virtual StreamBase& operator<<(char c) { return put(ElementDef(c)); }
    virtual StreamBase& operator<<(wchar_t c) { return put(ElementDef(c)); }
    virtual StreamBase& operator<<(int number) { return put(ElementDef(number)); }
    virtual StreamBase& operator<<(unsigned int number) { return put(ElementDef(number)); }
    virtual StreamBase& operator<<(long long number) { return put(ElementDef(number)); }
    virtual StreamBase& operator<<(unsigned long long number) { return put(ElementDef(number)); }
    virtual StreamBase& operator<<(double number) { return put(ElementDef(number)); }
    virtual StreamBase& operator<<(const char* text) { return put(ElementDef(text)); }
    virtual StreamBase& operator<<(const wchar_t* text) { return put(ElementDef(text)); }
    virtual StreamBase& operator<<(const std::string& text) { return put(ElementDef(text)); }
    virtual StreamBase& operator<<(const std::wstring& text) { return put(ElementDef(text)); }
    virtual StreamBase& operator<<(const SharedString& text) { return put(ElementDef(text)); }

    virtual StreamBase& operator>>(bool& target) { return take(target); }
    virtual StreamBase& operator>>(char& target) { return take(target); }
    virtual StreamBase& operator>>(wchar_t& target) { return take(target); }
    virtual StreamBase& operator>>(int& target) { return take(target); }
    virtual StreamBase& operator>>(unsigned int& target) { return take(target); }
    virtual StreamBase& operator>>(long long& target) { return take(target); }
    virtual StreamBase& operator>>(unsigned long long& target) { return take(target); }
    virtual StreamBase& operator>>(double& target) { return take(target); }
    virtual StreamBase& operator>>(std::string& target) { return take(target); }
    virtual StreamBase& operator>>(std::wstring& target) { return take(target); }
    virtual StreamBase& operator>>(SharedString& target) { return take(target); }

private:
    StreamBase& put(ElementDef element);
    template <class Value>
    StreamBase& take(Value& target) {
        pull(target);
        return *this;
    }
};

/// Types without an operation of their own, each with the one that stands for it.
template <class Value>
struct WrittenAs;
template <>
struct WrittenAs<long> {
    using Type = long long;
};
template <>
struct WrittenAs<unsigned long> {
    using Type = unsigned long long;
};
template <>
struct WrittenAs<std::string_view> {
    using Type = std::string;
};
template <>
struct WrittenAs<std::wstring_view> {
    using Type = std::wstring;
};

/// Writes such a value through the operation of its stand-in, so an override of that one sees it.
/// A free function, since members would be hidden by the operations of each derived class; and it
/// returns the stream as the type that it has, so that chains keep it.
template <class Stream, class Value, class StandIn = typename WrittenAs<Value>::Type>
requires std::derived_from<std::remove_reference_t<Stream>, StreamBase>
    std::remove_reference_t<Stream>
&operator<<(Stream&& stream, Value value) {
    stream << static_cast<StandIn>(value);
    return stream;
}

}  // namespace TarvikCorelib
