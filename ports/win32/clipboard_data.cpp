#include "win32/clipboard_data.h"

#include <algorithm>
#include <cstring>

#include "base/dib.h"
#include "base/picture_end.h"
#include "base/picture_kind.h"
#include "base/unicode.h"
#include "win32/picture_pixels.h"

namespace quorkit::native {
namespace {

constexpr UINT kPlaceableHeader = 22;

UINT richTextFormat() {
    return ::RegisterClipboardFormatW(L"Rich Text Format");
}
UINT pngFormat() {
    return ::RegisterClipboardFormatW(L"PNG");
}
UINT jpegFormat() {
    return ::RegisterClipboardFormatW(L"JFIF");
}
UINT gifFormat() {
    return ::RegisterClipboardFormatW(L"GIF");
}

void freeMemory(HANDLE memory) {
    ::GlobalFree(memory);
}
void freeMetafile(HANDLE metafile) {
    ::DeleteEnhMetaFile(static_cast<HENHMETAFILE>(metafile));
}

HGLOBAL memoryOf(const std::string& bytes) {
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    if (memory == nullptr) return nullptr;
    if (void* const start = ::GlobalLock(memory)) {
        std::memcpy(start, bytes.data(), bytes.size());
        ::GlobalUnlock(memory);
    }
    return memory;
}

/// The bytes that the clipboard holds under a format number. More bytes may follow them, because
/// the system rounds up the size of memory. Nothing when there are none.
std::optional<std::string> bytesUnder(UINT format) {
    const HANDLE memory = ::GetClipboardData(format);
    const void* const start = memory == nullptr ? nullptr : ::GlobalLock(memory);
    if (start == nullptr) return {};
    std::string bytes(static_cast<const char*>(start), ::GlobalSize(memory));
    ::GlobalUnlock(memory);
    return bytes;
}

/// The text up to its first U+0000.
std::optional<std::string> textContent() {
    const auto bytes = bytesUnder(CF_UNICODETEXT);
    if (!bytes) return {};
    const String text = base::fromUtf16(*bytes);
    return base::toUtf8(text.substr(0, text.find(u'\0')));
}

std::optional<std::string> richTextContent() {
    auto bytes = bytesUnder(richTextFormat());
    if (bytes) bytes->resize(std::min(bytes->size(), bytes->find('\0')));
    return bytes;
}

/// The picture under a format number, if it exists and has that format.
std::optional<std::string> pictureUnder(UINT format) {
    if (format == CF_BITMAP || format == CF_DIB || format == CF_DIBV5) {
        const auto dib = bytesUnder(CF_DIB);
        return dib ? base::bmpFileOf(base::withoutRounding(*dib, base::sizeOfDib(*dib)))
                   : std::nullopt;
    }
    if (format != pngFormat() && format != jpegFormat() && format != gifFormat()) return {};
    const auto file = bytesUnder(format);
    if (!file || !base::fits(ClipboardFormat::Bitmap, *file)) return {};
    return std::string(base::withoutRounding(*file, base::sizeOfPicture(*file)));
}

/// A PNG has no loss; without one, the form that its program offers first.
std::optional<std::string> bitmapContent() {
    if (auto file = pictureUnder(pngFormat())) return file;
    for (UINT format = 0; (format = ::EnumClipboardFormats(format)) != 0;)
        if (auto file = pictureUnder(format)) return file;
    return {};
}

std::optional<std::string> metafileContent() {
    const auto metafile = static_cast<HENHMETAFILE>(::GetClipboardData(CF_ENHMETAFILE));
    if (metafile == nullptr) return {};
    std::string file(::GetEnhMetaFileBits(metafile, 0, nullptr), '\0');
    const UINT size = ::GetEnhMetaFileBits(metafile, static_cast<UINT>(file.size()),
                                           reinterpret_cast<BYTE*>(file.data()));
    return size == file.size() && base::fits(ClipboardFormat::Metafile, file) ? std::optional(file)
                                                                              : std::nullopt;
}

SHORT shortAt(const std::string& bytes, std::size_t position) {
    SHORT value = 0;
    std::memcpy(&value, bytes.data() + position, sizeof value);
    return value;
}

/// The size in the placeable header of a WMF, in hundredths of a millimetre.
METAFILEPICT placeOf(const std::string& file) {
    const LONG unitsPerInch = std::max<LONG>(1, static_cast<USHORT>(shortAt(file, 14)));
    const auto extent = [&](std::size_t from, std::size_t to) {
        return (shortAt(file, to) - shortAt(file, from)) * 2540 / unitsPerInch;
    };
    return {MM_ANISOTROPIC, extent(6, 10), extent(8, 12), nullptr};
}

HENHMETAFILE metafileOf(const std::string& file) {
    const auto* const bytes = reinterpret_cast<const BYTE*>(file.data());
    const auto size = static_cast<UINT>(file.size());
    if (base::pictureKindOf(file) == base::PictureKind::Emf)
        return ::SetEnhMetaFileBits(size, bytes);
    const METAFILEPICT place = placeOf(file);
    return ::SetWinMetaFileBits(size - kPlaceableHeader, bytes + kPlaceableHeader, nullptr, &place);
}

void addBitmap(std::vector<ClipboardItem>& items, const std::optional<std::string>& dib) {
    if (dib) items.emplace_back(CF_DIB, *dib);
}

std::vector<ClipboardItem> itemsOfPicture(const std::string& file) {
    std::vector<ClipboardItem> items;
    switch (*base::pictureKindOf(file)) {
        case base::PictureKind::Bmp:
            addBitmap(items, base::dibOf(file));
            return items;
        case base::PictureKind::Png:
            items.emplace_back(pngFormat(), file);
            break;
        case base::PictureKind::Jpeg:
            items.emplace_back(jpegFormat(), file);
            break;
        case base::PictureKind::Gif:
            items.emplace_back(gifFormat(), file);
            break;
        case base::PictureKind::Wmf:
        case base::PictureKind::Emf:
            if (const HENHMETAFILE metafile = metafileOf(file)) items.emplace_back(metafile);
            return items;
    }
    addBitmap(items, dibOfPicture(file));
    return items;
}

}  // namespace

ClipboardItem::ClipboardItem(UINT format, const std::string& bytes)
    : format_(format), handle_(memoryOf(bytes), freeMemory) {}

ClipboardItem::ClipboardItem(HENHMETAFILE metafile)
    : format_(CF_ENHMETAFILE), handle_(metafile, freeMetafile) {}

bool ClipboardItem::put() {
    if (handle_ == nullptr || ::SetClipboardData(format_, handle_.get()) == nullptr) return false;
    handle_.release();  // the clipboard owns it now
    return true;
}

std::vector<ClipboardItem> itemsOf(ClipboardFormat format, const std::string& data) {
    std::vector<ClipboardItem> items;
    if (format == ClipboardFormat::Text)
        items.emplace_back(CF_UNICODETEXT, base::toUtf16(base::fromUtf8(data) + u'\0'));
    else if (format == ClipboardFormat::RichText)
        items.emplace_back(richTextFormat(), data + '\0');
    else if (base::fits(format, data))
        items = itemsOfPicture(data);
    return items;
}

std::optional<std::string> contentOf(ClipboardFormat format) {
    switch (format) {
        case ClipboardFormat::Text:
            return textContent();
        case ClipboardFormat::RichText:
            return richTextContent();
        case ClipboardFormat::Metafile:
            return metafileContent();
        default:
            return bitmapContent();
    }
}

}  // namespace quorkit::native
