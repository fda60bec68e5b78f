/// The values that fill the `%` of a message's template.
#pragma once

#include "libraries/corelib/source/values/StreamBase.h"

#include <list>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// A list of values with a cursor, at which they are read. Belongs to one thread.
class ParamStream : public StreamBase {
public:
    ParamStream() = default;
    /// A copy is read from its first element on. What was moved from is empty and can be used.
    ParamStream(const ParamStream& other);
    ParamStream(ParamStream&& other) noexcept;
    ParamStream& operator=(const ParamStream& other);
    ParamStream& operator=(ParamStream&& other) noexcept;
    ~ParamStream() override = default;

    /// The element at the cursor, which moves on.
    bool read(ElementDef& element) override;
    /// Appends. Refuses an undefined element, and an empty value unless it is a text.
    ///
    /// The first element of all gets the cursor. Later on a cursor at the end stays there, on
    /// purpose: what is written behind the last element read is not read, but formatted.
    bool write(ElementDef& element) override;
    /// Appends copies of all elements. Never moves the cursor, on purpose: one on the end of an
    /// empty stream stays there.
    void concatenate(const ParamStream& other);

    /// The next element for display, or an empty text at the end.
    std::string getNext();
    std::wstring getNextW();

    /// Fills a template with the elements, from the first one on, and leaves the cursor behind the
    /// last one used.
    ///
    /// Each `%` takes the next element; once they are used up it gives nothing, and elements that
    /// are left over are ignored. A backslash shields the character behind it and stays. With no
    /// elements at all the text is returned as it is, `%` included.
    [[nodiscard]] std::string format(std::string_view text);
    [[nodiscard]] std::wstring format(std::wstring_view text);

    ParamStream& operator<<(bool flag) override { return put(ElementDef(flag)); }
    ParamStream& operator<<(char c) override { return put(ElementDef(c)); }
    ParamStream& operator<<(wchar_t c) override { return put(ElementDef(c)); }
    ParamStream& operator<<(int number) override { return put(ElementDef(number)); }
    ParamStream& operator<<(unsigned int number) override { return put(ElementDef(number)); }
    ParamStream& operator<<(long long number) override { return put(ElementDef(number)); }
    ParamStream& operator<<(unsigned long long number) override { return put(ElementDef(number)); }
    ParamStream& operator<<(double number) override { return put(ElementDef(number)); }
    ParamStream& operator<<(const char* text) override { return put(ElementDef(text)); }
    ParamStream& operator<<(const wchar_t* text) override { return put(ElementDef(text)); }
    ParamStream& operator<<(const std::string& text) override { return put(ElementDef(text)); }
    ParamStream& operator<<(const std::wstring& text) override { return put(ElementDef(text)); }
    ParamStream& operator<<(const SharedString& text) override { return put(ElementDef(text)); }

    ParamStream& operator>>(bool& target) override { return take(target); }
    ParamStream& operator>>(char& target) override { return take(target); }
    ParamStream& operator>>(wchar_t& target) override { return take(target); }
    ParamStream& operator>>(int& target) override { return take(target); }
    ParamStream& operator>>(unsigned int& target) override { return take(target); }
    ParamStream& operator>>(long long& target) override { return take(target); }
    ParamStream& operator>>(unsigned long long& target) override { return take(target); }
    ParamStream& operator>>(double& target) override { return take(target); }
    ParamStream& operator>>(std::string& target) override { return take(target); }
    ParamStream& operator>>(std::wstring& target) override { return take(target); }
    ParamStream& operator>>(SharedString& target) override { return take(target); }

private:
    ParamStream& put(ElementDef element);
    template <class Value>
    ParamStream& take(Value& target) {
        pull(target);
        return *this;
    }
    template <class Char>
    std::basic_string<Char> fill(std::basic_string_view<Char> text,
                                 std::basic_string<Char> (ParamStream::*next)());

    std::list<ElementDef> elements;
    std::list<ElementDef>::const_iterator cursor = elements.end();
};

}  // namespace TarvikCorelib
