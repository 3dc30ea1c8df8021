// Converts pictures to bitmaps.
#pragma once

#include <optional>
#include <string>

namespace quorkit::native {

/// The packed bitmap, with 32 bits a pixel, of the first picture in a PNG, JPEG or GIF file;
/// transparent parts become white. Nothing when the system cannot read the file, or for more than
/// 64 million pixels.
std::optional<std::string> dibOfPicture(const std::string& file);

}  // namespace quorkit::native
