#include <quorkit/ports/faults.h>

namespace quorkit {

void FaultyHost::MessageBoxA(const String& text, const String& caption, std::uint32_t style) {
    if (!due("MessageBoxA")) inner_.MessageBoxA(text, caption, style);
}
bool FaultyHost::GetOpenFileNameA(const FileDialog& dialog, String& name) {
    return due("GetOpenFileNameA") ? done() : inner_.GetOpenFileNameA(dialog, name);
}
bool FaultyHost::GetSaveFileNameA(const FileDialog& dialog, String& name) {
    return due("GetSaveFileNameA") ? done() : inner_.GetSaveFileNameA(dialog, name);
}
bool FaultyHost::SHBrowseForFolderA(const FileDialog& dialog, String& name) {
    return due("SHBrowseForFolderA") ? done() : inner_.SHBrowseForFolderA(dialog, name);
}
void FaultyHost::DoEvents() {
    if (!due("DoEvents")) inner_.DoEvents();
}
bool FaultyHost::MsgWaitForMultipleObjects(std::chrono::steady_clock::time_point deadline) {
    return due("MsgWaitForMultipleObjects") ? done() : inner_.MsgWaitForMultipleObjects(deadline);
}
void FaultyHost::SetPointer(Pointer pointer) {
    if (!due("SetPointer")) inner_.SetPointer(pointer);
}
void FaultyHost::ShowWaitWindow(const String& text, WindowHandle owner) {
    if (!due("ShowWaitWindow")) inner_.ShowWaitWindow(text, owner);
}
void FaultyHost::HideWaitWindow() {
    if (!due("HideWaitWindow")) inner_.HideWaitWindow();
}

}  // namespace quorkit
