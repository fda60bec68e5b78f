/// The names seen so far, for questions of the kind "this one again?".
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik {

/// A sorted list of the names that came in order, and a hash table of the others, which turns into
/// an ordered set when it is flooded.
///
/// Memory touched is what costs. Programs that write handles number their rules in ascending order:
/// a name above all before it is new, and goes to the end of the list without a search. Any other
/// is searched for in the list by halves, then in the table.
///
/// There a name takes the first free place at or behind the one its hash points to. The table is at
/// most half full, so an ordinary name is a step or two away from there. But the hash function is
/// known, and whoever writes a file can choose names that all point to one corner: each would then
/// walk past all others. One in 10^10 ordinary names has a walk of more than `LongestWalk` steps.
/// So the first such walk moves the names of the table to an ordered set, which is slower for
/// ordinary names but costs the logarithm of their number whatever they look like.
///
/// Not for use by two threads at a time.
class NameSet {
public:
    /// Returns false if the name was inserted before.
    bool insert(std::string_view name);
    /// Forgets all names. The memory of the lists stays.
    void clear();

private:
    /// A longer walk to a free place is taken for an attack.
    static constexpr std::size_t LongestWalk = 128;

    /// Names by number, from 0, one behind the other in one text.
    class List {
    public:
        void append(std::string_view name);
        void clear();
        [[nodiscard]] std::size_t size() const { return ends.size(); }
        [[nodiscard]] std::string_view operator[](std::size_t number) const;
        /// If the names are sorted.
        [[nodiscard]] bool holds(std::string_view name) const;

    private:
        std::vector<char> text;
        std::vector<std::size_t> ends;
    };

    struct Place {
        std::uint32_t hash = 0;    ///< Half of it.
        std::uint32_t number = 0;  ///< Of the name in `others`, from 1; 0 for a free place.
    };

    using OrderedNames = std::set<std::string, std::less<>>;

    bool insertOther(std::string_view name);
    /// The index of the name's place, or of the free place for it. There must be a free one.
    [[nodiscard]] std::size_t findPlace(std::string_view name, std::uint32_t hash) const;
    /// Doubles the places.
    void grow();
    bool insertOrdered(std::string_view name);
    void turnToOrdered();

    List ascending;
    List others;
    /// A power of two, at most half of them taken. Empty once the others are ordered.
    std::vector<Place> places;
    /// Optional, because a set cannot be made at compile time, and a static of this class is.
    std::optional<OrderedNames> ordered;
};

// Inline, since most names of a handle need no more than the first two.
inline void NameSet::List::append(std::string_view name) {
    text.insert(text.end(), name.begin(), name.end());
    ends.push_back(text.size());
}

inline std::string_view NameSet::List::operator[](std::size_t number) const {
    const std::size_t start = number > 0 ? ends[number - 1] : 0;
    return {text.data() + start, ends[number] - start};
}

}  // namespace Tarvik
