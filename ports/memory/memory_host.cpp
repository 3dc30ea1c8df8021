#include <quorkit/ports/memory.h>

namespace quorkit {

void MemoryHost::MessageBoxA(const String& text, const String& caption, std::uint32_t style) {
    messages.push_back({text, caption, style});
}

bool MemoryHost::GetOpenFileNameA(const FileDialog& dialog, String& name) {
    return answer(dialog, name);
}

bool MemoryHost::GetSaveFileNameA(const FileDialog& dialog, String& name) {
    return answer(dialog, name);
}

bool MemoryHost::SHBrowseForFolderA(const FileDialog& dialog, String& name) {
    return answer(dialog, name);
}

void MemoryHost::DoEvents() {
    ++eventRounds;
    if (events.empty()) return;
    const auto event = std::move(events.front());
    events.erase(events.begin());
    event();
}

bool MemoryHost::WaitForEvents(std::chrono::steady_clock::time_point deadline) {
    if (!events.empty()) return true;
    const auto now = std::chrono::steady_clock::now();
    if (deadline > now) waited += deadline - now;
    return false;
}

void MemoryHost::ShowWaitWindow(const String& text, WindowHandle owner) {
    waitText = text;
    waitOwner = owner;
}

bool MemoryHost::answer(const FileDialog& dialog, String& name) {
    dialogs.push_back(dialog);
    if (!chosen) return false;
    name = *chosen;
    return true;
}

}  // namespace quorkit
