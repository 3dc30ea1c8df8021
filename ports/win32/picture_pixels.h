// Pictures as bitmaps.
#pragma once

#include <optional>
#include <string>

namespace quorkit::native {

/// The packed bitmap of a PNG, JPEG or GIF file (of its first picture), 32 bits a pixel, on white
/// where it is transparent. Nothing when the system cannot read it, or for more than 64 million
/// pixels.
std::optional<std::string> dibOfPicture(const std::string& file);

}  // namespace quorkit::native
