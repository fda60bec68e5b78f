/// The names of the parameters of one kind of rule, found by one probe.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace Tarvik {

/// A hash table without collisions, which the compiler makes.
///
/// The size and three bytes of a name, multiplied by a factor, give its place. The compiler tries
/// factors until each name has a place of its own, so that a name is compared with one at most.
/// Names that none can tell apart do not compile.
class ParameterNames {
public:
    /// A bit for each number.
    using Set = std::uint32_t;

    static constexpr std::size_t MostNames = 31;
    /// The number of a name that is not one of these.
    static constexpr std::size_t Unknown = MostNames;

    /// The numbers are the indexes of the names, which must be there as long as this.
    consteval explicit ParameterNames(std::span<const std::string_view> allNames)
        : names(allNames) {
        if (names.size() > MostNames) throw "too many names";
        while (!placeAll()) {
            factor += 2;
        }
    }

    [[nodiscard]] constexpr std::size_t numberOf(std::string_view name) const {
        if (name.empty()) return Unknown;
        const std::size_t number = places[placeOf(name)];
        return number != Unknown && names[number] == name ? number : Unknown;
    }

    [[nodiscard]] constexpr std::string_view operator[](std::size_t number) const {
        return names[number];
    }

    [[nodiscard]] constexpr std::span<const std::string_view> all() const { return names; }

private:
    static constexpr unsigned PlaceBits = 6;

    [[nodiscard]] constexpr std::size_t placeOf(std::string_view name) const {
        constexpr unsigned byteBits = 8;
        auto key = static_cast<std::uint32_t>(name.size());
        for (const char byte : {name.front(), name[name.size() / 2], name.back()}) {
            key = key << byteBits | static_cast<unsigned char>(byte);
        }
        constexpr unsigned keyBits = 32;
        return key * factor >> (keyBits - PlaceBits);
    }

    constexpr bool placeAll() {
        places.fill(static_cast<std::uint8_t>(Unknown));
        for (std::size_t number = 0; number < names.size(); ++number) {
            std::uint8_t& place = places[placeOf(names[number])];
            if (place != Unknown) return false;
            place = static_cast<std::uint8_t>(number);
        }
        return true;
    }

    std::span<const std::string_view> names;
    std::uint32_t factor = 0x9E3779B1;
    std::array<std::uint8_t, std::size_t{1} << PlaceBits> places{};
};

}  // namespace Tarvik
