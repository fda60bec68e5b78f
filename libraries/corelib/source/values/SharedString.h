/// A string that is stored once however often it occurs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace TarvikCorelib {

/// A reference to a text in a bank, which holds each text once. There is one bank for narrow texts
/// and one for wide ones, both process-wide. A text is freed with the last value that refers to it.
///
/// A value is three numbers: the kind, the index of the text in its bank and the length. Copying
/// it counts one more reference and never copies the text. Setting it searches the bank.
///
/// The banks have no lock: use values on one thread, or guard them with a lock of your own.
///
///     const SharedString first("host.example");
///     const SharedString second("host.example");
///     &first.get() == &second.get();          // true: one text in the bank
///     SharedString().isEmpty();               // true
///     SharedString(std::string()).isEmpty();  // false
class SharedString {
public:
    /// Empty: it holds no text, which is not the same as holding an empty text.
    SharedString() = default;
    explicit SharedString(const std::string& text) { set(text); }
    explicit SharedString(const std::wstring& text) { set(text); }
    SharedString(const SharedString& other);
    SharedString& operator=(const SharedString& other);
    SharedString& operator=(const std::string& text);
    SharedString& operator=(const std::wstring& text);
    virtual ~SharedString();

    /// Accepts the value's own text, as `get` returns it.
    void set(const std::string& text);
    void set(const std::wstring& text);
    /// Makes the value empty, and frees the text if no other value refers to it.
    void clear();

    /// The text, or an empty one if the value is empty or of the other kind. The reference stays
    /// valid until the last value with this text changes or is destroyed, or until `clearAll`.
    [[nodiscard]] const std::string& get() const;
    [[nodiscard]] const std::wstring& getW() const;

    [[nodiscard]] bool isEmpty() const;
    /// Whether it holds a wide text. False for an empty value.
    [[nodiscard]] bool isWide() const { return wide && !isEmpty(); }
    /// In characters; 0 for an empty value.
    [[nodiscard]] std::size_t getLength() const { return isEmpty() ? 0 : length; }

    /// Negative, 0 or positive: empty values come first, then narrow ones, then wide ones. Narrow
    /// texts compare as unsigned bytes. If one text begins with the other, the result is the
    /// difference of their lengths, limited to the range of `int`.
    [[nodiscard]] int compare(const SharedString& other) const;

    /// Drops all texts. Existing values become empty and can be set again.
    static void clearAll();

    /// A text and the number of values that refer to it. Without a text the record is free.
    template <class Text>
    struct StringPointer {
        std::unique_ptr<const Text> text;
        std::uint32_t count = 0;
    };

    /// Orders pointers by the texts they point to.
    struct less_ptr {  // NOLINT(readability-identifier-naming): callers know it by this name.
        template <class Text>
        bool operator()(const Text* a, const Text* b) const {
            return *a < *b;
        }
    };

    template <class Text>
    using Index = std::map<const Text*, std::size_t, less_ptr>;

    // NOLINTBEGIN(readability-identifier-naming): accessors keep the names of their statics.
    /// Process-wide. All texts of a kind, free records included.
    static const std::vector<StringPointer<std::string>>& StringBank();
    static const std::vector<StringPointer<std::wstring>>& StringBankW();
    /// Process-wide. The index of each text. After a `clearAll` indices do not start at 0 again but
    /// go on, so that a value from before it never refers to a text from after it.
    static const Index<std::string>& StringMap();
    static const Index<std::wstring>& StringMapW();
    /// Process-wide. The indices of free records, the next one to use in front.
    static const std::list<std::size_t>& Free();
    static const std::list<std::size_t>& FreeW();
    // NOLINTEND(readability-identifier-naming)
    /// Process-wide. The text of an empty value.
    static const std::string& nstring();
    static const std::wstring& nwstring();

private:
    /// Beyond any bank, so looking it up finds nothing.
    static constexpr auto NoIndex = static_cast<std::size_t>(-1);

    /// The text, or null if the value is empty, of the other kind, or from before a `clearAll`.
    template <class Text>
    [[nodiscard]] const Text* stored() const;
    template <class Text>
    void assign(const Text& text);
    void share(const SharedString& other);

    bool wide = false;
    std::size_t index = NoIndex;
    std::size_t length = 0;
};

}  // namespace TarvikCorelib
