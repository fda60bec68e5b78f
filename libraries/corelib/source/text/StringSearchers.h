/// Objects that find where a text is to be cut next.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace TarvikCorelib::StringTools {

/// One rule of cutting, for narrow and for wide texts.
class StringSearcher {
public:
    /// Looks at `count` characters of `text` from `pos` on, all ones meaning all that are left.
    /// True if there is a cut: it lies at `start` and consumes `length` characters. Otherwise both
    /// stay as they were. These two operations come first in the class, in this order: binaries
    /// rely on it.
    virtual bool operator()(std::size_t& start, std::size_t& length, const std::string& text,
                            std::size_t pos, std::size_t count) const = 0;
    virtual bool operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                            std::size_t pos, std::size_t count) const = 0;

    virtual ~StringSearcher() = default;

    /// False if `pos` is past the last character. Otherwise cuts `count` to what is left.
    static bool validateParameters(std::string_view text, std::size_t pos, std::size_t& count);
    static bool validateParameters(std::wstring_view text, std::size_t pos, std::size_t& count);
};

// All searchers below are made from narrow characters, which stand for the wide ones of the same
// number too, or from both kinds.

/// Finds the first character of a set. An empty set finds nothing.
class CharSearcher : public StringSearcher {
public:
    explicit CharSearcher(const std::string& set);
    CharSearcher(std::string set, std::wstring setW);

    bool operator()(std::size_t& start, std::size_t& length, const std::string& text,
                    std::size_t pos, std::size_t count) const override;
    bool operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                    std::size_t pos, std::size_t count) const override;

protected:
    std::string set;
    std::wstring setW;
};

/// The same outside quotes, as `StringIterator` reads them. The text up to `pos` counts for
/// nothing.
class CharSearcherUnquoted : public CharSearcher {
public:
    using CharSearcher::CharSearcher;

    bool operator()(std::size_t& start, std::size_t& length, const std::string& text,
                    std::size_t pos, std::size_t count) const override;
    bool operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                    std::size_t pos, std::size_t count) const override;
};

/// Finds the first match of a glob, all of which is consumed. An empty glob finds nothing.
class GlobSearcher : public StringSearcher {
public:
    explicit GlobSearcher(const std::string& pattern);
    GlobSearcher(std::string pattern, std::wstring patternW);

    bool operator()(std::size_t& start, std::size_t& length, const std::string& text,
                    std::size_t pos, std::size_t count) const override;
    bool operator()(std::size_t& start, std::size_t& length, const std::wstring& text,
                    std::size_t pos, std::size_t count) const override;

private:
    std::string pattern;
    std::wstring patternW;
};

/// Wraps a text at a width: finds the end of the line that begins at `pos`. At the end of the
/// stretch a cut consumes 1 as well, on purpose, though nothing stands there.
class LineSizeSearcher : public StringSearcher {
public:
    /// A line has at most `lineSize` characters and ends at a line feed or at white space of
    /// `breakSet`, which is consumed, or behind another character of it. One of these right behind
    /// a full line still goes with it, on purpose. A line feed at `pos` is a line by itself. Where
    /// the text goes on behind a full line, a line feed inside only bounds the search for a
    /// character of `breakSet`, on purpose. A size of 0 finds nothing.
    LineSizeSearcher(std::uint32_t lineSize, const std::string& breakSet);
    LineSizeSearcher(std::uint32_t lineSize, std::string breakSet, std::wstring breakSetW);

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
