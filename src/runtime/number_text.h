// The runtime's forms of numbers in texts. Val reads a number at the start of a text; the
// conversions and the numeric test read the whole text.
#pragma once

#include <quorkit/values.h>

#include <cstddef>
#include <optional>
#include <string_view>

namespace quorkit::runtime {

struct NumberText {
    Double value = 0;        ///< infinite when the number is too large for its kind
    std::size_t length = 0;  ///< 0 when there is no number
    /// The 32 bits of a number written with "&H" or "&O", if it has no more.
    std::optional<std::uint32_t> bits = {};
};

/// The number at the very start of `text`, without blanks: a sign, digits, a full stop and an
/// exponent after e or d; or "&H" or "&O" with digits. Up to 16 bits such digits are a signed
/// 16-bit number ("&HFFFF" is -1, but "&H0000FFFF" is 65535), otherwise a signed 32-bit one.
NumberText readNumber(std::string_view text);

/// The number that the whole text is, by the rules of `numberIn` in convert.h. The length, if there
/// is a number, does not include blanks and signs.
NumberText readWholeNumber(StringView text);

}  // namespace quorkit::runtime
