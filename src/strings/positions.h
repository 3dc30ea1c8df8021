// Limits of members whose positions have 16 bits.
#pragma once

#include <quorkit/errors.h>
#include <quorkit/values.h>

namespace quorkit::strings {

/// Error 6 when the text is longer than 32,767 characters.
inline void require16BitPositions(StringView text) {
    if (text.size() > INT16_MAX) raise(ErrorNumber::Overflow);
}

}  // namespace quorkit::strings
