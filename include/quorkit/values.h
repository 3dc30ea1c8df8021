// The scalar types of the interface. Each means exactly what it means in automation.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorkit {

/// UTF-16 text with its length. Null and empty are one value. Any code unit may occur, U+0000
/// included.
using String = std::u16string;
using StringView = std::u16string_view;

/// Crosses the interface as 16 bits: True is -1, and on input every nonzero value is True.
using Boolean = bool;
using Byte = std::uint8_t;
using Integer = std::int16_t;
using Long = std::int32_t;
using Double = double;

/// Days since 30 December 1899. The fraction is the time of day and is always added away from zero.
struct Date {
    Double days = 0;
    friend bool operator==(const Date&, const Date&) = default;
    friend auto operator<=>(const Date&, const Date&) = default;
};

}  // namespace quorkit
