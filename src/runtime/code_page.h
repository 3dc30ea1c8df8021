// Text as bytes: in the system's ANSI code page, which is 1252 on every system, as UTF-8 and as
// UTF-16.
#pragma once

#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit::runtime {

/// What stands at the start of a file to tell the encoding of its text.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
inline constexpr std::string_view kUtf16Mark = "\xFF\xFE";  // little-endian

/// The code of a character in code page 1252; 63 ("?") for one that it lacks. The five bytes that
/// the code page leaves open (81, 8D, 8F, 90, 9D) stand for the control characters of that number,
/// so that all 256 bytes survive a round trip.
Byte toAnsi(char16_t unit);
char16_t fromAnsi(Byte byte);

std::string toAnsi(StringView text);
String fromAnsi(std::string_view bytes);

/// What becomes of a surrogate without its partner.
enum class LoneSurrogate {
    Replace,  ///< U+FFFD: the result is valid UTF-8
    Keep,     ///< three bytes of its own: every text survives a round trip
};
std::string toUtf8(StringView text, LoneSurrogate lone = LoneSurrogate::Replace);
/// Bytes that are no UTF-8 become U+FFFD each; surrogates in three bytes are taken as they are.
String fromUtf8(std::string_view bytes);
/// Whether `bytes` are UTF-8 throughout, without surrogates and over-long forms.
bool isUtf8(std::string_view bytes);

/// UTF-16, little-endian; half a character at the end of `bytes` is left out.
std::string toUtf16(StringView text);
String fromUtf16(std::string_view bytes);

}  // namespace quorkit::runtime
