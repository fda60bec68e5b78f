#include "apps/handlechecker/validation/NameSet.h"

#include <algorithm>
#include <utility>

namespace Tarvik {

namespace {

constexpr std::size_t fewestPlaces = 16;

}  // namespace

void NameSet::List::clear() {
    text.clear();
    ends.clear();
}

bool NameSet::List::holds(std::string_view name) const {
    std::size_t first = 0;
    std::size_t end = size();
    while (first < end) {
        const std::size_t middle = first + (end - first) / 2;
        const int order = name.compare((*this)[middle]);
        if (order == 0) return true;
        (order < 0 ? end : first) = order < 0 ? middle : middle + 1;
    }
    return false;
}

bool NameSet::insert(std::string_view name) {
    if (ascending.size() > 0 && name <= ascending[ascending.size() - 1]) {
        return !ascending.holds(name) && insertOther(name);
    }
    ascending.append(name);
    return true;
}

bool NameSet::insertOther(std::string_view name) {
    if (ordered.has_value()) return insertOrdered(name);
    if (2 * others.size() >= places.size()) grow();
    const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
    const std::size_t at = findPlace(name, hash);
    if (places[at].number != 0) return false;
    // A walk past the end of the table goes on at its start.
    if (((at - hash) & (places.size() - 1)) > LongestWalk) {
        turnToOrdered();
        return insertOrdered(name);
    }
    others.append(name);
    places[at] = {hash, static_cast<std::uint32_t>(others.size())};
    return true;
}

void NameSet::clear() {
    ascending.clear();
    others.clear();
    // Forgotten, not set to free: a large table would cost each small section after a large one.
    places.clear();
    ordered.reset();
}

std::size_t NameSet::findPlace(std::string_view name, std::uint32_t hash) const {
    const std::size_t mask = places.size() - 1;
    std::size_t at = hash & mask;
    while (places[at].number != 0 &&
           (places[at].hash != hash || others[places[at].number - 1] != name)) {
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
    ordered.emplace();
    for (std::size_t number = 0; number < others.size(); ++number) {
        ordered->emplace(others[number]);
    }
    others.clear();
    places.clear();
}

}  // namespace Tarvik
