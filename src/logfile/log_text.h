// The bytes of a log file's lines.
#pragma once

#include <quorkit/ports/files.h>
#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit::logfile {

/// The byte-order mark that a file begins with: UTF-8's, UTF-16's (little-endian), or "" for none.
std::string_view markOf(std::string_view start);
/// The length of the longest one.
inline constexpr std::size_t kLongestMark = 3;

/// What ends a line in a file with that mark.
std::string_view lineBreakOf(std::string_view mark);

/// Makes `bytes` the line `text` with its end, as a file with that mark has it.
void encodeLine(StringView text, std::string_view mark, std::string& bytes);

}  // namespace quorkit::logfile
