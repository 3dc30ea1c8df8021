#include <quorkit/ports/memory.h>

#include "clipboard/picture_kind.h"

namespace quorkit {
namespace {

bool isPicture(ClipboardFormat format) {
    return format != ClipboardFormat::Text && format != ClipboardFormat::RichText;
}

/// What a content counts as: a metafile, or any other picture, by its bytes.
bool holds(ClipboardFormat format, const std::pair<ClipboardFormat, std::string>& content) {
    if (!isPicture(format)) return content.first == format;
    const auto kind = isPicture(content.first) ? pictureKindOf(content.second) : std::nullopt;
    return kind && isMetafile(*kind) == (format == ClipboardFormat::Metafile);
}

}  // namespace

bool MemoryClipboard::EmptyClipboard() {
    if (!locked) content.reset();
    return !locked;
}

bool MemoryClipboard::IsClipboardFormatAvailable(ClipboardFormat format) {
    return !locked && content && holds(format, *content);
}

bool MemoryClipboard::SetClipboardData(ClipboardFormat format, const std::string& data) {
    const std::pair<ClipboardFormat, std::string> other{format, data};
    if (locked || !holds(format, other)) return false;
    content = other;
    return true;
}

bool MemoryClipboard::GetClipboardData(ClipboardFormat format, std::string& data) {
    if (!IsClipboardFormatAvailable(format)) return false;
    data = content->second;
    return true;
}

}  // namespace quorkit
