/// Objects that find where a text is to be cut next.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace TarvikCorelib::StringTools {

/// One rule of cutting.
class StringSearcher {
public:
    virtual ~StringSearcher() = default;

    /// Looks at `count` characters of `text` from `pos` on, all ones meaning all that are left.
    /// True if there is a cut: it lies at `start` and consumes `length` characters.
    virtual bool operator()(std::size_t& start, std::size_t& length, const std::string& text,
                            std::size_t pos, std::size_t count) const = 0;

protected:
    /// False if `pos` is past the last character. Otherwise cuts `count` to what is left.
    static bool validateParameters(const std::string& text, std::size_t pos, std::size_t& count);
};

/// Wraps a text at a width: finds the end of the line that begins at `pos`.
class LineSizeSearcher : public StringSearcher {
public:
    /// A line has at most `lineSize` characters and ends at a line feed, at white space, which is
    /// consumed, or behind another character of `breakSet`. One of these right behind a full line
    /// still goes with it, on purpose. A size of 0 finds nothing.
    LineSizeSearcher(std::uint32_t lineSize, std::string breakSet);

    bool operator()(std::size_t& start, std::size_t& length, const std::string& text,
                    std::size_t pos, std::size_t count) const override;

private:
    void breakLine(std::size_t& start, std::size_t& length, const std::string& text,
                   std::size_t pos) const;

    std::uint32_t lineSize;
    std::string breakSet;
};

}  // namespace TarvikCorelib::StringTools
