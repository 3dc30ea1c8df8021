#pragma once

#include <quorkit/values.h>

#include <charconv>
#include <cstdint>
#include <iterator>

#include "base/letter_case.h"

namespace quorkit::file {

/// In capital digits, without leading zeros.
inline String hexadecimal(std::uint32_t number) {
    char digits[8];
    char* const end = std::to_chars(digits, std::end(digits), number, 16).ptr;
    return base::toUpper(String(digits, end));
}

}  // namespace quorkit::file
