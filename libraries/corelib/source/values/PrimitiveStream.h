/// Typed values, kept as text one behind the other.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace TarvikCorelib {

class SharedString;

/// Turns values into elements and back. Where the elements go is up to the derived class.
class PrimitiveStream {
public:
    /// What an element holds. The numbers are stored.
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

    /// One value. As text it has no line feed, unless it is a wide one.
    struct ElementDef {
        ElementDef() = default;
        explicit ElementDef(bool flag);
        /// Characters are kept by their number.
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
        /// Line feeds and backslashes are escaped. A wide text is then kept as its bytes, four a
        /// character. A null pointer counts as an empty text.
        explicit ElementDef(const char* text);
        explicit ElementDef(const wchar_t* text);
        explicit ElementDef(std::string_view text);
        explicit ElementDef(std::wstring_view text);
        explicit ElementDef(const SharedString& text);

        /// False if the element is of another type: the target is left unchanged.
        bool get(bool& target) const;
        bool get(char& target) const;
        bool get(wchar_t& target) const;
        bool get(int& target) const;
        bool get(unsigned int& target) const;
        bool get(long long& target) const;
        bool get(unsigned long long& target) const;
        bool get(double& target) const;
        bool get(std::string& target) const;
        bool get(std::wstring& target) const;
        /// Takes narrow and wide texts. A narrow one stays escaped, on purpose.
        bool get(SharedString& target) const;

        /// The value for display: flags as "true" and "false", texts with their line feeds.
        [[nodiscard]] std::string getAsString() const;
        /// Never fails: what is narrow is widened byte by byte.
        [[nodiscard]] std::wstring getAsWString() const;

        ElementType type = UndefinedElement;
        std::string value;
    };

    virtual ~PrimitiveStream() = default;

    /// Takes the next element off. False, and nothing is changed, if there is none.
    virtual bool read(ElementDef& element) = 0;
    /// False if the element is refused.
    virtual bool write(ElementDef& element) = 0;

    /// For derived classes that encode texts: `push` calls `escape` on a copy of the text before it
    /// makes the element. Nothing here calls `unescape`.
    virtual void escape(std::string& /*text*/) {}
    virtual void escape(std::wstring& /*text*/) {}
    virtual void unescape(std::string& /*text*/) {}
    virtual void unescape(std::wstring& /*text*/) {}

    /// False if the element is refused. A null pointer counts as an empty text.
    template <class Value>
    requires std::is_arithmetic_v<Value> && std::constructible_from<ElementDef, Value>
    bool push(Value value) {
        ElementDef element(value);
        return write(element);
    }
    bool push(const char* text);
    bool push(const wchar_t* text);
    bool push(std::string_view text);
    bool push(std::wstring_view text);
    bool push(const SharedString& text);

    /// For each type that `ElementDef::get` knows. False if there is no element or one of another
    /// type, which is taken off all the same.
    template <class Value>
    bool pull(Value& target) {
        ElementDef element;
        return read(element) && element.get(target);
    }

    /// The name of a type, empty for `UndefinedElement`, and the type of a name, or
    /// `UndefinedElement`.
    static std::string mapElementType(ElementType type);
    static std::wstring mapElementTypeW(ElementType type);
    static ElementType mapElementType(std::string_view name);
    static ElementType mapElementType(std::wstring_view name);

private:
    template <class Char>
    bool pushText(std::basic_string_view<Char> text);
};

}  // namespace TarvikCorelib
