// The library's white space.
#pragma once

#include <quorkit/values.h>

namespace quorkit::strings {

/// Codes below 33 are the same in the code page and in UTF-16, and no other character has one of
/// them.
inline bool isWhite(char16_t unit) {
    return unit < 33;
}

/// `s` without the white space at both ends.
StringView trimmed(StringView s);

}  // namespace quorkit::strings
