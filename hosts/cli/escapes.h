// Characters that are hard to type on a command line.
#pragma once

#include <quorkit/values.h>

namespace quorkit::cli {

/// The text with \r \n \t \0 \\ and \uXXXX (four hexadecimal digits, one code unit) replaced by the
/// characters they mean. A backslash before anything else stays.
String unescape(StringView text);

}  // namespace quorkit::cli
