#include <quorkit/ports/memory.h>

#include "clipboard/picture_kind.h"

namespace quorkit {
namespace {

bool holds(ClipboardFormat format, const std::pair<ClipboardFormat, std::string>& content) {
    const auto& [given, bytes] = content;
    return isPictureFormat(format) ? isPictureFormat(given) && fits(format, bytes)
                                   : given == format;
}

}  // namespace

bool MemoryClipboard::EmptyClipboard() {
    if (!locked) content.reset();
    return !locked;
}

bool MemoryClipboard::PutOnClipboard(ClipboardFormat format, const std::string& data) {
    if (locked || !fits(format, data)) return false;
    content = {format, data};
    return true;
}

bool MemoryClipboard::GetClipboardData(ClipboardFormat format, std::string& data) {
    if (locked || !content || !holds(format, *content)) return false;
    data = content->second;
    return true;
}

}  // namespace quorkit
