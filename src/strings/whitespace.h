// What counts as white space.
#pragma once

#include <quorkit/values.h>

namespace quorkit::strings {

/// Below 33 the codes of the code page are those of UTF-16, and no other character has one.
inline bool isWhite(char16_t unit) {
    return unit < 33;
}

/// `s` without the white space at both ends.
StringView trimmed(StringView s);

}  // namespace quorkit::strings
