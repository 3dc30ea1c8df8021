// The runtime's reading of a leading number.
#pragma once

#include <quorkit/values.h>

namespace quorkit::runtime {

/// The number at the start of `text`; what follows it is ignored, and 0 when there is none. Blanks,
/// tabs and line feeds are skipped wherever they stand. "&H" and "&O" read hexadecimal and octal
/// digits: up to 16 bits as a signed 16-bit number, up to 32 bits as a signed 32-bit one. Error 6
/// beyond that, and for an exponent out of range.
Double Val(StringView text);

}  // namespace quorkit::runtime
