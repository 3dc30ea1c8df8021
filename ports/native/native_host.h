// The desktop of the user as the host; a build has one implementation.
#pragma once

#include <quorkit/ports/host.h>

namespace quorkit::native {

class NativeHost final : public Host {
   public:
    void MessageBoxA(const String& text, const String& caption, std::uint32_t style) override;
    bool GetOpenFileNameA(const FileDialog& dialog, String& name) override;
    bool GetSaveFileNameA(const FileDialog& dialog, String& name) override;
    bool SHBrowseForFolderA(const FileDialog& dialog, String& name) override;
    void DoEvents() override;
    bool WaitForEvents(std::chrono::steady_clock::time_point deadline) override;
    void SetPointer(Pointer pointer) override;
    void ShowWaitWindow(const String& text, WindowHandle owner) override;
    void HideWaitWindow() override;
};

}  // namespace quorkit::native
