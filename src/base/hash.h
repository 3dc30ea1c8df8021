// A hash that is the same on every system and in every version, because it becomes part of the
// names of files and of objects that processes share.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <type_traits>

namespace quorkit::base {

/// FNV-1a with 64 bits over the units of a text; `map` is applied to each unit first.
template <class Unit, class Map = std::identity>
constexpr std::uint64_t hashOf(std::basic_string_view<Unit> text, Map map = {}) {
    std::uint64_t hash = 14695981039346656037u;
    for (const Unit unit : text)
        hash = (hash ^ static_cast<std::make_unsigned_t<Unit>>(map(unit))) * 1099511628211u;
    return hash;
}

}  // namespace quorkit::base
