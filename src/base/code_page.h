// Text as bytes of the system's ANSI code page, which is 1252 on every system here.
#pragma once

#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit::base {

/// The byte of a character in code page 1252, or 63 ("?") when it lacks the character. The code
/// page leaves five bytes undefined (81, 8D, 8F, 90, 9D); they stand for the control characters of
/// the same number, so that all 256 bytes survive a round trip.
Byte toAnsi(char16_t unit);
char16_t fromAnsi(Byte byte);

std::string toAnsi(StringView text);
String fromAnsi(std::string_view bytes);

}  // namespace quorkit::base
