// BMP files, and the packed bitmaps of clipboards; the two differ only in the header of the file.
// Source: BITMAPFILEHEADER, BITMAPCOREHEADER, BITMAPINFOHEADER and BITMAPV5HEADER of Win32.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorkit::base {

/// The packed bitmap in a BMP file of any header version. A file may have a gap in front of its
/// pixels; the gap is left out. Nothing when the headers do not say where the pixels end.
std::optional<std::string> dibOf(std::string_view file);

/// The BMP file of a packed bitmap. For one from dibOf it is the same file, byte by byte, unless
/// that had a gap or a wrong size in its header. Nothing as above.
std::optional<std::string> bmpFileOf(std::string_view dib);

/// The size of the packed bitmap at the start of `dib`, its colour profile included. Nothing when
/// the headers do not give the size, or give more than there is.
std::optional<std::size_t> sizeOfDib(std::string_view dib);

}  // namespace quorkit::base
