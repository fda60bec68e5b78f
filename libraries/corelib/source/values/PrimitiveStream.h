/// Typed values that are kept as text, one after the other.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace TarvikCorelib {

class DateTime;
class SharedString;

/// Turns values into elements and back. The derived class decides where the elements go.
///
/// An element is a type and a text. Text rather than a union of values, because a message shows
/// its values, a log stores them and a wire carries them: all three want text, and conversion back
/// is rare. The type is kept beside it, so that a read of the wrong type fails instead of guessing.
/// It costs a number conversion for each value written.
class PrimitiveStream {
public:
    /// The type of an element. The numbers are stored and sent, so they never change; 1, 2 and 11
    /// are unused. `ParamStream` accepts the types below `UndefinedElement`.
    enum ElementType : std::int32_t {
        BoolElement = 0,
        Int32Element = 3,
        UInt32Element = 4,
        Int64Element = 5,
        UInt64Element = 6,
        DoubleElement = 7,
        TimeElement = 8,
        StringElement = 9,
        WStringElement = 10,
        CharElement = 12,
        WCharElement = 13,
        UndefinedElement = 14,
    };

    /// One value. Line feeds are escaped, so a narrow value takes one line wherever it is stored.
    /// The bytes of a wide text may hold a line feed and zero bytes.
    struct ElementDef {
        ElementDef() = default;
        explicit ElementDef(bool flag);
        /// Characters are kept as their decimal code; a `char` is signed, so 0xE9 is "-23".
        explicit ElementDef(char c);
        explicit ElementDef(wchar_t c);
        explicit ElementDef(int number);
        explicit ElementDef(unsigned int number);
        explicit ElementDef(long long number);
        explicit ElementDef(unsigned long long number);
        /// Kept as `long long` and `unsigned long long`.
        explicit ElementDef(long number) : ElementDef(static_cast<long long>(number)) {}
        explicit ElementDef(unsigned long number)
            : ElementDef(static_cast<unsigned long long>(number)) {}
        explicit ElementDef(double number);
        /// Kept as its count; the zone is lost.
        explicit ElementDef(const DateTime& instant);
        /// Line feeds become `\n`, and backslashes are doubled. A wide text is then kept as its
        /// bytes in memory order, four a character. A null pointer stands for an empty text.
        explicit ElementDef(const char* text);
        explicit ElementDef(const wchar_t* text);
        explicit ElementDef(std::string_view text);
        explicit ElementDef(std::wstring_view text);
        explicit ElementDef(const SharedString& text);

        /// Returns false and leaves the target unchanged if the element is of another type.
        bool get(bool& target) const;
        bool get(char& target) const;
        bool get(wchar_t& target) const;
        bool get(int& target) const;
        bool get(unsigned int& target) const;
        bool get(long long& target) const;
        bool get(unsigned long long& target) const;
        bool get(double& target) const;
        /// Leaves the zone unset.
        bool get(DateTime& target) const;
        bool get(std::string& target) const;
        bool get(std::wstring& target) const;
        /// Reads narrow and wide texts.
        /// Quirk: a narrow text stays escaped, a wide one does not.
        bool get(SharedString& target) const;

        /// The value for display: flags as "true" and "false", times in GMT such as
        /// "2010-01-02T03:04:05.006Z", texts with their line feeds. Wide texts are converted by the
        /// process locale. Empty for an undefined element.
        [[nodiscard]] std::string getAsString() const;
        /// The same in wide characters. Narrow texts are widened byte by byte, so it never fails.
        [[nodiscard]] std::wstring getAsWString() const;

        ElementType type = UndefinedElement;
        std::string value;
    };

    virtual ~PrimitiveStream() = default;

    /// Takes the next element. Returns false and changes nothing if there is none.
    virtual bool read(ElementDef& element) = 0;
    /// Adds an element. Returns false if it is refused.
    virtual bool write(ElementDef& element) = 0;

    /// Hooks for derived classes that encode texts for a wire: `push` calls `escape` on a copy of
    /// the text and makes the element from the result. `<<` does not call it, and nothing here
    /// calls `unescape`: whoever overrides them decides when to decode.
    virtual void escape(std::string& /*text*/) {}
    virtual void escape(std::wstring& /*text*/) {}
    virtual void unescape(std::string& /*text*/) {}
    virtual void unescape(std::wstring& /*text*/) {}

    /// Writes a value as an element. Returns false if it is refused. Numbers of any type that an
    /// element can hold are accepted; a null pointer stands for an empty text.
    template <class Value>
    requires std::is_arithmetic_v<Value> && std::constructible_from<ElementDef, Value>
    bool push(Value value) {
        ElementDef element(value);
        return write(element);
    }
    bool push(const DateTime& instant);
    bool push(const char* text);
    bool push(const wchar_t* text);
    bool push(std::string_view text);
    bool push(std::wstring_view text);
    bool push(const SharedString& text);

    /// Reads the next element into any type that `ElementDef::get` takes. Returns false and leaves
    /// the target unchanged if there is no element, or one of another type.
    /// Quirk: an element of another type is consumed all the same.
    template <class Value>
    bool pull(Value& target) {
        ElementDef element;
        return read(element) && element.get(target);
    }

    /// The name of a type, such as "int32"; empty for `UndefinedElement`. And the reverse: the type
    /// of exactly this name, case included, or `UndefinedElement`.
    static std::string mapElementType(ElementType type);
    static std::wstring mapElementTypeW(ElementType type);
    static ElementType mapElementType(std::string_view name);
    static ElementType mapElementType(std::wstring_view name);

private:
    template <class Char>
    bool pushText(std::basic_string_view<Char> text);
};

}  // namespace TarvikCorelib
