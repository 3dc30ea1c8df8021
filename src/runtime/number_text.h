// The runtime's form of a number in a text, for Val and for the conversions.
#pragma once

#include <quorkit/values.h>

#include <cstddef>
#include <string_view>

namespace quorkit::runtime {

struct NumberText {
    Double value = 0;        ///< infinite when it is beyond the range of its kind
    std::size_t length = 0;  ///< 0 when there is no number
};

/// The number at the very start of `text`, without blanks: a sign, digits, a full stop and an
/// exponent after e or d; or "&H" or "&O" with digits. Digits that fit into 16 bits are a signed
/// 16-bit number ("&HFFFF" is -1, but "&H0000FFFF" is 65535), others a signed 32-bit one.
NumberText readNumber(std::string_view text);

}  // namespace quorkit::runtime
