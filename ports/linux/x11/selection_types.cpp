#include "linux/x11/selection_types.h"

#include <optional>
#include <utility>

#include "base/picture_kind.h"

namespace quorkit::x11 {
namespace {

constexpr const char* kUtf8Texts[] = {"UTF8_STRING", "text/plain;charset=utf-8", "text/plain"};
constexpr const char* kLatin1Text = "STRING";
constexpr const char* kAnyText = "TEXT";
constexpr const char* kRichTexts[] = {"text/rtf", "application/rtf", "text/richtext"};

struct PictureType {
    base::PictureKind kind;
    const char* name;
};
constexpr PictureType kPictures[] = {
    {base::PictureKind::Png, "image/png"},        {base::PictureKind::Bmp, "image/bmp"},
    {base::PictureKind::Bmp, "image/x-bmp"},      {base::PictureKind::Bmp, "image/x-MS-bmp"},
    {base::PictureKind::Jpeg, "image/jpeg"},      {base::PictureKind::Gif, "image/gif"},
    {base::PictureKind::Emf, "image/emf"},        {base::PictureKind::Emf, "image/x-emf"},
    {base::PictureKind::Wmf, "image/wmf"},        {base::PictureKind::Wmf, "image/x-wmf"},
    {base::PictureKind::Wmf, "application/x-wmf"}};

/// Nothing when Latin-1 lacks a character.
std::optional<std::string> latin1OfUtf8(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const unsigned lead = static_cast<unsigned char>(bytes[i]);
        if (lead < 0x80) {
            result += bytes[i];
        } else if ((lead == 0xC2 || lead == 0xC3) && i + 1 < bytes.size()) {
            const unsigned next = static_cast<unsigned char>(bytes[++i]);
            result += static_cast<char>((lead & 3) << 6 | (next & 0x3F));
        } else {
            return {};
        }
    }
    return result;
}

std::vector<Offer> offersOfText(std::string content) {
    auto latin1 = latin1OfUtf8(content);
    const bool ascii = latin1 && latin1->size() == content.size();
    const auto utf8 = std::make_shared<const std::string>(std::move(content));
    std::vector<Offer> offers;
    for (const char* const type : kUtf8Texts) offers.push_back({type, type, utf8});
    if (latin1) {
        const auto bytes = ascii ? utf8 : std::make_shared<const std::string>(std::move(*latin1));
        offers.push_back({kLatin1Text, kLatin1Text, bytes});
    }
    offers.push_back({kAnyText, offers.back().target == kLatin1Text ? kLatin1Text : kUtf8Texts[0],
                      offers.back().bytes});
    return offers;
}

}  // namespace

std::vector<std::string> typesOf(ClipboardFormat format) {
    std::vector<std::string> types;
    if (format == ClipboardFormat::RichText) {
        types.assign(std::begin(kRichTexts), std::end(kRichTexts));
    } else if (format == ClipboardFormat::Text) {
        types.assign(std::begin(kUtf8Texts), std::end(kUtf8Texts));
        types.emplace_back(kLatin1Text);
    } else {
        for (const PictureType& one : kPictures)
            if (base::isMetafile(one.kind) == (format == ClipboardFormat::Metafile))
                types.emplace_back(one.name);
    }
    return types;
}

std::vector<Offer> offersOf(ClipboardFormat format, std::string content) {
    if (!base::fits(format, content)) return {};
    if (format == ClipboardFormat::Text) return offersOfText(std::move(content));
    const auto kind = base::pictureKindOf(content);
    const auto bytes = std::make_shared<const std::string>(std::move(content));
    std::vector<Offer> offers;
    if (format == ClipboardFormat::RichText) {
        for (const char* const type : kRichTexts) offers.push_back({type, type, bytes});
    } else {
        for (const PictureType& one : kPictures)
            if (one.kind == kind) offers.push_back({one.name, one.name, bytes});
    }
    return offers;
}

std::string utf8OfLatin1(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size() + bytes.size() / 8);
    for (const char one : bytes) {
        const unsigned code = static_cast<unsigned char>(one);
        if (code >= 0x80) result += static_cast<char>(0xC0 | code >> 6);
        result += code < 0x80 ? one : static_cast<char>(0x80 | (code & 0x3F));
    }
    return result;
}

}  // namespace quorkit::x11
