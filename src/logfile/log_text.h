// The bytes of a log file's lines.
#pragma once

#include <quorkit/ports/files.h>
#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit {

/// The byte-order mark at the start of the file that is open: UTF-8's, UTF-16's (little-endian), or
/// "" for none, also when the file cannot be read.
std::string readMark(Files& files, Handle file);

/// Makes `bytes` the line `text` with its end, as a file with that mark has it.
void encodeLine(StringView text, std::string_view mark, std::string& bytes);

}  // namespace quorkit
