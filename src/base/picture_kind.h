// The kind of a picture file, by its first bytes; its name does not matter.
//
// Sources: RFC 2083 (PNG), ITU-T T.81 and JFIF (JPEG), GIF89a, MS-WMF 2.3.2.3 (the placeable
// header), MS-EMF 2.3.4.2, and the bitmap file header of Win32.
#pragma once

#include <quorkit/values/clipboard_format.h>

#include <optional>
#include <string_view>

namespace quorkit::base {

enum class PictureKind { Bmp, Png, Jpeg, Gif, Wmf, Emf };

/// Nothing for any other content, and for a file that is too short.
std::optional<PictureKind> pictureKindOf(std::string_view bytes);

inline bool isMetafile(PictureKind kind) {
    return kind == PictureKind::Wmf || kind == PictureKind::Emf;
}

inline bool isPictureFormat(ClipboardFormat format) {
    return format != ClipboardFormat::Text && format != ClipboardFormat::RichText;
}

/// Whether `bytes` can be put on the clipboard as `format`: a picture of that kind, or any text.
bool fits(ClipboardFormat format, std::string_view bytes);

}  // namespace quorkit::base
