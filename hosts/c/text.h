// Texts as C has them.
#pragma once

#include <quorkit/utf8.h>

#include <cstring>
#include <string_view>

#include "c/open_library.h"

namespace quorkit::c {

/// A length that no memory has is most likely a negative one.
inline void needLength(std::size_t length, std::size_t size = 1) {
    if (length > PTRDIFF_MAX / size) throw Misuse{QUORKIT_TOO_LONG};
}

inline String textIn(const char* bytes, std::size_t length = QUORKIT_TO_ZERO) {
    if (length != 0) need(bytes);
    if (length == QUORKIT_TO_ZERO) length = std::strlen(bytes);
    needLength(length);
    const std::string_view given(bytes, length);
    String text = fromUtf8(given, Malformed::Keep);
    if (text.find(u'\uFFFD') != String::npos && toUtf8(text, Malformed::Keep) != given)
        throw Misuse{QUORKIT_NO_TEXT};
    return text;
}

}  // namespace quorkit::c
