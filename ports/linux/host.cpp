#include "native/host.h"

namespace quorkit {

void NativeHost::MessageBoxA(const String&, const String&) {}
bool NativeHost::GetOpenFileNameA(const FileDialog&, String&) {
    return false;
}
bool NativeHost::GetSaveFileNameA(const FileDialog&, String&) {
    return false;
}
bool NativeHost::SHBrowseForFolderA(const FileDialog&, String&) {
    return false;
}

}  // namespace quorkit
