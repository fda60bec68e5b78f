/// The expression of a rule, such as `[type=include,exe="a, b"]`, taken apart.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarvik {

/// One object reads many expressions in turn and keeps its memory. All views lead into the text
/// that was read last, which must still be there, or into the object.
class RuleExpression {
public:
    /// A name and its value, named like the pairs of a map.
    using Parameter = std::pair<std::string_view, std::string_view>;

    /// Takes the text apart, and forgets the one before. False, with what was found, if it has any
    /// fault. A blank text has no parameters and no fault.
    ///
    /// With one bracket alone nothing is read; without both the parameters are. A name in quotes
    /// ends the reading and is a fault without a word. A quote that is never closed swallows the
    /// rest with its own parameter, and is no fault. On purpose, both.
    bool read(std::string_view text);

    [[nodiscard]] bool lacksOpeningBracket() const { return !opened; }
    [[nodiscard]] bool lacksClosingBracket() const { return !closed; }
    /// What stands between commas without an "=", blanks included.
    [[nodiscard]] const std::vector<std::string_view>& namesWithoutValue() const {
        return valueless;
    }

    /// Trimmed, in byte order of the names; equal ones in the order of writing.
    [[nodiscard]] const std::vector<Parameter>& parameters() const { return found; }
    /// The first value of that name, or null.
    [[nodiscard]] const std::string_view* valueOf(std::string_view name) const;

private:
    bool readPairs(std::string_view text);
    bool takeValue(std::string_view text, std::size_t& at, std::string_view& value);
    bool unquote(std::string_view text, std::size_t& at);
    void sortByName();

    bool opened = true;
    bool closed = true;
    std::vector<std::string_view> valueless;
    std::vector<Parameter> found;
    /// The values that had quotes, without them.
    std::string unquoted;
};

}  // namespace Tarvik
