#include <quorkit/ports/memory.h>

namespace quorkit {

void MemoryHost::MessageBoxA(const String& text, const String& caption) {
    messages.push_back({text, caption});
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

bool MemoryHost::answer(const FileDialog& dialog, String& name) {
    dialogs.push_back(dialog);
    if (!chosen) return false;
    name = *chosen;
    return true;
}

}  // namespace quorkit
