#include "linux/folder_hive.h"

#include <algorithm>

#include "base/letter_case.h"
#include "linux/folder_names.h"

namespace quorkit::native {
namespace {

/// In bytes. Names of files and work folders are appended to a path.
constexpr std::size_t kLongestPath = 4000;

/// The root exists even while its folder does not.
ErrorCode orRoot(ErrorCode code, const Hive::Path& path) {
    return code == kFileNotFound && path.empty() ? kSuccess : code;
}

}  // namespace

std::string FolderHive::folderOf(const Path& path, std::size_t depth) const {
    // Nothing can be found or made beneath a device.
    constexpr const char* nowhere = "/dev/null/none";
    std::string folder = root_();
    if (!folder.starts_with('/')) return nowhere;
    for (const String& name : std::span(path).first(std::min(depth, path.size())))
        folder.append("/").append(folderNameOf(name));
    return folder.size() > kLongestPath ? nowhere : folder;
}

ErrorCode FolderHive::open(const Path& path, RegistryAccess access) {
    const std::string folder = folderOf(path);
    const ErrorCode code = openKeyFolder(folder, access == RegistryAccess::Write);
    const bool inDoubt = code == kSuccess && isCutOff(folder);
    for (std::size_t depth = 0; inDoubt && depth < path.size(); ++depth)
        if (isOfAnotherKey(folderOf(path, depth), path[depth])) return kFileNotFound;
    return orRoot(code, path);
}

ErrorCode FolderHive::create(const Path& path) {
    if (const ErrorCode code = makeRoot(folderOf({}), rights_)) return code;
    const StoreLock lock(folderOf({}));
    ErrorCode code = lock.status();
    for (std::size_t depth = 0; code == kSuccess && depth < path.size(); ++depth)
        code = makeKeyFolder(folderOf(path, depth), path[depth], rights_);
    return code;
}

ErrorCode FolderHive::value(const Path& path, const String& name, RegistryValue& value) {
    std::string text;
    if (const ErrorCode code = readKeyFile(folderOf(path), text)) return code;
    return KeyFile(std::move(text)).find(name, value) ? kSuccess : kFileNotFound;
}

ErrorCode FolderHive::values(const Path& path, std::vector<NamedValue>& values) {
    const std::string folder = folderOf(path);
    std::string text;
    ErrorCode code = readKeyFile(folder, text);
    if (code == kFileNotFound) code = orRoot(openKeyFolder(folder, false), path);
    if (code == kSuccess) KeyFile(std::move(text)).list(values);
    return code;
}

ErrorCode FolderHive::setValues(const Path& path, std::span<const NamedValue> values) {
    if (path.empty())
        if (const ErrorCode code = create(path)) return code;
    const StoreLock lock(folderOf({}));
    if (lock.status() != kSuccess) return lock.status();
    return changeKeyFile(folderOf(path), rights_, [&](KeyFile& file) {
        if (file.text().empty() && !path.empty()) file = KeyFile(newKeyFile(path.back()));
        file.set(values);
        return kSuccess;
    });
}

ErrorCode FolderHive::deleteValue(const Path& path, const String& name) {
    // If there is nothing to delete, no lock is needed.
    std::string text;
    if (const ErrorCode code = readKeyFile(folderOf(path), text)) return code;
    if (!KeyFile(std::move(text)).remove(name)) return kFileNotFound;
    const StoreLock lock(folderOf({}));
    if (lock.status() != kSuccess) return lock.status();
    return changeKeyFile(folderOf(path), rights_, [&](KeyFile& file) {
        return file.remove(name) ? kSuccess : kFileNotFound;
    });
}

ErrorCode FolderHive::subKeys(const Path& path, std::vector<String>& names) {
    const std::string folder = folderOf(path);
    std::vector<KeyEntry> entries;
    if (const ErrorCode code = listKeyFolder(folder, path.empty(), entries))
        return orRoot(code, path);
    if (path.size() == kDeepestKey) return kSuccess;
    std::vector<std::pair<String, String>> found;  // folded name, and name as spelled
    for (const KeyEntry& entry : entries)
        if (auto name = keyNameOf(folder, entry))
            found.emplace_back(base::folded(*name), std::move(*name));
    std::ranges::sort(found);
    for (auto& [folded, name] : found) names.push_back(std::move(name));
    return kSuccess;
}

ErrorCode FolderHive::deleteKey(const Path& path) {
    const StoreLock lock(folderOf({}));
    if (lock.status() != kSuccess) return lock.status();
    return removeKeyFolder(folderOf(path, path.size() - 1), path.back());
}

}  // namespace quorkit::native
