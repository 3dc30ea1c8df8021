#include "base/picture_end.h"

#include <cstdint>

#include "base/picture_kind.h"

namespace quorkit::base {
namespace {

/// Reads through bytes. Behind their end it reads zeros, and lost() is true.
class Walk {
   public:
    Walk(std::string_view bytes, std::size_t position) : bytes_(bytes), position_(position) {}

    bool lost() const { return position_ > bytes_.size(); }
    std::size_t position() const { return position_; }
    void skip(std::uint64_t count) {
        const bool inside = !lost() && count <= bytes_.size() - position_;
        position_ = inside ? position_ + static_cast<std::size_t>(count) : bytes_.size() + 1;
    }
    /// The next byte.
    unsigned byte() {
        const std::size_t at = position_;
        skip(1);
        return lost() ? 0 : static_cast<unsigned char>(bytes_[at]);
    }
    /// A number, its highest byte first.
    std::uint32_t number(int size) {
        std::uint32_t value = 0;
        for (int i = 0; i < size; ++i) value = value << 8 | byte();
        return value;
    }
    /// The rest.
    std::string_view ahead() const { return bytes_.substr(lost() ? bytes_.size() : position_); }

   private:
    std::string_view bytes_;
    std::size_t position_;
};

/// A PNG is a row of chunks: a length, four letters, as many bytes, a check sum.
void walkPng(Walk& walk) {
    bool last = false;
    while (!last && !walk.lost()) {
        const std::uint32_t length = walk.number(4);
        last = walk.ahead().starts_with("IEND");
        walk.skip(std::uint64_t{4} + length + 4);
    }
}

/// Skips the table of colours that a GIF may have; a byte says whether there is one, and its size.
void skipColours(Walk& walk, unsigned flags, std::uint64_t between) {
    walk.skip(between + ((flags & 0x80) != 0 ? std::uint64_t{6} << (flags & 7) : 0));
}

void walkGif(Walk& walk) {
    walk.skip(4);
    skipColours(walk, walk.byte(), 2);
    while (!walk.lost()) {
        switch (walk.byte()) {
            case 0x3B:  // the trailer
                return;
            case 0x2C:  // an image
                walk.skip(8);
                skipColours(walk, walk.byte(), 1);
                break;
            case 0x21:  // an extension
                walk.skip(1);
                break;
            default:
                return walk.skip(UINT64_MAX);
        }
        while (const unsigned size = walk.byte()) walk.skip(size);
    }
}

/// Skips to the next marker that does not belong to the scan. Two kinds belong to it: those that
/// stand for a byte, and those that divide the scan.
void skipScan(Walk& walk) {
    for (;;) {
        const std::size_t found = walk.ahead().find('\xFF');
        walk.skip(found);
        if (walk.ahead().size() < 2) return walk.skip(UINT64_MAX);
        const auto marker = static_cast<unsigned char>(walk.ahead()[1]);
        if (marker != 0 && (marker < 0xD0 || marker > 0xD7)) return;
        walk.skip(2);
    }
}

/// A JPEG is a row of segments: a marker of two bytes, the first of them 0xFF, and a length that
/// includes itself.
void walkJpeg(Walk& walk) {
    while (!walk.lost()) {
        if (walk.byte() != 0xFF) return walk.skip(UINT64_MAX);
        unsigned marker = 0xFF;
        while (marker == 0xFF && !walk.lost()) marker = walk.byte();
        if (marker == 0xD9) return;
        const std::uint32_t length = walk.number(2);
        walk.skip(length < 2 ? UINT64_MAX : length - 2);
        if (marker == 0xDA) skipScan(walk);
    }
}

}  // namespace

std::optional<std::size_t> sizeOfPicture(std::string_view bytes) {
    const auto end = [&](std::size_t signature, void (*walkThrough)(Walk&)) {
        Walk walk(bytes, signature);
        walkThrough(walk);
        // A picture that ends within its header is none.
        const bool ends = !walk.lost() && pictureKindOf(bytes.substr(0, walk.position()));
        return ends ? std::optional(walk.position()) : std::nullopt;
    };
    switch (pictureKindOf(bytes).value_or(PictureKind::Bmp)) {
        case PictureKind::Png:
            return end(8, walkPng);
        case PictureKind::Gif:
            return end(6, walkGif);
        case PictureKind::Jpeg:
            return end(2, walkJpeg);
        default:
            return {};
    }
}

std::string_view withoutRounding(std::string_view bytes, std::optional<std::size_t> end) {
    const bool rounded = bytes.size() % 8 == 0 && end && bytes.size() - *end < 16;
    return rounded ? bytes.substr(0, *end) : bytes;
}

}  // namespace quorkit::base
