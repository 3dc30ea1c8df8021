#include <quorkit/ports/faults.h>

namespace quorkit {

bool FaultyClipboard::EmptyClipboard() {
    return due("EmptyClipboard") ? done() : inner_.EmptyClipboard();
}
bool FaultyClipboard::SetClipboardData(ClipboardFormat format, const std::string& data) {
    return due("SetClipboardData") ? done() : inner_.SetClipboardData(format, data);
}
bool FaultyClipboard::GetClipboardData(ClipboardFormat format, std::string& data) {
    return due("GetClipboardData") ? done() : inner_.GetClipboardData(format, data);
}

}  // namespace quorkit
