// A log file's lines as bytes.
#pragma once

#include <quorkit/ports/files.h>
#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit::logfile {

/// The byte-order mark at the start of a file: UTF-8's, UTF-16's (little-endian), or "".
std::string_view markOf(std::string_view start);
/// The length of the longest mark.
inline constexpr std::size_t kLongestMark = 3;

/// The end of a line in a file with that mark.
std::string_view lineBreakOf(std::string_view mark);

/// Makes `bytes` the line `text` with its end, encoded as in a file with that mark.
void encodeLine(StringView text, std::string_view mark, std::string& bytes);

}  // namespace quorkit::logfile
