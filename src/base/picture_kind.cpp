#include "base/picture_kind.h"

#include <algorithm>
#include <cstddef>

namespace quorkit::base {
namespace {

using namespace std::string_view_literals;

struct Signature {
    PictureKind kind;
    std::size_t position;
    std::string_view bytes;
    std::size_t shortest;  ///< the size of a file that is only a header
};

constexpr Signature kSignatures[] = {
    {PictureKind::Bmp, 0, "BM"sv, 14 + 12},
    {PictureKind::Png, 0, "\x89PNG\r\n\x1A\n"sv, 8 + 25},
    {PictureKind::Jpeg, 0, "\xFF\xD8\xFF"sv, 4},
    {PictureKind::Gif, 0, "GIF87a"sv, 13},
    {PictureKind::Gif, 0, "GIF89a"sv, 13},
    {PictureKind::Wmf, 0, "\xD7\xCD\xC6\x9A"sv, 22 + 18},
    {PictureKind::Emf, 40, " EMF"sv, 88},
};

}  // namespace

std::optional<PictureKind> pictureKindOf(std::string_view bytes) {
    for (const Signature& one : kSignatures)
        if (bytes.size() >= one.shortest &&
            bytes.substr(one.position, one.bytes.size()) == one.bytes)
            return one.kind;
    return {};
}

bool fits(ClipboardFormat format, std::string_view bytes) {
    if (!isPictureFormat(format)) return true;
    const auto kind = pictureKindOf(bytes);
    return kind && isMetafile(*kind) == (format == ClipboardFormat::Metafile);
}

}  // namespace quorkit::base
