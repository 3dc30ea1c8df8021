// UTF-8, which the command line and JSON speak, and UTF-16, which the library speaks.
#pragma once

#include <quorkit/values.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace quorkit::json {

/// The code point at `position`, which moves behind it. A surrogate without its partner is returned
/// as it is. `position` must be inside the text.
char32_t nextCodePoint(StringView text, std::size_t& position);

/// Appends a code point that is no surrogate.
void appendUtf8(std::string& bytes, char32_t codePoint);

/// Bytes that are no UTF-8 become the surrogate U+DC00 + byte each, as in the names of files, and
/// go back so: a name from the command line or to it opens, whatever it is made of.
String fromUtf8(std::string_view bytes);
/// Any other surrogate without its partner becomes U+FFFD.
std::string toUtf8(StringView text);

inline bool isSurrogate(char32_t codePoint) {
    return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

}  // namespace quorkit::json
