// A build that knows no display has no clipboard.
#include "native/desktop.h"

namespace quorkit {

bool NativeClipboard::EmptyClipboard() {
    return false;
}

bool NativeClipboard::IsClipboardFormatAvailable(ClipboardFormat) {
    return false;
}

bool NativeClipboard::SetClipboardData(ClipboardFormat, const std::string&) {
    return false;
}

bool NativeClipboard::GetClipboardData(ClipboardFormat, std::string&) {
    return false;
}

}  // namespace quorkit
