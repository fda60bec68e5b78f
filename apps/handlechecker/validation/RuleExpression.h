/// The expression of a rule, such as `[type=include,exe="a, b"]`, split into its parameters.
#pragma once

#include "apps/handlechecker/validation/ParameterNames.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarvik {

/// Reads one expression after the other, without a copy of what it finds.
///
/// A name or a plain value is a view into the caller's text. A value with quotes differs from the
/// text by its quotes and escapes, so its bytes go to one string that all such values share; it
/// reserves the size of the whole text first and so never moves. The object keeps its memory from
/// one expression to the next, so that a rule usually costs no allocation at all.
///
/// A good rule is not sorted. `number` finds each name in a table by one probe and marks it in a
/// word of bits, where a name that comes again shows at once.
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

    /// Names and values trimmed, in the order of writing, or sorted.
    [[nodiscard]] const std::vector<Parameter>& parameters() const { return found; }
    /// Puts the parameters in byte order of their names; equal names in the order of writing.
    void sortByName();

    /// Gives each parameter the number of its name. False if a name is unknown, or if one is
    /// repeated that is not in the set `mayRepeat`; then nothing has a number.
    bool number(const ParameterNames& names, ParameterNames::Set mayRepeat);
    /// The first value with that number, or null. Holds until the next `read`.
    [[nodiscard]] const std::string_view* valueOf(std::size_t number) const {
        return (seen >> number & 1U) != 0 ? &found[first[number]].second : nullptr;
    }
    /// The same, or an empty text.
    [[nodiscard]] std::string_view textOf(std::size_t number) const {
        const std::string_view* const value = valueOf(number);
        return value != nullptr ? *value : std::string_view();
    }
    /// Calls `reader` with each value of that number, in the order of writing, up to the first for
    /// which it returns false. Returns the last result, or true.
    template <typename Reader>
    bool readEach(std::size_t number, Reader reader) const;

private:
    /// Reads the text between the brackets.
    bool readPairs(std::string_view rest);
    /// Cuts a value off the front of `rest`, up to the comma behind it or the end. Returns false if
    /// the text ends inside quotes.
    bool takeValue(std::string_view& rest, std::string_view& value);
    /// The same for a value with quotes, which is appended to `unquoted`.
    bool takeQuoted(std::string_view& rest);

    bool opened = true;
    bool closed = true;
    std::vector<std::string_view> valueless;
    std::vector<Parameter> found;
    /// The values that had quotes, one behind the other, without quotes and escapes.
    std::string unquoted;

    ParameterNames::Set seen = 0;
    ParameterNames::Set repeated = 0;
    /// By number, the index of the first parameter with it. Holds for what is in `seen`.
    std::array<std::uint32_t, ParameterNames::MostNames> first{};
};

template <typename Reader>
bool RuleExpression::readEach(std::size_t number, Reader reader) const {
    const std::string_view* const value = valueOf(number);
    if (value == nullptr) return true;
    if ((repeated >> number & 1U) == 0) return reader(*value);
    const std::string_view name = found[first[number]].first;
    for (std::size_t index = first[number]; index < found.size(); ++index) {
        if (found[index].first == name && !reader(found[index].second)) return false;
    }
    return true;
}

}  // namespace Tarvik
