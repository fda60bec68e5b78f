/// Objects that find where a text is to be cut next.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace TarvikCorelib::StringTools {

/// A text that is no string: a view, a literal, or a class that converts to a view.
template <class Text>
concept NarrowView =
    std::convertible_to<const Text&, std::string_view> && !std::derived_from<Text, std::string>;
template <class Text>
concept WideView =
    std::convertible_to<const Text&, std::wstring_view> && !std::derived_from<Text, std::wstring>;

/// One rule of cutting, for narrow and for wide texts.
///
/// A searcher has no position of its own: the caller gives the range anew in each call, so one
/// object may serve many texts and many threads. A rule of one's own overrides the two virtual
/// operations and names the other overloads by `using StringSearcher::operator();`. Overrides must
/// be const. One that leaves it out would hide these operations without replacing them; the two
/// final operations below turn that slip into a compile error, in subclasses of subclasses too.
class StringSearcher {
public:
    /// Looks at `count` characters of `text` from `pos` on, all ones meaning the rest of the text.
    /// True if there is a cut: it lies at `start`, an index into the whole text, and consumes
    /// `length` characters. Otherwise both stay as they were. These two operations come first in
    /// the class, in this order: binaries rely on it.
    virtual bool operator()(std::size_t& start, std::size_t& length, const std::string& text,
                            std::size_t pos, std::size_t count) const = 0;
    virtual bool operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                            std::size_t pos, std::size_t count) const = 0;

    virtual ~StringSearcher() = default;

    /// The same for a view or a literal. Each call copies the text, so a caller that cuts a long
    /// text in a loop keeps it as a string.
    template <class Text>
    requires NarrowView<Text> || WideView<Text>
    bool operator()(std::size_t& start, std::size_t& length, const Text& text, std::size_t pos,
                    std::size_t count) const {
        using String = std::conditional_t<NarrowView<Text>, std::string, std::wstring>;
        return (*this)(start, length, String(text), pos, count);
    }
    template <class Text>
    requires NarrowView<Text> || WideView<Text>
    bool operator()(std::size_t& start, std::size_t& length, const Text& text, std::size_t pos,
                    std::size_t count) {
        return std::as_const(*this)(start, length, text, pos, count);
    }

    /// Serve objects that are not const, and forbid overrides that are not.
    virtual bool operator()(std::size_t& start, std::size_t& length, const std::string& text,
                            std::size_t pos, std::size_t count) final;
    virtual bool operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                            std::size_t pos, std::size_t count) final;

    /// False if `pos` is past the last character. Otherwise reduces `count` to what is left.
    static bool validateParameters(std::string_view text, std::size_t pos, std::size_t& count);
    static bool validateParameters(std::wstring_view text, std::size_t pos, std::size_t& count);
};

// Each searcher below is made from narrow characters, which then also serve for the wide characters
// of the same number, or from both kinds.

/// Finds the first character of a set. An empty set finds nothing.
class CharSearcher : public StringSearcher {
public:
    explicit CharSearcher(std::string_view set);
    CharSearcher(std::string_view set, std::wstring_view setW);

    using StringSearcher::operator();
    bool operator()(std::size_t& start, std::size_t& length, const std::string& text,
                    std::size_t pos, std::size_t count) const override;
    bool operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                    std::size_t pos, std::size_t count) const override;

protected:
    /// The set in each width. For a subclass with another idea of where the set may be found.
    std::string set;
    std::wstring setW;
};

/// Finds the first character of a set outside quotes, as `StringIterator` reads them. Quotes and
/// backslashes before `pos` are ignored.
class CharSearcherUnquoted : public CharSearcher {
public:
    using CharSearcher::CharSearcher;

    using StringSearcher::operator();
    bool operator()(std::size_t& start, std::size_t& length, const std::string& text,
                    std::size_t pos, std::size_t count) const override;
    bool operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                    std::size_t pos, std::size_t count) const override;
};

/// Finds the first match of a glob, all of which is consumed. An empty glob finds nothing.
class GlobSearcher : public StringSearcher {
public:
    explicit GlobSearcher(std::string_view pattern);
    GlobSearcher(std::string_view pattern, std::wstring_view patternW);

    using StringSearcher::operator();
    bool operator()(std::size_t& start, std::size_t& length, const std::string& text,
                    std::size_t pos, std::size_t count) const override;
    bool operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                    std::size_t pos, std::size_t count) const override;

private:
    std::string pattern;
    std::wstring patternW;
};

/// Wraps a text at a width: finds the end of the line that begins at `pos`.
///
/// A line has at most `lineSize` characters. It ends at a line feed or at white space of the break
/// set, which is consumed, or behind another character of the set, which stays on the line. A line
/// without such a place is cut at its full width. A line feed at `pos` is a line by itself.
///
/// Quirk: a cut at the end of the range consumes 1 as well, though no character is left there.
/// Quirk: a character of the set right behind a full line still goes with it.
/// Quirk: where the text goes on behind a full line, a line feed inside does not end the line: it
/// only bounds the search for a character of the set.
class LineSizeSearcher : public StringSearcher {
public:
    /// A size of 0 finds nothing.
    LineSizeSearcher(std::uint32_t lineSize, std::string_view breakSet);
    LineSizeSearcher(std::uint32_t lineSize, std::string_view breakSet,
                     std::wstring_view breakSetW);

    using StringSearcher::operator();
    bool operator()(std::size_t& start, std::size_t& length, const std::string& text,
                    std::size_t pos, std::size_t count) const override;
    bool operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                    std::size_t pos, std::size_t count) const override;

private:
    std::uint32_t lineSize;
    std::string breakSet;
    std::wstring breakSetW;
};

}  // namespace TarvikCorelib::StringTools
