/// The expression of a rule, such as `[type=include,exe="a, b"]`, split into its parameters.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarvik {

/// Reads one expression after the other, without a copy of what it finds.
///
/// A name or a plain value is a view into the caller's text. A value with quotes differs from the
/// text by its quotes and escapes, so its bytes go to one string that all such values share; it
/// reserves the size of the whole text first and so never moves. The parameters are a sorted
/// vector: rules have few, and the object keeps its memory from one expression to the next, so that
/// a rule usually costs no allocation at all.
///
/// All views hold until the next `read`, as long as the text itself is there.
class RuleExpression {
public:
    /// A name and its value, named like the pairs of a map.
    using Parameter = std::pair<std::string_view, std::string_view>;

    /// Splits the text, and forgets the one before. Returns false for any fault; the parameters
    /// that were found until then can still be read. An empty text has no parameters and no fault.
    ///
    /// If just one of the two brackets is missing, nothing is read; without both, the parameters
    /// are read although the text has a fault.
    ///
    /// Quirk: a name in quotes ends the reading, a fault that is not reported as a name.
    /// Quirk: a quote that is never closed drops its own parameter and is no fault.
    bool read(std::string_view text);

    [[nodiscard]] bool lacksOpeningBracket() const { return !opened; }
    [[nodiscard]] bool lacksClosingBracket() const { return !closed; }
    /// The text between two commas where it has no "=", untrimmed, in the order of writing.
    [[nodiscard]] const std::vector<std::string_view>& namesWithoutValue() const {
        return valueless;
    }

    /// Names and values trimmed, in byte order of the names; equal names in the order of writing.
    [[nodiscard]] const std::vector<Parameter>& parameters() const { return found; }
    /// The first value of that name, or null. Holds until the next `read`.
    [[nodiscard]] const std::string_view* valueOf(std::string_view name) const;

private:
    /// Reads the text between the brackets.
    bool readPairs(std::string_view rest);
    /// Cuts a value off the front of `rest`, up to the comma behind it or the end. Returns false if
    /// the text ends inside quotes.
    bool takeValue(std::string_view& rest, std::string_view& value);
    /// The same for a value with quotes, which is appended to `unquoted`.
    bool takeQuoted(std::string_view& rest);
    void sortByName();

    bool opened = true;
    bool closed = true;
    std::vector<std::string_view> valueless;
    std::vector<Parameter> found;
    /// The values that had quotes, one behind the other, without quotes and escapes.
    std::string unquoted;
};

}  // namespace Tarvik
