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

/// A reference to a text, narrow or wide, in the banks of the process, of which each kind has one.
/// Equal texts of a kind share one copy, which goes with the last value that refers to it.
///
/// The banks have no lock: values belong to one thread, or to code that takes turns.
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

    /// May be given the value's own text.
    void set(const std::string& text);
    void set(const std::wstring& text);
    void clear();

    /// The text, or an empty one if the value is empty or of the other kind. The reference holds
    /// until the last value with this text is changed or destroyed, or all are cleared.
    [[nodiscard]] const std::string& get() const;
    [[nodiscard]] const std::wstring& getW() const;

    [[nodiscard]] bool isEmpty() const;
    /// False for an empty value.
    [[nodiscard]] bool isWide() const { return wide && !isEmpty(); }
    /// In characters.
    [[nodiscard]] std::size_t getLength() const { return isEmpty() ? 0 : length; }

    /// Negative, 0 or positive: empty values come first, then narrow ones, then wide ones. Of two
    /// texts with one beginning the result is the difference of their lengths.
    [[nodiscard]] int compare(const SharedString& other) const;

    /// Drops all texts. The values that there are become empty; they can be set anew.
    static void clearAll();

    /// A text and how many values refer to it. Without a text it waits to be used again.
    template <class Text>
    struct StringPointer {
        std::unique_ptr<const Text> text;
        std::uint32_t count = 0;
    };

    /// Compares the texts pointed at.
    struct less_ptr {  // NOLINT(readability-identifier-naming): called so by all that use it.
        template <class Text>
        bool operator()(const Text* a, const Text* b) const {
            return *a < *b;
        }
    };

    template <class Text>
    using Index = std::map<const Text*, std::size_t, less_ptr>;

    // NOLINTBEGIN(readability-identifier-naming): the names of the statics behind these.
    /// Process-wide. All texts.
    static const std::vector<StringPointer<std::string>>& StringBank();
    static const std::vector<StringPointer<std::wstring>>& StringBankW();
    /// Process-wide. The index of each text. Indices are those of the bank, but run on through
    /// `clearAll`, so that values from before it never meet a text from after it.
    static const Index<std::string>& StringMap();
    static const Index<std::wstring>& StringMapW();
    /// Process-wide. The indices that wait to be used again, the next one in front.
    static const std::list<std::size_t>& Free();
    static const std::list<std::size_t>& FreeW();
    // NOLINTEND(readability-identifier-naming)
    /// Process-wide. What an empty value gives.
    static const std::string& nstring();
    static const std::wstring& nwstring();

private:
    static constexpr auto NoIndex = static_cast<std::size_t>(-1);

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
