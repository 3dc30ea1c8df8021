// Finds the end of a picture, for memory that may be larger than the picture in it.
//
// Sources: RFC 2083 (PNG), GIF89a, ITU-T T.81 (JPEG).
#pragma once

#include <optional>
#include <string_view>

namespace quorkit::base {

/// The size of the PNG, GIF or JPEG at the start of `bytes`, found in one pass. Nothing for any
/// other content, and for a picture without an end.
std::optional<std::size_t> sizeOfPicture(std::string_view bytes);

/// `bytes` up to `end`, if the rest can come from rounding the size of memory up to 8 or 16 bytes.
/// Otherwise all of `bytes`, because a file may continue behind its picture.
std::string_view withoutRounding(std::string_view bytes, std::optional<std::size_t> end);

}  // namespace quorkit::base
