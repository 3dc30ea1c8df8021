// The fast path of every encoding: whole files pass through here, and they are mostly ASCII.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quorkit::base {

/// The number of ASCII characters at the start of `text`. It may be a few too small, because eight
/// bytes are examined at a time.
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

/// Moves the ASCII characters at the start of `text` to `target`: `text` loses them, and `target`
/// then points behind them.
template <class From, class To>
void copyAscii(std::basic_string_view<From>& text, To*& target) {
    const std::size_t length = asciiRun(text);
    target = std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length),
                            target, [](From unit) { return static_cast<To>(unit); });
    text.remove_prefix(length);
}

}  // namespace quorkit::base
