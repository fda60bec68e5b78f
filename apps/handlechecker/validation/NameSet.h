/// The names seen so far, for questions of the kind "this one again?".
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik {

/// A hash table that turns into an ordered set when it is flooded.
///
/// A name takes the first free place at or behind the one its hash points to. The table is at most
/// half full, so an ordinary name is a step or two away from there. But the hash function is known,
/// and whoever writes a file can choose names that all point to one corner: each would then walk
/// past all others. One in 10^10 ordinary names has a walk of more than `LongestWalk` steps. So the
/// first such walk moves all names to an ordered set, which is slower for ordinary names but costs
/// the logarithm of their number whatever they look like.
///
/// Not for use by two threads at a time.
class NameSet {
public:
    /// Returns false if the name was inserted before.
    bool insert(std::string_view name);
    /// Forgets all names. The memory for the places of a few names stays.
    void clear();

private:
    /// A longer walk to a free place is taken for an attack.
    static constexpr std::size_t LongestWalk = 128;

    struct Place {
        std::size_t hash = 0;
        std::size_t number = 0;  ///< Of the name, from 1; 0 for a free place.
    };

    using OrderedNames = std::set<std::string, std::less<>>;

    /// The index of the name's place, or of the free place for it. There must be a free one.
    [[nodiscard]] std::size_t findPlace(std::string_view name, std::size_t hash) const;
    /// Doubles the places.
    void grow();
    bool insertOrdered(std::string_view name);
    void turnToOrdered();

    std::vector<std::string> names;
    /// A power of two, at most half of them taken. Empty once the names are ordered.
    std::vector<Place> places;
    /// Optional, because a set cannot be made at compile time, and a static of this class is.
    std::optional<OrderedNames> ordered;
};

}  // namespace Tarvik
