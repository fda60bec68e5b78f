/// The operators of the streams of values.
#pragma once

#include "libraries/corelib/source/values/PrimitiveStream.h"

#include <string>

namespace TarvikCorelib {

/// `<<` writes an element, without a call of `escape`; `>>` takes one off. Both stay silent where
/// that fails, and then `>>` leaves its target unchanged.
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

}  // namespace TarvikCorelib
