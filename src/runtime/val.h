// The runtime's reading of a number at the start of a text.
#pragma once

#include <quorkit/values.h>

namespace quorkit::runtime {

/// The number at the start of `text`, or 0; what follows it is ignored. Blanks, tabs and line feeds
/// are skipped everywhere. "&H" and "&O" are followed by hexadecimal and octal digits: up to 16
/// bits they are a signed 16-bit number, up to 32 bits a signed 32-bit one. Error 6 beyond that,
/// and for an exponent out of range.
Double Val(StringView text);

}  // namespace quorkit::runtime
