#include "linux/names.h"

#include <algorithm>
#include <filesystem>

#include "runtime/code_page.h"

namespace quorkit::disk {

ErrorCode pathOf(const String& name, std::string& path) {
    if (name.empty() || name.find(u'\0') != String::npos) return kInvalidName;
    path = runtime::toUtf8(name);
    std::ranges::replace(path, '\\', '/');
    return runtime::fromUtf8(path).find(u'\uFFFD') == String::npos ? kSuccess : kInvalidName;
}

String nameOf(const std::string& path) {
    return runtime::fromUtf8(path);
}

String entryNameOf(std::string_view bytes) {
    return runtime::fromUtf8(bytes);
}

std::string folderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path();
    return folder.empty() ? "." : folder;
}

}  // namespace quorkit::disk
