#include "apps/handlechecker/validation/NameSet.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace Tarvik {

namespace {

constexpr std::size_t fewestPlaces = 16;

}  // namespace

bool NameSet::insert(std::string_view name) {
    if (2 * names.size() >= places.size()) grow();
    const std::size_t hash = std::hash<std::string_view>()(name);
    Place& place = placeOf(name, hash);
    if (place.number != 0) return false;
    names.emplace_back(name);
    place = {hash, names.size()};
    return true;
}

void NameSet::clear() {
    names.clear();
    // Small again: emptying a large table would cost each small section after a large one.
    places.assign(fewestPlaces, {});
}

NameSet::Place& NameSet::placeOf(std::string_view name, std::size_t hash) {
    const std::size_t mask = places.size() - 1;
    std::size_t at = hash & mask;
    while (places[at].number != 0 &&
           (places[at].hash != hash || names[places[at].number - 1] != name)) {
        at = (at + 1) & mask;
    }
    return places[at];
}

void NameSet::grow() {
    const std::vector<Place> before = std::exchange(places, {});
    places.resize(std::max(fewestPlaces, 2 * before.size()));
    for (const Place& place : before) {
        if (place.number != 0) placeOf(names[place.number - 1], place.hash) = place;
    }
}

}  // namespace Tarvik
