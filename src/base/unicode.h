// Texts as UTF-8 and UTF-16 bytes, and the surrogates in them.
#pragma once

#include <quorkit/values.h>
#include <quorkit/values/malformed.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace quorkit::base {

/// Byte-order marks: the bytes at the start of a file that tell its encoding.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
inline constexpr std::string_view kUtf16Mark = "\xFF\xFE";  // little-endian
inline constexpr std::string_view kUtf16BigMark = "\xFE\xFF";

constexpr bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}
constexpr bool isSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xE000;
}

/// The position of the first surrogate without its partner, from `start` on; npos when there is
/// none. `start` must not be inside a pair.
std::size_t findLoneSurrogate(StringView text, std::size_t start = 0);

/// Writing gives valid UTF-8 by default; reading keeps what it can.
std::string toUtf8(StringView text, Malformed malformed = Malformed::Replace);
String fromUtf8(std::string_view bytes, Malformed malformed = Malformed::Keep);

/// U+DC00 + byte is the surrogate that stands for an invalid byte, see Malformed::AsBytes.
inline constexpr char16_t kByteSurrogates = 0xDC00;
constexpr bool standsForByte(char32_t unit) {
    return unit >= kByteSurrogates + 0x80 && unit <= kByteSurrogates + 0xFF;
}

/// Whether all of `bytes` is UTF-8 without surrogates and over-long forms.
bool isUtf8(std::string_view bytes);

/// UTF-16, little-endian. An odd byte at the end of `bytes` is ignored.
std::string toUtf16(StringView text);
String fromUtf16(std::string_view bytes);

}  // namespace quorkit::base
