#include "base/dib.h"

#include <algorithm>
#include <cstdint>

namespace quorkit::base {
namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kCoreHeader = 12;
constexpr std::size_t kInfoHeader = 40;
constexpr std::size_t kVersion5Header = 124;
constexpr std::size_t kProfilePosition = 112;  // in a header of version 5
constexpr std::uint32_t kBitFields = 3;
constexpr std::uint32_t kAlphaBitFields = 6;

/// The little-endian number of `size` bytes; 0 when the bytes are missing.
std::uint32_t number(std::string_view bytes, std::size_t position, std::size_t size = 4) {
    std::uint32_t value = 0;
    for (std::size_t i = position + size; i-- > position;)
        value = value << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u);
    return value;
}

void setNumber(std::string& bytes, std::size_t position, std::size_t value) {
    for (std::size_t i = position; i < position + 4; ++i, value >>= 8)
        bytes[i] = static_cast<char>(value & 0xFF);
}

/// The size of all in front of the pixels: header, masks and colours.
std::optional<std::size_t> startOfPixels(std::string_view dib) {
    const std::uint32_t header = number(dib, 0);
    const bool core = header == kCoreHeader;
    if (!core && header < kInfoHeader) return {};
    const std::uint32_t bits = number(dib, core ? 10 : 14, 2);
    const std::uint32_t used = core ? 0 : number(dib, 32);
    std::uint64_t colours = used;
    if (used == 0 && bits >= 1 && bits <= 8) colours = std::uint64_t{1} << bits;
    std::uint64_t size = header + colours * (core ? 3 : 4);
    if (header == kInfoHeader && number(dib, 16) == kBitFields) size += 12;
    if (header == kInfoHeader && number(dib, 16) == kAlphaBitFields) size += 16;
    if (size > dib.size()) return {};
    return static_cast<std::size_t>(size);
}

}  // namespace

std::optional<std::string> dibOf(std::string_view file) {
    if (file.size() < kFileHeader) return {};
    std::string dib(file.substr(kFileHeader));
    const auto start = startOfPixels(dib);
    const std::size_t fileStart = number(file, 10);
    if (!start || fileStart < kFileHeader + *start || fileStart > file.size()) return {};
    const std::size_t gap = fileStart - kFileHeader - *start;
    dib.erase(*start, gap);
    const std::uint32_t profile = number(dib, kProfilePosition);
    if (gap != 0 && number(dib, 0) >= kVersion5Header && profile >= *start + gap)
        setNumber(dib, kProfilePosition, profile - gap);
    return dib;
}

std::optional<std::string> bmpFileOf(std::string_view dib) {
    const auto start = startOfPixels(dib);
    const std::size_t size = kFileHeader + dib.size();
    if (!start || size > UINT32_MAX) return {};
    std::string file = "BM";
    file.resize(kFileHeader);
    setNumber(file, 2, size);
    setNumber(file, 10, kFileHeader + *start);
    return file.append(dib);
}

std::optional<std::size_t> sizeOfDib(std::string_view dib) {
    const auto start = startOfPixels(dib);
    if (!start) return {};
    const bool core = number(dib, 0) == kCoreHeader;
    const std::uint64_t width = core ? number(dib, 4, 2) : number(dib, 4);
    const std::uint32_t lines = core ? number(dib, 6, 2) : number(dib, 8);
    const bool fromTheTop = !core && lines > INT32_MAX;  // the number is negative
    const std::uint64_t height = fromTheTop ? 0U - lines : lines;
    const std::uint32_t compression = core ? 0 : number(dib, 16);
    std::uint64_t pixels = number(dib, 20);
    if (compression == 0 || compression == kBitFields || compression == kAlphaBitFields) {
        const std::uint64_t line = (width * number(dib, core ? 10 : 14, 2) + 31) / 32 * 4;
        if (line > dib.size()) return {};
        pixels = line * height;
    }
    std::uint64_t end = *start + pixels;
    if (number(dib, 0) >= kVersion5Header)
        end = std::max(
            end, std::uint64_t{number(dib, kProfilePosition)} + number(dib, kProfilePosition + 4));
    if (pixels == 0 || end > dib.size()) return {};
    return static_cast<std::size_t>(end);
}

}  // namespace quorkit::base
