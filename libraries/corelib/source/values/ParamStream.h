/// The values that fill the `%` of a message's template.
#pragma once

#include "libraries/corelib/source/values/StreamBase.h"

#include <list>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// A list of typed values with a read cursor. Belongs to one thread.
///
/// The elements are in a `std::list`, so the cursor, an iterator, stays valid while more are
/// written. "Nothing left to read" is the end of the list, and each list has its own end: that is
/// why copies and moves are written by hand and set the cursor anew. Copying is common, since each
/// exception holds a stream by value; it costs one allocation an element, and more for long texts.
///
///     ParamStream params = ParamStream() << "a.txt" << 3;
///     params.format("% has % lines");  // "a.txt has 3 lines"
///     ParamStream again(params);       // Its cursor is at the first element.
///     again >> name >> lines;          // name is "a.txt", lines is 3
class ParamStream : public StreamBase {
public:
    ParamStream() = default;
    /// A copy starts at its first element, wherever the cursor of the original is. A stream that
    /// was moved from is empty and can be used again.
    ParamStream(const ParamStream& other);
    ParamStream(ParamStream&& other) noexcept;
    ParamStream& operator=(const ParamStream& other);
    ParamStream& operator=(ParamStream&& other) noexcept;
    ~ParamStream() override = default;

    /// Copies the element at the cursor and moves the cursor on. The element stays in the list.
    bool read(ElementDef& element) override;
    /// Appends a copy. Refuses an undefined element, and an empty value unless it is a text. The
    /// first element written to an empty stream gets the cursor.
    ///
    /// Quirk: a cursor at the end stays there. Elements written after everything has been read are
    /// formatted, but never read.
    bool write(ElementDef& element) override;
    /// Appends copies of all elements of the other stream, which may be this one.
    /// Quirk: never moves the cursor, not even in an empty stream, where it stays at the end.
    void concatenate(const ParamStream& other);

    /// Moves the cursor on and returns the element for display, or an empty text at the end.
    std::string getNext();
    std::wstring getNextW();

    /// Fills a template with the elements, from the first one on, and leaves the cursor after the
    /// last one used.
    ///
    /// Each `%` is replaced by the next element, or by nothing once they are used up. Elements left
    /// over are ignored. A backslash shields the next character and is kept itself. With no
    /// elements at all the text is returned unchanged, `%` included.
    [[nodiscard]] std::string format(std::string_view text);
    [[nodiscard]] std::wstring format(std::wstring_view text);

    // As in `StreamBase`, but they return this type, so a chain can initialise a `ParamStream`.
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
