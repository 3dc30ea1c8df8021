// The runtime's forms of a number in a text: at its start, for Val, and as the whole of it, for the
// conversions and the numeric test.
#pragma once

#include <quorkit/values.h>

#include <cstddef>
#include <optional>
#include <string_view>

namespace quorkit::runtime {

struct NumberText {
    Double value = 0;        ///< infinite when it is beyond the range of its kind
    std::size_t length = 0;  ///< 0 when there is no number
    /// The 32 bits that "&H" and "&O" spell, when they are what spells it and 32 bits are enough.
    std::optional<std::uint32_t> bits = {};
};

/// The number at the very start of `text`, without blanks: a sign, digits, a full stop and an
/// exponent after e or d; or "&H" or "&O" with digits. Digits that fit into 16 bits are a signed
/// 16-bit number ("&HFFFF" is -1, but "&H0000FFFF" is 65535), others a signed 32-bit one.
NumberText readNumber(std::string_view text);

/// The number that the whole text is, as `numberIn` of convert.h has it; the length, when there is
/// one, counts the characters without blanks and signs.
NumberText readWholeNumber(StringView text);

}  // namespace quorkit::runtime
