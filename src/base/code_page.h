// Text as bytes of the system's ANSI code page, which is 1252 on every system.
#pragma once

#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit::base {

/// The code of a character in code page 1252; 63 ("?") for one that it lacks. The five bytes that
/// the code page leaves open (81, 8D, 8F, 90, 9D) stand for the control characters of that number,
/// so that all 256 bytes survive a round trip.
Byte toAnsi(char16_t unit);
char16_t fromAnsi(Byte byte);

std::string toAnsi(StringView text);
String fromAnsi(std::string_view bytes);

}  // namespace quorkit::base
