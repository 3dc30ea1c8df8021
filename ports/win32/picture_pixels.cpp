#include "win32/picture_pixels.h"

// clang-format off
#include "win32/com_objects.h"
#include <wincodec.h>
// clang-format on

#include <cstdint>
#include <vector>

namespace quorkit::native {
namespace {

constexpr std::uint64_t kMostPixels = std::uint64_t{1} << 26;
constexpr unsigned kPixel = 4;  // bytes: blue, green, red, alpha

/// The first picture in a file, which `stream` reads.
Interface<IWICBitmapSource> pixelsOf(IWICImagingFactory& factory, IStream& stream) {
    const auto decoder = made<IWICBitmapDecoder>([&](auto** result) {
        return factory.CreateDecoderFromStream(&stream, nullptr, WICDecodeMetadataCacheOnDemand,
                                               result);
    });
    if (!decoder) return nullptr;
    const auto frame =
        made<IWICBitmapFrameDecode>([&](auto** result) { return decoder->GetFrame(0, result); });
    if (!frame) return nullptr;
    return made<IWICBitmapSource>([&](auto** result) {
        return ::WICConvertBitmapSource(GUID_WICPixelFormat32bppBGRA, frame.get(), result);
    });
}

char onWhite(unsigned colour, unsigned alpha) {
    return static_cast<char>((colour * alpha + 255 * (255 - alpha) + 127) / 255);
}

std::optional<std::string> dibOf(IWICBitmapSource& source) {
    UINT width = 0;
    UINT height = 0;
    if (FAILED(source.GetSize(&width, &height)) || width == 0 || height == 0 ||
        std::uint64_t{width} * height > kMostPixels)
        return {};
    const std::size_t line = std::size_t{width} * kPixel;
    std::vector<BYTE> pixels(line * height);
    if (FAILED(source.CopyPixels(nullptr, static_cast<UINT>(line), static_cast<UINT>(pixels.size()),
                                 pixels.data())))
        return {};
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = static_cast<LONG>(width);
    header.biHeight = static_cast<LONG>(height);
    header.biPlanes = 1;
    header.biBitCount = 8 * kPixel;
    header.biSizeImage = static_cast<DWORD>(pixels.size());
    std::string dib(reinterpret_cast<const char*>(&header), sizeof header);
    dib.reserve(dib.size() + pixels.size());
    for (std::size_t row = height; row-- > 0;)  // the lowest row comes first
        for (const BYTE* pixel = &pixels[row * line]; pixel != pixels.data() + (row + 1) * line;
             pixel += kPixel) {
            for (int i = 0; i < 3; ++i) dib += onWhite(pixel[i], pixel[3]);
            dib += '\0';
        }
    return dib;
}

}  // namespace

std::optional<std::string> dibOfPicture(const std::string& file) {
    const Objects objects;
    const auto factory = made<IWICImagingFactory>([](auto** result) {
        return ::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                  IID_IWICImagingFactory, reinterpret_cast<void**>(result));
    });
    if (!factory || file.size() > MAXDWORD) return {};
    const auto stream =
        made<IWICStream>([&](auto** result) { return factory->CreateStream(result); });
    auto* const bytes = reinterpret_cast<BYTE*>(const_cast<char*>(file.data()));
    if (!stream || FAILED(stream->InitializeFromMemory(bytes, static_cast<DWORD>(file.size()))))
        return {};
    const auto pixels = pixelsOf(*factory, *stream);
    if (!pixels) return {};
    return dibOf(*pixels);
}

}  // namespace quorkit::native
