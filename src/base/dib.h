// BMP files, and the packed bitmaps of clipboards: the same bytes but for the header of the file.
// Source: BITMAPFILEHEADER, BITMAPCOREHEADER, BITMAPINFOHEADER and
// BITMAPV5HEADER of Win32.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorkit::base {

/// The packed bitmap in a BMP file, whatever version its header has. A gap in front of the pixels,
/// which only a file can have, is left out. Nothing when the headers do not say where they end.
std::optional<std::string> dibOf(std::string_view file);

/// The BMP file of a packed bitmap: of one from dibOf the same file, byte by byte, unless that had
/// a gap or a wrong size in its header. Nothing as above.
std::optional<std::string> bmpFileOf(std::string_view dib);

/// The size of the packed bitmap that `dib` begins with, its colour profile included; nothing when
/// the headers do not say it, or say more than there is.
std::optional<std::size_t> sizeOfDib(std::string_view dib);

}  // namespace quorkit::base
