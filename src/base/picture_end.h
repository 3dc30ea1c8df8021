// Where a picture ends, for what comes in memory that may be larger than the picture.
//
// Sources: RFC 2083 (PNG), GIF89a, ITU-T T.81 (JPEG).
#pragma once

#include <optional>
#include <string_view>

namespace quorkit::base {

/// The size of the PNG, GIF or JPEG that `bytes` begin with, in one pass over it; nothing for all
/// else, and for one that does not end.
std::optional<std::size_t> sizeOfPicture(std::string_view bytes);

/// `bytes` up to `end`, when what is behind it can come from rounding the size of memory up to 8 or
/// 16 bytes; otherwise all of them, as a file may go on behind its picture.
std::string_view withoutRounding(std::string_view bytes, std::optional<std::size_t> end);

}  // namespace quorkit::base
