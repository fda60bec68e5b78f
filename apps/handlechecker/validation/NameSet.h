/// The names seen so far, for questions of the kind "this one again?".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik {

/// A name costs about the same time however many there are.
class NameSet {
public:
    /// False when the name is in already.
    bool insert(std::string_view name);
    void clear();

private:
    struct Place {
        std::size_t hash = 0;
        std::size_t number = 0;  ///< Of the name, from 1; 0 for a free place.
    };

    /// Where the name is, or the free place for it, of which there must be one.
    Place& placeOf(std::string_view name, std::size_t hash);
    void grow();

    std::vector<std::string> names;
    /// By hash, then the next free place on. A power of two, at most half of them taken.
    std::vector<Place> places;
};

}  // namespace Tarvik
