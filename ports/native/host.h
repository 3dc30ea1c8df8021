// The user's own desktop as the host. A build has one of the rooms that implement it.
#pragma once

#include <quorkit/ports/host.h>

namespace quorkit {

class NativeHost final : public Host {
   public:
    void MessageBoxA(const String& text, const String& caption) override;
    bool GetOpenFileNameA(const FileDialog& dialog, String& name) override;
    bool GetSaveFileNameA(const FileDialog& dialog, String& name) override;
    bool SHBrowseForFolderA(const FileDialog& dialog, String& name) override;
};

}  // namespace quorkit
