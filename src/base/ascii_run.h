// The fast path of every coding: whole files pass through here, and mostly they are ASCII.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quorkit::base {

/// The number of characters at the start of `text` that are ASCII, possibly a few less: eight
/// bytes are looked at in one.
template <class Unit>
std::size_t asciiRun(std::basic_string_view<Unit> text) {
    constexpr std::uint64_t notAscii =
        sizeof(Unit) == 1 ? 0x8080'8080'8080'8080 : 0xFF80'FF80'FF80'FF80;
    constexpr std::size_t step = sizeof(std::uint64_t) / sizeof(Unit);
    std::size_t length = 0;
    for (; length + step <= text.size(); length += step) {
        std::uint64_t block;
        std::memcpy(&block, text.data() + length, sizeof block);
        if ((block & notAscii) != 0) break;
    }
    return length;
}

/// Copies the ASCII characters at the start of `text` to `target`, which moves behind them, and
/// takes them off `text`.
template <class From, class To>
void copyAscii(std::basic_string_view<From>& text, To*& target) {
    const std::size_t length = asciiRun(text);
    target = std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length),
                            target, [](From unit) { return static_cast<To>(unit); });
    text.remove_prefix(length);
}

}  // namespace quorkit::base
