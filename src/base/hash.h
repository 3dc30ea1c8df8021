// A number that stands for a text or bytes, the same on every system and in every version: names on
// the disk and of objects that processes share are made of it.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <type_traits>

namespace quorkit::base {

/// FNV-1a, 64 bits, of the units of a text, each seen through `map`.
template <class Unit, class Map = std::identity>
constexpr std::uint64_t hashOf(std::basic_string_view<Unit> text, Map map = {}) {
    std::uint64_t hash = 14695981039346656037u;
    for (const Unit unit : text)
        hash = (hash ^ static_cast<std::make_unsigned_t<Unit>>(map(unit))) * 1099511628211u;
    return hash;
}

}  // namespace quorkit::base
