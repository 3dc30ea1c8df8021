// Texts as C has them.
#pragma once

#include <quorkit/utf8.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "c/open_library.h"

namespace quorkit::c {

/// A length that no memory has is most likely a negative one.
inline void needLength(std::size_t length, std::size_t size = 1) {
    if (length > PTRDIFF_MAX / size) throw Misuse{QUORKIT_TOO_LONG};
}

inline std::size_t countOf(std::string_view part, std::string_view bytes) {
    std::size_t count = 0;
    for (auto at = bytes.find(part); at != std::string_view::npos; at = bytes.find(part, at + 1))
        ++count;
    return count;
}

inline String textIn(const char* bytes, std::size_t length = QUORKIT_TO_ZERO) {
    if (length != 0) need(bytes);
    if (length == QUORKIT_TO_ZERO) length = std::strlen(bytes);
    needLength(length);
    const std::string_view given(bytes, length);
    String text = fromUtf8(given, Malformed::Keep);
    // It stands for bytes that are no UTF-8, unless it stood there.
    const auto replaced = std::ranges::count(text, u'\uFFFD');
    if (replaced != 0 && static_cast<std::size_t>(replaced) != countOf("\xEF\xBF\xBD", given))
        throw Misuse{QUORKIT_NO_TEXT};
    return text;
}

}  // namespace quorkit::c
