#include "apps/handlechecker/validation/NameSet.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Tarvik {

namespace {

constexpr std::size_t fewestPlaces = 16;

}  // namespace

bool NameSet::insert(std::string_view name) {
    if (2 * names.size() >= places.size()) {
        // Asked only here, to keep the usual way short: an ordered set has no places.
        if (ordered.has_value()) return insertOrdered(name);
        grow();
    }
    const std::size_t hash = std::hash<std::string_view>()(name);
    const std::size_t at = findPlace(name, hash);
    if (places[at].number != 0) return false;
    // A walk past the end of the table goes on at its start.
    if (((at - hash) & (places.size() - 1)) > LongestWalk) {
        turnToOrdered();
        return insertOrdered(name);
    }
    names.emplace_back(name);
    places[at] = {hash, names.size()};
    return true;
}

void NameSet::clear() {
    names.clear();
    ordered.reset();
    // Small again: emptying a large table would cost each small section after a large one.
    places.assign(fewestPlaces, {});
}

std::size_t NameSet::findPlace(std::string_view name, std::size_t hash) const {
    const std::size_t mask = places.size() - 1;
    std::size_t at = hash & mask;
    while (places[at].number != 0 &&
           (places[at].hash != hash || names[places[at].number - 1] != name)) {
        at = (at + 1) & mask;
    }
    return at;
}

void NameSet::grow() {
    const std::vector<Place> before = std::exchange(places, {});
    places.resize(std::max(fewestPlaces, 2 * before.size()));
    // No walk is checked here: in twice the places, all walks together are hardly longer.
    const std::size_t mask = places.size() - 1;
    for (const Place& place : before) {
        if (place.number == 0) continue;
        std::size_t at = place.hash & mask;
        while (places[at].number != 0) {
            at = (at + 1) & mask;
        }
        places[at] = place;
    }
}

bool NameSet::insertOrdered(std::string_view name) {
    // Looked up by the view first: a name that is there already needs no memory.
    const auto next = ordered->lower_bound(name);
    if (next != ordered->end() && *next == name) return false;
    ordered->emplace_hint(next, name);
    return true;
}

void NameSet::turnToOrdered() {
    ordered.emplace(std::make_move_iterator(names.begin()), std::make_move_iterator(names.end()));
    names.clear();
    places.clear();
}

}  // namespace Tarvik
