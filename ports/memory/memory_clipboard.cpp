#include <quorkit/ports/memory.h>

#include "base/picture_kind.h"

namespace quorkit {
namespace {

bool holds(ClipboardFormat format, const std::pair<ClipboardFormat, std::string>& content) {
    const auto& [given, bytes] = content;
    return base::isPictureFormat(format) ? base::isPictureFormat(given) && base::fits(format, bytes)
                                         : given == format;
}

}  // namespace

bool MemoryClipboard::EmptyClipboard() {
    if (!locked) content.reset();
    return !locked;
}

bool MemoryClipboard::PutOnClipboard(ClipboardFormat format, const std::string& data) {
    if (locked || !base::fits(format, data)) return false;
    content = {format, data};
    return true;
}

bool MemoryClipboard::GetClipboardData(ClipboardFormat format, std::string& data) {
    if (locked || !content || !holds(format, *content)) return false;
    data = content->second;
    return true;
}

}  // namespace quorkit
