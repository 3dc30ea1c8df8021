// The clipboard of a build without display: there is none.
#include <quorkit/ports/clipboard_owner.h>

#include "linux/no_display/no_display.h"
#include "linux/surroundings.h"
#include "native/native_desktop.h"

namespace quorkit::native {

bool NativeClipboard::EmptyClipboard() {
    return nothing<bool>();
}

bool NativeClipboard::PutOnClipboard(ClipboardFormat, const std::string&) {
    return nothing<bool>();
}

bool NativeClipboard::GetClipboardData(ClipboardFormat, std::string&) {
    return nothing<bool>();
}

std::string clipboardProgram() {
    return {};
}

}  // namespace quorkit::native

namespace quorkit {

bool ports::ownClipboard(ClipboardFormat, std::string, const std::function<bool()>&) {
    return native::nothing<bool>();
}

}  // namespace quorkit
